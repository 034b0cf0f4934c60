#include "apps/esame/ricevuta_letta.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "azienda_support.h"

namespace cu::strumenti {
namespace {

using ::testing::HasSubstr;

// The sentence about a table with this content.
std::string frase(const std::string& contenuto) {
  const test::TempFolder cartella;
  try {
    static_cast<void>(righeRicevuta(test::scritto(cartella / "ricevuta.csv", contenuto)));
  } catch (const Error& errore) {
    return errore.description();
  }
  return {};
}

TEST(ReceiptTable, EachKindOfUselessTableHasItsOwnSentence) {
  EXPECT_THAT(frase(""), HasSubstr("Il file è vuoto"));
  EXPECT_THAT(frase("CodiceFiscale;Protocollo;Progressivo;Esito\n"), HasSubstr("nessuna riga"));
  EXPECT_THAT(frase("Cliente;Fattura\nRossi;12\n"), HasSubstr("non è la tabella di una ricevuta"));
  EXPECT_THAT(frase("CodiceFiscale;Esito\nRSSMRC71C08L781I;accettata\n"),
              HasSubstr("manca la colonna \"Protocollo\""));
  EXPECT_THAT(frase("%PDF-1.7\n"), HasSubstr("un documento PDF"));
  EXPECT_THAT(frase(std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16)), HasSubstr("non è un testo"));
}

TEST(ReceiptTable, IsReadWithItsRows) {
  EXPECT_EQ(frase("CodiceFiscale;Protocollo;Progressivo;Esito\nRSSMRC71C08L781I;1;2;accettata\n"), "");
}

}  // namespace
}  // namespace cu::strumenti
