#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "banco.h"

namespace cu::intake {
namespace {

using prova::Banco;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class PianoCompensiTest : public ::testing::Test {
 protected:
  Piano piano(const std::string& righe, const std::string& colonne = kSolite) {
    return banco.piano(Elenco::Compensi, colonne + "\n" + righe);
  }
  static std::vector<std::string> detti(const Piano& piano) { return Banco::messaggi(piano); }

  static constexpr const char* kSolite =
      "CodicePercipiente;Causale;DataPagamento;NumeroDocumento;DataDocumento;Onorario;SommeNonSoggette;"
      "RitenutaAcconto";
  Banco banco{prova::riempito()};
};

TEST_F(PianoCompensiTest, ANewPaymentIsNewAndItsAccountIsShownBeforeAndAfter) {
  const Piano suo = piano("P1;A;2017-09-20;3/2017;2017-09-15;100;;20\nP1;M;2017-09-20;4/2017;;50;;10\n");
  EXPECT_EQ(Banco::stati(suo), "nuovo nuovo");
  EXPECT_TRUE(suo.applicabile());
  ASSERT_EQ(suo.conti.size(), 2U);
  EXPECT_EQ(suo.conti[0].percipiente, "P1");
  EXPECT_EQ(suo.conti[0].causale, "A");
  EXPECT_EQ(suo.conti[0].anno, 2017);
  EXPECT_EQ((*suo.conti[0].prima)[0].toText(), "1500");
  EXPECT_EQ(suo.conti[0].dopo[0].toText(), "1600");
  EXPECT_EQ(suo.conti[0].dopo[4].toText(), "320");
  EXPECT_FALSE(suo.conti[1].prima);
  EXPECT_EQ(suo.righe[1].conto, 1);
}

TEST_F(PianoCompensiTest, TheSameRowsAreEqualAndNothingIsToBeWritten) {
  const Piano suo = banco.piano(Elenco::Compensi, prova::kCompensi, "basecompensi.csv");
  EXPECT_EQ(Banco::stati(suo), "uguale uguale uguale");
  EXPECT_TRUE(suo.applicabile());
  EXPECT_FALSE(suo.scrive());
  EXPECT_THAT(detti(suo), Contains(HasSubstr("F08: il file è già stato importato")));
  EXPECT_THAT(detti(suo), Contains(HasSubstr("2: R03: già presente, uguale")));
  const auto prima = banco.quante("CuImportazione");
  EXPECT_FALSE(banco.applica(suo)->lotto);
  EXPECT_EQ(banco.quante("CuImportazione"), prima);
}

TEST_F(PianoCompensiTest, OtherAmountsOfTheSameDocumentAreDifferent) {
  const std::string riga = "P1;A;2017-03-20;1/2017;2017-03-15;1100;2;220\n";
  Piano suo = piano(riga);
  EXPECT_EQ(Banco::stati(suo), "diverso");
  EXPECT_FALSE(suo.applicabile());
  EXPECT_THAT(detti(suo),
              ElementsAre(HasSubstr("R04: già presente, diverso: onorario in archivio 1000,00, ritenuta "
                                    "d'acconto in archivio 200,00")));
  banco.richiesta.diversi = SuDiversi::Salta;
  suo = piano(riga);
  EXPECT_TRUE(suo.applicabile());
  EXPECT_FALSE(suo.scrive());
  banco.richiesta.diversi = SuDiversi::Aggiorna;
  suo = piano(riga);
  EXPECT_TRUE(suo.applicabile());
  ASSERT_TRUE(banco.applica(suo)->lotto);
  EXPECT_EQ(banco.uno("SELECT OnorarioProvvigioni FROM Compenso WHERE IDCompenso = 1"), "1100");
  EXPECT_EQ(banco.uno("SELECT OnorarioProvvigioni FROM ContoIndividuale WHERE Anno = 2017"), "1600");
  EXPECT_EQ(banco.quante("Compenso"), 3);
}

TEST_F(PianoCompensiTest, WithoutANumberPaymentsAreCounted) {
  const std::string riga = "P1;A;2017-11-20;;;70;;14\n";
  ASSERT_THAT(banco.importa(Elenco::Compensi, kSolite + ("\n" + riga + riga)), IsEmpty());
  EXPECT_EQ(banco.quante("Compenso"), 5);
  EXPECT_EQ(Banco::stati(piano(riga + riga + riga)), "uguale uguale nuovo");
}

TEST_F(PianoCompensiTest, AReferenceIsTheIdentityWhateverElseChanges) {
  const std::string colonne = std::string(kSolite) + ";Riferimento";
  ASSERT_THAT(banco.importa(Elenco::Compensi, colonne + "\nP1;A;2017-11-20;9;;70;;14;R-1\n"), IsEmpty());
  EXPECT_EQ(Banco::stati(piano("P1;A;2017-11-20;9;;70;;14;R-1\n", colonne)), "uguale");
  EXPECT_EQ(Banco::stati(piano("P1;A;2017-11-20;9;;70;;14;R-2\n", colonne)), "nuovo");
  banco.richiesta.diversi = SuDiversi::Aggiorna;
  const Piano suo = piano("P2;M;2016-12-20;10;;80;;16;R-1\n", colonne);
  EXPECT_EQ(Banco::stati(suo), "diverso");
  ASSERT_EQ(suo.conti.size(), 2U) << "the account that it leaves, and the one that it comes to";
  ASSERT_TRUE(banco.applica(suo)->lotto);
  EXPECT_EQ(banco.quante("Compenso"), 4);
  EXPECT_EQ(banco.uno("SELECT OnorarioProvvigioni FROM ContoIndividuale WHERE Anno = 2017"), "1500");
  EXPECT_EQ(banco.uno("SELECT OnorarioProvvigioni FROM ContoIndividuale WHERE IDCausalePagamento = 11"),
            "80");
  EXPECT_EQ(Banco::stati(piano("P2;M;2016-12-20;10;;80;;16;R-1\n", colonne)), "uguale");
}

TEST_F(PianoCompensiTest, ADocumentTwiceInTheFileWithOtherAmountsIsAnError) {
  const Piano suo =
      piano("P1;A;2017-09-20;3;;100;;20\nP1;A;2017-09-20;3;;100;;20\nP1;A;2017-09-20;3;;200;;40\n");
  EXPECT_EQ(Banco::stati(suo), "nuovo uguale errore");
  EXPECT_THAT(detti(suo), Contains("4: R04: lo stesso documento è, con altri dati, nella riga 2"));
}

TEST_F(PianoCompensiTest, APayeeIsFoundByAnyOfItsKeys) {
  const std::string colonne =
      "CodicePercipiente;CodiceFiscale;PartitaIva;Causale;DataPagamento;NumeroDocumento;Onorario";
  const Piano suo = piano(
      ";rssmra80a01h501u;;A;2017-09-20;31;100\n"
      "P9;;;A;2017-09-20;32;100\n"
      "P1;00743110157;;A;2017-09-20;33;100\n",
      colonne);
  EXPECT_EQ(Banco::stati(suo), "nuovo errore errore");
  EXPECT_THAT(detti(suo), Contains("3: P12: nessun percipiente dell'azienda ha il codice P9"));
  EXPECT_THAT(detti(suo), Contains(HasSubstr("4: P10: un codice indica P1 Rossi Mario")));
}

TEST_F(PianoCompensiTest, WithoutAColumnOfTheKeyOnlyTheColumnIsReported) {
  const Piano suo = piano("A;2017-09-20;100\nA;2017-09-21;100\n", "Causale;DataPagamento;Onorario");
  EXPECT_EQ(Banco::stati(suo), "errore errore");
  EXPECT_THAT(detti(suo), ElementsAre(HasSubstr("C01: manca il percipiente")));
}

TEST_F(PianoCompensiTest, SeveralPayeesOfOneCodeAreLeftToThePerson) {
  ASSERT_THAT(banco.importa(Elenco::Percipienti,
                            "Codice;PartitaIva;Cognome\nP3;00743110157;Gruppo Uno\n"
                            "P4;00743110157;Gruppo Due\n"),
              IsEmpty());
  const Piano suo = piano(";00743110157;A;2017-09-20;31;100\n",
                          "CodicePercipiente;PartitaIva;Causale;DataPagamento;NumeroDocumento;Onorario");
  EXPECT_EQ(Banco::stati(suo), "da decidere");
  ASSERT_EQ(suo.righe[0].candidati.size(), 2U);
  EXPECT_THAT(detti(suo),
              ElementsAre(HasSubstr(
                  "P09: 2 percipienti in archivio hanno la partita IVA 00743110157: P3 Gruppo Uno")));
  banco.richiesta.decisioni[{0, 0}].idAnagrafica = suo.righe[0].candidati[1].id;
  EXPECT_EQ(
      Banco::stati(piano(";00743110157;A;2017-09-20;31;100\n",
                         "CodicePercipiente;PartitaIva;Causale;DataPagamento;NumeroDocumento;Onorario")),
      "nuovo");
}

TEST_F(PianoCompensiTest, AReasonIsOneOfTheListAndOfItsYears) {
  const Piano suo =
      piano("P1;F;2017-09-20;3;;100;;20\nP1;Z;2016-01-20;4;;100;;20\nP1;ZO;2016-01-20;5;;100;;20\n");
  EXPECT_EQ(Banco::stati(suo), "errore nuovo nuovo");
  EXPECT_THAT(detti(suo), ElementsAre(HasSubstr("2: V05 Causale: F non è fra i codici: A, B, C"),
                                      "3: R11 Causale: la causale Z non è del 2016, che ha ZO"));
  EXPECT_EQ(suo.avvisiDaAccettare(), std::set<Codice>{Codice::R11});
}

TEST_F(PianoCompensiTest, PaymentsOfOtherYearsAreLeftOut) {
  banco.richiesta.anno = 2016;
  const Piano suo = piano("P1;A;2017-09-20;3;;100;;20\nP1;A;2016-09-20;3;;100;;20\n");
  EXPECT_EQ(Banco::stati(suo), "escluso nuovo");
  EXPECT_THAT(detti(suo), ElementsAre("2: R05 DataPagamento: pagato nel 2017, non nel 2016"));
  EXPECT_TRUE(suo.applicabile());
}

TEST_F(PianoCompensiTest, ARowOfAnotherYearIsLeftOutWhateverElseIsWrongWithIt) {
  banco.richiesta.anno = 2016;
  const Piano suo = piano("P1;Q9;2017-09-20;3;x;\nP999;A;2017-09-20;3;1;\nP999;A;2016-09-20;3;1;\n");
  EXPECT_EQ(Banco::stati(suo), "escluso escluso errore");
  ASSERT_EQ(suo.righe[0].messaggi.size(), 1U);
  EXPECT_EQ(suo.righe[0].messaggi[0].codice, Codice::R05);
}

TEST_F(PianoCompensiTest, WithoutReasonOrDateNothingElseIsSaidOfThem) {
  Piano suo = piano("P1;2017-09-20;100\n", "CodicePercipiente;DataPagamento;Onorario");
  EXPECT_EQ(Banco::stati(suo), "errore");
  EXPECT_THAT(detti(suo), ElementsAre(HasSubstr("C01 Causale: manca la colonna"),
                                      "2: C01 Causale: manca il valore, che è obbligatorio"));
  banco.richiesta.anno = 2017;
  suo = piano("P1;Z;100\n", "CodicePercipiente;Causale;Onorario");
  EXPECT_EQ(Banco::stati(suo), "errore");
  EXPECT_THAT(detti(suo), ElementsAre(HasSubstr("C01 DataPagamento: manca la colonna")));
}

TEST_F(PianoCompensiTest, APaymentWithoutACertainDateIsAnErrorAndNoMore) {
  banco.richiesta.anno = 2016;
  const Piano suo = piano("P1;Z;05/03/2016;3;;100;;20\nP1;Z;06/03/2016;4;;100;;20\n");
  EXPECT_EQ(Banco::stati(suo), "errore errore");
  EXPECT_THAT(detti(suo), ElementsAre(HasSubstr("V02 DataPagamento: "), HasSubstr("2: V02 DataPagamento: "),
                                      HasSubstr("3: V02 DataPagamento: ")));
  EXPECT_THAT(suo.conti, IsEmpty());
}

TEST_F(PianoCompensiTest, AnAccountCorrectedByHandIsNotOverwritten) {
  banco->Execute("UPDATE ContoIndividuale SET RitenutaAcconto = 299 WHERE Anno = 2017");
  const Piano suo = piano("P1;A;2017-09-20;3;;100;;20\nP2;A;2016-09-20;3;;100;;20\n");
  EXPECT_EQ(Banco::stati(suo), "da decidere nuovo");
  EXPECT_THAT(detti(suo),
              Contains(HasSubstr("A02: P1, causale A, 2017: gli importi del conto non sono la somma")));
  EXPECT_THAT(detti(suo), Contains(HasSubstr("2: A02: ")));
  EXPECT_FALSE(banco.applica(suo));
  banco.richiesta.decisioni[{0, 0}].sovrascriviConto = true;
  EXPECT_EQ(Banco::stati(piano("P1;A;2017-09-20;3;;100;;20\n")), "nuovo");
}

TEST_F(PianoCompensiTest, AnAccountDoesNotBecomeNegative) {
  const Piano suo = piano("P1;A;2017-09-20;3;;-2000;;-400\n");
  EXPECT_EQ(Banco::stati(suo), "errore");
  EXPECT_THAT(detti(suo), Contains("A01: P1, causale A, 2017: una somma del conto diventa negativa"));
  EXPECT_THAT(detti(suo), Contains(HasSubstr("2: R06: importi negativi")));
}

TEST_F(PianoCompensiTest, QuotaAndTaxesFitIntoTheAccount) {
  const Piano suo = piano("P1;M;2017-09-20;3;;100;0;20\nP1;M;2017-10-20;4;;-90;0;-10\n");
  EXPECT_THAT(detti(suo), Not(Contains(HasSubstr("R13: P1"))));
  const Piano oltre = piano("P1;M;2017-09-20;3;;100;0;20\nP1;M;2017-10-20;4;;-90;0;0\n");
  EXPECT_THAT(detti(oltre),
              Contains("R13: P1, causale M, 2017: nel conto le ritenute 20,00 superano l'imponibile 10,00"));
  EXPECT_EQ(Banco::stati(oltre), "errore errore");
}

TEST_F(PianoCompensiTest, AnAccountHasOneCodeOfSumsNotSubject) {
  const std::string colonne = std::string(kSolite) + ";CodiceNonSoggette";
  ASSERT_THAT(banco.importa(Elenco::Compensi, colonne + "\nP1;M;2017-11-20;9;;70;10;14;7\n"), IsEmpty());
  EXPECT_EQ(banco.uno("SELECT IDCodicePerNonSoggetti FROM ContoIndividualeDatiAggiuntivi"), "7");
  const Piano suo = piano("P1;M;2017-12-20;10;;70;10;14;6\nP2;M;2017-12-20;10;;70;10;14;6\n", colonne);
  EXPECT_EQ(Banco::stati(suo), "errore nuovo");
  EXPECT_THAT(detti(suo), Contains(HasSubstr("A03: P1, causale M, 2017: il conto avrebbe due codici")));
  EXPECT_EQ(Banco::stati(piano("P1;M;2017-11-20;9;;70;10;14;7\n", colonne)), "uguale");
}

TEST_F(PianoCompensiTest, ModulesThatHoldSumsAreNamed) {
  banco->Execute(
      "INSERT INTO ModuloXContoIndividuale (IDModuloXContoIndividuale, IDAnagrafica, IDAzienda, "
      "IDCausalePagamento,"
      " Anno, NumeroModulo, SommeNonSoggette) SELECT 1, IDAnagrafica, 1, 1, 2017, 2, 5 FROM Percipiente"
      " WHERE Codice = 'P1'");
  EXPECT_THAT(detti(piano("P1;A;2017-09-20;3;;100;2;20\n")), Contains(HasSubstr("A04: P1, causale A, 2017")));
  EXPECT_THAT(detti(piano("P1;A;2017-09-20;3;;100;;20\n")), IsEmpty());
}

TEST_F(PianoCompensiTest, WhatTheChecksBeforeTheFileWouldReportIsSaid) {
  banco->Execute(
      "UPDATE Anagrafica SET Sesso = NULL WHERE CodiceFiscale = 'RSSMRA80A01H501U' AND Indirizzo IS NOT "
      "NULL");
  banco->Execute("UPDATE ConfigurazioneGenerale SET IDCodiceCaricaRappresentante = NULL");
  const Piano suo = piano("P1;A;2017-09-20;3;;100;;20\n");
  ASSERT_EQ(suo.mancanti.size(), 2U);
  EXPECT_EQ(suo.mancanti[0].percipiente, "P1");
  EXPECT_EQ(suo.mancanti[0].controllo, 15);
  EXPECT_EQ(suo.mancanti[0].testo, "Sesso non presente");
  EXPECT_EQ(suo.mancanti[1].percipiente, "");
  EXPECT_EQ(suo.mancanti[1].controllo, 9);
}

TEST_F(PianoCompensiTest, WarningsStopUntilTheyAreAccepted) {
  const std::string riga = "P1;A;2017-09-20;3;;100;;21\n";
  Piano suo = piano(riga);
  EXPECT_FALSE(suo.applicabile());
  EXPECT_THAT(banco.applica(suo).refusals.front().text, HasSubstr("R01"));
  banco.richiesta.accettati.insert(Codice::R01);
  EXPECT_TRUE(piano(riga).applicabile());
}

TEST_F(PianoCompensiTest, ValuesAreShownUnderTheColumnsOfTheList) {
  const Piano suo = piano("P1;A;2017-09-20;3;;100;;20\n");
  EXPECT_THAT(valori(suo, suo.righe[0]), Contains(std::pair<std::string, std::string>("Onorario", "100")));
  EXPECT_THAT(valori(suo, suo.righe[0]),
              Contains(std::pair<std::string, std::string>("DataPagamento", "2017-09-20")));
  EXPECT_THAT(chiave(suo, suo.righe[0]),
              Contains(std::pair<std::string, std::string>("CodicePercipiente", "P1")));
  EXPECT_THAT(importi(suo.conti[0].dopo),
              Contains(std::pair<std::string, std::string>("RitenutaAcconto", "320")));
}

}  // namespace
}  // namespace cu::intake
