// Reading a file for a window: certificates by their lines, and whatever the file is.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "apps/comune/file_letto.h"
#include "apps/strumenti/conteggi.h"
#include "apps/strumenti/file_esaminato.h"
#include "apps/strumenti/finestra.h"
#include "apps/strumenti/lavoro.h"
#include "azienda_support.h"
#include "lettura/lettura_prova.h"

namespace cu::strumenti {
namespace {

using lettura::prova::FileDiProva;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

FileDiProva molti(int quanti) {
  FileDiProva file;
  for (int i = 0; i < quanti; ++i) file.certificato();
  file.fine();
  return file;
}

TEST(FileRead, EachCertificateIsReadAgainAtItsLines) {
  const test::TempFolder cartella;
  FileDiProva prova = molti(150);
  prova.valore(3 + 2 * 97 + 1, "AU001004", FileDiProva::amount("9999,99"));
  const std::string percorso = test::scritto(cartella / "molti.cur", prova.testo());
  const FileEsaminato file = FileEsaminato::leggi(percorso, {});
  ASSERT_EQ(file.certificati().size(), 150U);
  for (const std::size_t quale : {0U, 63U, 97U, 149U}) {
    const lettura::Certificato riletto = file.rileggi(quale);
    EXPECT_EQ(riletto.numero, static_cast<int>(quale) + 1);
    EXPECT_EQ(riletto.riga, file.certificati()[quale].riga);
    ASSERT_EQ(riletto.moduli.size(), 1U);
    EXPECT_EQ(riletto.moduli[0].riga, file.certificati()[quale].riga + 1);
    EXPECT_EQ(riletto.valore("AU001004"), quale == 97 ? "9999,99" : "1234,50");
  }
  EXPECT_EQ(file.certificati()[97].lordo, 999999);
  EXPECT_EQ(file.riga(1), prova.righe[0]);
  EXPECT_EQ(file.riga(303), prova.righe[302]);
}

TEST(FileRead, LinesOfAnyLengthAreFoundAgain) {
  const test::TempFolder cartella;
  FileDiProva prova = molti(100);
  prova.righe[40] = "corta";
  prova.righe[90] += std::string(9000, 'X');
  const std::string percorso = test::scritto(cartella / "storto.cur", prova.testo());
  const FileEsaminato file = FileEsaminato::leggi(percorso, {});
  EXPECT_EQ(file.riga(41), "corta");
  EXPECT_EQ(file.riga(91).size(), lettura::kRigaMassima);
  const std::size_t ultimo = file.certificati().size() - 1;
  EXPECT_EQ(file.rileggi(ultimo).numero, 100);
}

TEST(FileRead, AFindingBelongsToTheCertificateOfItsLine) {
  const test::TempFolder cartella;
  FileDiProva prova = molti(3);
  prova.valore(6, "AU001008", FileDiProva::amount("999,00"));
  prova.metti(9, 1, "Q");
  const std::string percorso = test::scritto(cartella / "rilievi.cur", prova.testo());
  const FileEsaminato file = FileEsaminato::leggi(percorso, {});
  EXPECT_EQ(file.certificatoDi(6), std::optional<std::size_t>(1));
  EXPECT_EQ(file.certificatoDi(5), std::optional<std::size_t>(1));
  EXPECT_EQ(file.certificatoDi(2), std::nullopt);
  EXPECT_EQ(file.certificatoDi(9), std::nullopt) << "of the whole file";
  EXPECT_EQ(file.certificati()[1].avvisi, 1U) << "the base differs";
  EXPECT_EQ(file.certificati()[0].avvisi + file.certificati()[0].errori, 0U);
  EXPECT_GT(file.esito().rilievi.errori(), 0U);
}

TEST(FileRead, AFileThatChangesIsNotMixedWithTheOneThatWasRead) {
  const test::TempFolder cartella;
  const std::string percorso = test::scritto(cartella / "cambia.cur", molti(2).testo());
  const FileEsaminato file = FileEsaminato::leggi(percorso, {});
  test::scritto(percorso, molti(3).testo());
  EXPECT_THROW(static_cast<void>(file.rileggi(0)), FileIlleggibile);
  std::filesystem::remove(percorso);
  EXPECT_THROW(static_cast<void>(file.riga(1)), FileIlleggibile);
}

TEST(FileRead, SaysWhatAFileIsNot) {
  const test::TempFolder cartella;
  const FileEsaminato vuoto = FileEsaminato::leggi(test::scritto(cartella / "vuoto.cur", ""), {});
  EXPECT_EQ(stranezza(vuoto), "Il file è vuoto.");
  const FileEsaminato pdf =
      FileEsaminato::leggi(test::scritto(cartella / "a.pdf", "%PDF-1.7\n\x01\x02\n"), {});
  EXPECT_THAT(stranezza(pdf), HasSubstr("non un file telematico"));
  EXPECT_THAT(stranezza(pdf), HasSubstr("un documento PDF"));
  EXPECT_TRUE(pdf.rilievi().empty()) << "what it is says it all";
  const FileEsaminato buono = FileEsaminato::leggi(test::scritto(cartella / "b.cur", molti(1).testo()), {});
  EXPECT_THAT(stranezza(buono), IsEmpty());
  EXPECT_THAT(intestazione(buono), HasSubstr("Fornitura CUR18, compensi del 2017, ordinaria"));
  EXPECT_THAT(intestazione(buono), HasSubstr("nessun errore, nessun avviso"));
  EXPECT_THROW(FileEsaminato::leggi(cartella.path(), {}), FileIlleggibile);
  EXPECT_THROW(FileEsaminato::leggi(cartella / "manca.cur", {}), FileIlleggibile);
}

TEST(FileRead, AFileOfAnotherKindIsOneSentence) {
  const test::TempFolder cartella;
  const auto frase = [&](const std::string& contenuto) {
    const FileEsaminato file = FileEsaminato::leggi(test::scritto(cartella / "altro", contenuto), {});
    EXPECT_TRUE(file.rilievi().empty()) << contenuto;
    EXPECT_EQ(file.esito().rilievi.errori(), 0U) << contenuto;
    EXPECT_EQ(stranezza(file), file.estraneo());
    return file.estraneo();
  };
  EXPECT_THAT(frase(std::string("\x89PNG\r\n\x1a\n\0\0", 10)), HasSubstr("un'immagine PNG"));
  EXPECT_THAT(frase("PK\3\4....xl/workbook.xml"), HasSubstr("un foglio elettronico XLSX"));
  EXPECT_THAT(frase("PK\3\4....lettera.txt"), HasSubstr("un archivio ZIP"));
  EXPECT_THAT(frase("\n<?xml version=\"1.0\"?><a/>"), HasSubstr("un documento XML"));
  std::string testo;
  for (int i = 0; i < 5000; ++i) testo += "Agenda del giorno " + std::to_string(i) + "\n";
  EXPECT_THAT(frase(testo), HasSubstr("nessuna delle sue righe"));
}

TEST(FileRead, ADamagedTelematicFileKeepsItsFindings) {
  const test::TempFolder cartella;
  std::string soloLf = molti(2).testo();
  std::erase(soloLf, '\r');
  const FileEsaminato file = FileEsaminato::leggi(test::scritto(cartella / "lf.cur", soloLf), {});
  EXPECT_EQ(file.estraneo(), "");
  EXPECT_FALSE(file.rilievi().empty());
}

TEST(FileRead, FindingsOfTheWholeFileComeFirst) {
  const test::TempFolder cartella;
  FileDiProva prova = molti(2);
  prova.valore(4, "AU001008", FileDiProva::amount("999,00"));
  prova.metti(2, 402, "00000099");
  const FileEsaminato file = FileEsaminato::leggi(test::scritto(cartella / "r.cur", prova.testo()), {});
  ASSERT_GE(file.rilievi().size(), 2U);
  bool diCertificato = false;
  for (const lettura::Rilievo& uno : file.rilievi()) {
    const bool suo = file.certificatoDi(uno.riga).has_value();
    EXPECT_TRUE(suo || !diCertificato) << uno.testo;
    diCertificato = suo;
  }
  EXPECT_TRUE(diCertificato);
}

TEST(FileRead, AFileCutInHalfSaysSoBeforeWhatItsCertificatesHave) {
  const test::TempFolder cartella;
  const std::string testo = molti(10).testo();
  const FileEsaminato file =
      FileEsaminato::leggi(test::scritto(cartella / "meta.cur", testo.substr(0, 12 * 1900)), {});
  const auto fine =
      std::find_if(file.rilievi().begin(), file.rilievi().end(),
                   [](const lettura::Rilievo& uno) { return uno.regola == lettura::Regola::L04; });
  ASSERT_NE(fine, file.rilievi().end());
  EXPECT_EQ(file.certificatoDi(*fine), std::nullopt);
  for (auto prima = file.rilievi().begin(); prima != fine; ++prima)
    EXPECT_EQ(file.certificatoDi(*prima), std::nullopt);
  for (const RigaCertificato& uno : file.certificati()) EXPECT_EQ(uno.errori, 0U) << uno.numero;
}

TEST(FileRead, CountsHaveThousandsMarks) {
  EXPECT_EQ(conPunti(0), "0");
  EXPECT_EQ(conPunti(999), "999");
  EXPECT_EQ(conPunti(1000), "1.000");
  EXPECT_EQ(conPunti(38000000), "38.000.000");
  EXPECT_EQ(segni(1200, 20000), QStringLiteral("✖ 1.200  ⚠ 20.000"));
  EXPECT_EQ(segniDetti(1, 20000), QStringLiteral("1 errore, 20.000 avvisi"));
}

TEST(FileRead, ATruncatedFileShowsWhatCouldBeRead) {
  const test::TempFolder cartella;
  const std::string intero = molti(4).testo();
  for (const std::size_t byte :
       {std::size_t{1}, std::size_t{1899}, std::size_t{5000}, intero.size() - 3000}) {
    const FileEsaminato file =
        FileEsaminato::leggi(test::scritto(cartella / "tronco.cur", intero.substr(0, byte)), {});
    EXPECT_GT(file.esito().rilievi.errori(), 0U) << byte;
    for (std::size_t i = 0; i < file.certificati().size(); ++i) EXPECT_NO_THROW(file.rileggi(i)) << byte;
  }
}

TEST(FileRead, CanBeInterrupted) {
  const test::TempFolder cartella;
  const std::string percorso = test::scritto(cartella / "molti.cur", molti(50).testo());
  EXPECT_THROW(
      FileEsaminato::leggi(percorso, [](const char*, std::uint64_t, std::uint64_t) { throw Interrotto(); }),
      Interrotto);
}

}  // namespace
}  // namespace cu::strumenti
