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

TEST(ImportaAziende, WriteEveryRowThatACompanyNeeds) {
  Banco banco;
  ASSERT_THAT(banco.importa(Elenco::Aziende, prova::kAziende), IsEmpty());
  EXPECT_EQ(
      banco.uno(
          "SELECT A.Anagrafica FROM Azienda Az INNER JOIN Anagrafica A ON Az.IDAnagrafica = A.IDAnagrafica"),
      "Esempio S.r.l.");
  EXPECT_EQ(banco.uno("SELECT R.Nome FROM ConfigurazioneGenerale CG INNER JOIN Anagrafica R"
                      " ON CG.IDAnagraficaRappresentante = R.IDAnagrafica"),
            "Mario");
  for (const char* tabella : {"ConfigurazioneCompensiATerzi", "ConfigurazioneContabile", "Filiale",
                              "AttivitaAzienda", "CodiceAttivita"}) {
    EXPECT_EQ(banco.quante(tabella), 1) << tabella;
  }
  EXPECT_EQ(banco.quante("DefaultFilialePerTipoOggetto"), 3);
  EXPECT_EQ(banco.quante("PeriodoIva"), 5) << "2014 to the present year";
  EXPECT_EQ(banco.quante("AttivitaAziendaPerPeriodoIva"), 5);
}

TEST(ImportaAziende, ChangeAndFindTheOneThatIsThere) {
  Banco banco(prova::riempito());
  EXPECT_EQ(Banco::stati(banco.piano(Elenco::Aziende, prova::kAziende)), "uguale");
  std::string altra(prova::kAziende);
  altra.replace(altra.find("692011"), 6, "620100");
  altra.replace(altra.find("Rossi;Mario;1"), 13, "Rossi;Mario;8");
  EXPECT_EQ(Banco::stati(banco.piano(Elenco::Aziende, altra)), "diverso");
  banco.richiesta.diversi = SuDiversi::Aggiorna;
  ASSERT_THAT(banco.importa(Elenco::Aziende, altra), IsEmpty());
  EXPECT_EQ(banco.uno("SELECT IDCodiceCaricaRappresentante FROM ConfigurazioneGenerale"), "8");
  EXPECT_EQ(banco.quante("Azienda"), 1);
  EXPECT_EQ(Banco::stati(banco.piano(Elenco::Aziende, altra)), "uguale");
  const Piano due =
      banco.piano(Elenco::Aziende, altra + "12345670017;Altra;;;Roma;RM;;RSSMRA80A01H501U;R;M;1\n");
  EXPECT_EQ(Banco::stati(due), "uguale errore");
  EXPECT_THAT(Banco::messaggi(due),
              Contains(HasSubstr("3: P10 CodiceFiscale: l'azienda è già nella riga 2")));
}

TEST(ImportaAziende, APersonNeedsNoRepresentative) {
  Banco banco;
  const Piano piano = banco.piano(
      Elenco::Aziende, "CodiceFiscale;Cognome;Nome;Comune;Provincia\nRSSMRA80A01H501U;Rossi;Mario;Roma;RM\n");
  EXPECT_EQ(Banco::stati(piano), "nuovo");
  EXPECT_THAT(piano.mancanti, IsEmpty());
  ASSERT_TRUE(banco.applica(piano)->lotto);
  EXPECT_EQ(banco.uno("SELECT PersonaFisica FROM Anagrafica"), "1");
}

TEST(Applica, ATestWritesNothing) {
  Banco banco(prova::riempito());
  const auto prima = banco.contenuto();
  const Piano piano = banco.piano(Elenco::Compensi,
                                  "CodicePercipiente;Causale;DataPagamento;Onorario\nP1;A;2017-09-20;100\n");
  const Result<Applicato> esito = banco.applica(piano, true);
  ASSERT_TRUE(esito);
  EXPECT_FALSE(esito->lotto);
  EXPECT_EQ(banco.contenuto(), prima);
  EXPECT_EQ(banco.quante("CuImportazione"), 3);
}

TEST(Applica, AYearWithoutAPeriodGetsOne) {
  Banco banco(prova::riempito());
  ASSERT_THAT(banco.importa(Elenco::Compensi,
                            "CodicePercipiente;Causale;DataPagamento;Onorario\nP1;A;2012-09-20;100\n"),
              IsEmpty());
  EXPECT_EQ(banco.uno("SELECT C.CodiceAttivita FROM PeriodoIva P INNER JOIN AttivitaAziendaPerPeriodoIva A"
                      " ON P.IDPeriodoIva = A.IDPeriodoIva INNER JOIN CodiceAttivita C"
                      " ON A.IDCodiceAttivita = C.IDCodiceAttivita WHERE P.Anno = 2012"),
            "692011");
}

TEST(Applica, OtherAccountsOfTheYearStayAsTheyAre) {
  Banco banco(prova::riempito());
  banco->Execute("UPDATE ContoIndividuale SET RitenutaAcconto = 299 WHERE Anno = 2017");
  ASSERT_THAT(banco.importa(Elenco::Compensi,
                            "CodicePercipiente;Causale;DataPagamento;Onorario\nP2;A;2017-09-20;100\n"),
              IsEmpty());
  EXPECT_EQ(
      banco.uno(
          "SELECT RitenutaAcconto FROM ContoIndividuale WHERE Anno = 2017 AND OnorarioProvvigioni = 1500"),
      "299");
}

TEST(Applica, RefusesWhatChangedSinceTheTest) {
  Banco banco(prova::riempito());
  const Piano piano = banco.piano(Elenco::Compensi,
                                  "CodicePercipiente;Causale;DataPagamento;Onorario\nP1;A;2017-09-20;100\n");
  banco->Execute("UPDATE Compenso SET RitenutaAcconto = 1 WHERE IDCompenso = 2");
  const auto prima = banco.contenuto();
  const Result<Applicato> esito = banco.applica(piano);
  ASSERT_FALSE(esito);
  EXPECT_EQ(esito.refusals[0].code, "cambiato");
  EXPECT_EQ(banco.contenuto(), prima);
}

TEST(Applica, RefusesADatabaseThatIsNotReady) {
  Banco banco(prova::riempito());
  const auto pronto = [&] { return prontoPerImportare(*banco, Elenco::Compensi, banco.richiesta); };
  EXPECT_TRUE(pronto());
  banco.richiesta.idAzienda = 9;
  EXPECT_EQ(pronto().refusals.at(0).code, "azienda");
  EXPECT_THROW((void)banco.piano(Elenco::Compensi, prova::kCompensi), Error);
  banco.richiesta.idAzienda = 1;
  banco->Execute("DROP TABLE CuArchivio");
  EXPECT_EQ(pronto().refusals.at(0).code, "estraneo");
  banco.richiesta.databaseEstraneo = true;
  EXPECT_TRUE(pronto());
  banco->Execute("DROP TABLE CuImportazioneRiga");
  EXPECT_EQ(pronto().refusals.at(0).code, "senza storico");
}

TEST(Applica, InTheDatabaseOfASuiteThePeriodsAreTheSuites) {
  Banco banco(prova::riempito());
  banco->Execute("DROP TABLE CuArchivio");
  banco.richiesta.databaseEstraneo = true;
  ASSERT_THAT(banco.importa(Elenco::Compensi,
                            "CodicePercipiente;Causale;DataPagamento;Onorario\nP1;A;2012-09-20;100\n"),
              IsEmpty());
  EXPECT_EQ(banco.uno("SELECT COUNT(*) FROM PeriodoIva WHERE Anno = 2012"), "0");
}

TEST(Applica, AFailureHalfWayLeavesNothing) {
  Banco banco(prova::riempito());
  const Piano piano = banco.piano(Elenco::Compensi,
                                  "CodicePercipiente;Causale;DataPagamento;Onorario\nP1;A;2017-09-20;100\n");
  const auto prima = banco.contenuto();
  test::RefusingConnection rotta(*banco, "UPDATE ContoIndividuale");
  test::OneConnectionHost host(rotta);
  RicostruzioneContiIndividuali ricostruzione;
  EXPECT_THROW((void)applica(host, ricostruzione, piano, {.prova = false, .utente = "", .momento = ""}),
               DatabaseError);
  EXPECT_EQ(banco.contenuto(), prima);
  EXPECT_EQ(banco.quante("CuImportazione"), 3);
}

TEST(Storico, KeepsBatchesFilesAndCounts) {
  Banco banco(prova::riempito());
  const std::vector<Lotto> lotti = storico(*banco, 1);
  ASSERT_EQ(lotti.size(), 3U);
  EXPECT_EQ(lotti[0].elenco, Elenco::Aziende);
  EXPECT_EQ(lotti[0].idAzienda, 0);
  EXPECT_EQ(lotti[2].elenco, Elenco::Compensi);
  EXPECT_EQ(lotti[2].idAzienda, 1);
  EXPECT_EQ(lotti[2].momento, "2018-03-05 10:30:00");
  EXPECT_EQ(lotti[2].utente, "anna");
  EXPECT_FALSE(lotti[2].annullato);
  EXPECT_THAT(lotti[2].conteggi, ElementsAre(3, 0, 0, 0, 0, 0));
  ASSERT_EQ(lotti[2].file.size(), 1U);
  EXPECT_EQ(lotti[2].file[0].nome, "basecompensi.csv");
  EXPECT_EQ(storico(*banco, 2).size(), 1U) << "batches of companies belong to none";
}

TEST(ImportaCompensi, AReferenceDoesNotFollowARowThatCameLater) {
  Banco banco(prova::riempito());
  const std::string colonne =
      "CodicePercipiente;Causale;DataPagamento;NumeroDocumento;Onorario;Riferimento\n";
  const std::string prima = "P1;M;2014-09-20;3;100;R-1\n";
  ASSERT_THAT(banco.importa(Elenco::Compensi, colonne + prima), IsEmpty());
  const std::string id = banco.uno("SELECT MAX(IDCompenso) FROM Compenso");
  banco->Execute("DELETE FROM Compenso WHERE IDCompenso = " + id);
  banco->Execute("DELETE FROM ContoIndividuale WHERE Anno = 2014");
  ASSERT_THAT(banco.importa(Elenco::Compensi, colonne + "P1;M;2014-10-20;4;70;\n", "g.csv"), IsEmpty());
  EXPECT_EQ(banco.uno("SELECT MAX(IDCompenso) FROM Compenso"), std::to_string(std::stoi(id) + 1));
  EXPECT_EQ(Banco::stati(banco.piano(Elenco::Compensi, colonne + prima)), "nuovo");
}

}  // namespace
}  // namespace cu::intake
