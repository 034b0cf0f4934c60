#include "intake/messaggi.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace cu::intake {
namespace {

TEST(Codici, AreThoseOfTheirRankAndFoundByName) {
  std::set<std::string_view> sigle;
  for (const VoceCodice& codice : kVociCodici) {
    EXPECT_TRUE(sigle.insert(codice.sigla).second);
    EXPECT_EQ(codiceDaSigla(codice.sigla), codice.codice);
    EXPECT_FALSE(codice.titolo.empty());
  }
  EXPECT_FALSE(codiceDaSigla("X01"));
  EXPECT_FALSE(codiceDaSigla("v03"));
  EXPECT_FALSE(codiceDaSigla(""));
}

std::string conGravita(Gravita gravita) {
  std::string sigle;
  for (const VoceCodice& codice : kVociCodici) {
    if (codice.gravita == gravita) sigle += std::string(codice.sigla) + ' ';
  }
  return sigle;
}

TEST(Codici, HaveTheirSeverity) {
  EXPECT_EQ(conGravita(Gravita::Errore),
            "F01 F02 F03 F04 F05 F06 C01 C02 V01 V02 V03 V05 V06 V08 V09 V10 P01 P10 P12 R13 A01 A03 ");
  EXPECT_EQ(conGravita(Gravita::DaDecidere), "P08 P09 R02 R04 A02 ");
  EXPECT_EQ(conGravita(Gravita::Informazione), "F07 F08 R03 R05 R12 ");
}

TEST(Codici, CanBeAcceptedWhereTheyAreWarnings) {
  EXPECT_TRUE(accettabile(Codice::V04));
  EXPECT_TRUE(accettabile(Codice::V09));
  EXPECT_FALSE(accettabile(Codice::V03));
  EXPECT_FALSE(accettabile(Codice::R04));
  EXPECT_FALSE(accettabile(Codice::R03));
}

TEST(MessaggioDetto, HasThePartsThatAreKnown) {
  const Messaggio importo = messaggio(Codice::V03, "199,9O non è un importo", "Ritenuta");
  EXPECT_EQ(dettoMessaggio({"compensi.csv", "", 14}, importo),
            "compensi.csv, riga 14, colonna \"Ritenuta\": 199,9O non è un importo (V03).");
  EXPECT_EQ(dettoMessaggio({"compensi.xlsx", "Marzo", 14}, importo),
            "compensi.xlsx, foglio \"Marzo\", riga 14, colonna \"Ritenuta\": 199,9O non è un importo (V03).");
  EXPECT_EQ(dettoMessaggio({"a.csv", "", 0}, messaggio(Codice::F01, "il file non ha righe")),
            "a.csv: il file non ha righe (F01).");
  EXPECT_EQ(dettoMessaggio({}, messaggio(Codice::A01, "il conto diventa negativo")),
            "il conto diventa negativo (A01).");
}

TEST(Gravita, HasAName) {
  EXPECT_EQ(nome(Gravita::Errore), "errore");
  EXPECT_EQ(nome(Gravita::DaDecidere), "da decidere");
  EXPECT_EQ(nome(Gravita::Avviso), "avviso");
  EXPECT_EQ(nome(Gravita::Informazione), "informazione");
}

}  // namespace
}  // namespace cu::intake
