#include "intake/annulla.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "banco.h"

namespace cu::intake {
namespace {

using prova::Banco;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr const char* kColonne =
    "CodicePercipiente;Causale;DataPagamento;NumeroDocumento;Onorario;RitenutaAcconto;CodiceNonSoggette\n";

class AnnullaTest : public ::testing::Test {
 protected:
  void importa(Elenco elenco, const std::string& byte) {
    const std::vector<std::string> contro =
        banco.importa(elenco, byte, "g" + std::to_string(++file_) + ".csv");
    ASSERT_THAT(contro, IsEmpty());
    lotto = storico(*banco, std::nullopt).back().id;
  }
  void compensi(const std::string& righe) { importa(Elenco::Compensi, kColonne + righe); }
  std::vector<std::string> rifiuti(std::int32_t quale) {
    std::vector<std::string> testi;
    for (const Finding& rifiuto : banco.annulla(quale).refusals) testi.push_back(rifiuto.text);
    return testi;
  }

  Banco banco{prova::riempito()};
  std::int32_t lotto = 0;

 private:
  int file_ = 0;
};

TEST_F(AnnullaTest, TheDatabaseIsAsBeforeTheBatch) {
  banco->Execute("UPDATE ContoIndividuale SET SommeNonSoggette = NULL WHERE Anno = 2016");
  const auto prima = banco.contenuto();
  banco.richiesta.diversi = SuDiversi::Aggiorna;
  compensi("P1;A;2017-03-20;1/2017;1100;220;\nP1;M;2012-01-20;5;100;20;7\nP2;A;2016-09-20;8;100;20;\n");
  ASSERT_NE(banco.contenuto(), prima);
  const Result<Annullato> prova = banco.annulla(lotto, true);
  ASSERT_TRUE(prova);
  ASSERT_NE(banco.contenuto(), prima);
  const Result<Annullato> esito = banco.annulla(lotto);
  ASSERT_TRUE(esito) << esito.refusals[0].text;
  EXPECT_EQ(banco.contenuto(), prima);
  EXPECT_TRUE(storico(*banco, 1).back().annullato);
  EXPECT_EQ(
      Banco::stati(banco.piano(Elenco::Compensi, std::string(kColonne) + "P2;A;2016-09-20;8;100;20;\n")),
      "nuovo");
}

TEST_F(AnnullaTest, CompaniesAndPayeesGoToo) {
  Banco vuoto;
  const auto prima = vuoto.contenuto();
  ASSERT_THAT(vuoto.importa(Elenco::Aziende, prova::kAziende), IsEmpty());
  const auto conAzienda = vuoto.contenuto();
  ASSERT_THAT(
      vuoto.importa(
          Elenco::Percipienti,
          "Codice;CodiceFiscale;Cognome;Comune;Nazione;NonResidente;EntePrevidenziale;"
          "CodiceFiscaleEnte;CategoriaEnte\nE1;07643520567;Uno;Springfield;USA;S;Mio;02159000583;Z\n"),
      IsEmpty());
  EXPECT_FALSE(vuoto.annulla(1)) << "the company has payees";
  ASSERT_TRUE(vuoto.annulla(2));
  EXPECT_EQ(vuoto.contenuto(), conAzienda);
  ASSERT_TRUE(vuoto.annulla(1));
  EXPECT_EQ(vuoto.contenuto(), prima);
}

TEST_F(AnnullaTest, UpdatesOfPayeesAndCompaniesAreTakenBackExactly) {
  banco->Execute("UPDATE Anagrafica SET EMailInternet = '' WHERE Indirizzo = 'Via Garibaldi 7'");
  const auto prima = banco.contenuto();
  banco.richiesta.diversi = SuDiversi::Aggiorna;
  importa(Elenco::Percipienti,
          "Codice;CodiceFiscale;Cognome;Nome;Email;Cap\nP1;RSSMRA80A01H501U;Rossi;Mario;x@y.example;-\n");
  ASSERT_NE(banco.contenuto(), prima);
  ASSERT_TRUE(banco.annulla(lotto));
  EXPECT_EQ(banco.contenuto(), prima);
}

TEST_F(AnnullaTest, WhatWasChangedSinceIsListedAndNothingIsUndone) {
  compensi("P1;A;2017-09-20;3;100;20;\nP1;A;2017-10-20;4;100;20;\n");
  banco->Execute("UPDATE Compenso SET NumeroDocumento = '3bis' WHERE NumeroDocumento = '3'");
  banco->Execute("DELETE FROM Compenso WHERE NumeroDocumento = '4'");
  const auto prima = banco.contenuto();
  const auto testi = rifiuti(lotto);
  ASSERT_EQ(testi.size(), 3U);
  EXPECT_EQ(testi[0],
            "Modificato dopo l'importazione: il compenso di P1 Rossi Mario, causale A, del 20/09/2017, "
            "documento 3.");
  EXPECT_EQ(testi[1],
            "Eliminato dopo l'importazione: il compenso di P1 Rossi Mario, causale A, del 20/10/2017, "
            "documento 4.");
  EXPECT_EQ(testi[2],
            "Corretto a mano dopo l'importazione: il conto di P1 Rossi Mario, causale A, anno 2017.");
  EXPECT_EQ(banco.contenuto(), prima);
}

TEST_F(AnnullaTest, AnAccountCorrectedSinceIsNotGivenUp) {
  compensi("P1;A;2017-09-20;3;100;20;\n");
  banco->Execute("UPDATE ContoIndividuale SET RitenutaAcconto = 321 WHERE Anno = 2017");
  EXPECT_THAT(rifiuti(lotto), ::testing::ElementsAre(HasSubstr("Corretto a mano")));
}

TEST_F(AnnullaTest, PayeesStayWhileSomethingNamesThem) {
  EXPECT_THAT(rifiuti(2), ::testing::Contains("Non si può togliere il percipiente P1 Rossi Mario: ne "
                                              "dipendono 2 compensi, 1 conto."));
  ASSERT_TRUE(banco.annulla(3));
  EXPECT_TRUE(banco.annulla(2));
}

TEST_F(AnnullaTest, APayeeIsNamedOnceAndAsTheBatchWroteItWhereItIsGone) {
  importa(Elenco::Percipienti, "Codice;CodiceFiscale;Cognome\nP9;07643520567;Nove S.r.l.\n");
  banco->Execute("DELETE FROM Percipiente WHERE Codice = 'P9'");
  banco->Execute("DELETE FROM Anagrafica WHERE CodiceFiscale = '07643520567'");
  EXPECT_THAT(rifiuti(lotto),
              ::testing::ElementsAre("Eliminato dopo l'importazione: il percipiente P9 Nove S.r.l."));
}

TEST_F(AnnullaTest, WhatALaterBatchHasWrittenTooNamesThatBatch) {
  compensi("P1;M;2017-09-20;3;100;20;\n");
  const std::int32_t primo = lotto;
  banco.richiesta.diversi = SuDiversi::Aggiorna;
  compensi("P1;M;2017-09-20;3;150;30;\n");
  EXPECT_THAT(rifiuti(primo), ::testing::Contains(HasSubstr("Modificato dopo l'importazione: il compenso")));
  banco->Execute(
      "UPDATE Compenso SET OnorarioProvvigioni = 100, RitenutaAcconto = 20 WHERE NumeroDocumento = '3'");
  banco->Execute(
      "UPDATE ContoIndividuale SET OnorarioProvvigioni = 100, RitenutaAcconto = 20"
      " WHERE IDCausalePagamento = 11");
  EXPECT_THAT(rifiuti(primo),
              ::testing::ElementsAre("Scritto anche dall'importazione " + std::to_string(lotto) +
                                     ", che va annullata prima: il compenso di P1 Rossi Mario, causale M, "
                                     "del 20/09/2017, documento 3."));
}

TEST_F(AnnullaTest, CountsRecordsAsAClerkDoes) {
  banco.richiesta.diversi = SuDiversi::Aggiorna;
  compensi("P1;A;2017-03-20;1/2017;1100;220;\nP2;A;2016-09-20;8;100;20;\nP2;A;2016-10-20;9;100;20;\n");
  const Result<Annullato> esito = banco.annulla(lotto, true);
  ASSERT_TRUE(esito);
  EXPECT_EQ(esito->tolti, 2U);
  EXPECT_EQ(esito->riportati, 1U);
  importa(Elenco::Percipienti,
          "Codice;CodiceFiscale;Cognome;Nome;Email\nP1;RSSMRA80A01H501U;Rossi;Mario;x@y.example\n"
          "P9;07643520567;Nove S.r.l.;;\n");
  const Result<Annullato> percipienti = banco.annulla(lotto, true);
  ASSERT_TRUE(percipienti);
  EXPECT_EQ(percipienti->tolti, 1U);
  EXPECT_EQ(percipienti->riportati, 1U);
}

TEST_F(AnnullaTest, AnAccountOfTheBatchStaysWithZerosWhereMoreHangsOnIt) {
  compensi("P1;M;2017-09-20;3;100;20;\n");
  banco->Execute(
      "INSERT INTO ContoIndividualeDatiAggiuntivi (IDAnagrafica, IDCausalePagamento, Anno, IDAzienda,"
      " RitenuteSospese) SELECT IDAnagrafica, 11, 2017, 1, 5 FROM Percipiente WHERE Codice = 'P1'");
  ASSERT_TRUE(banco.annulla(lotto));
  EXPECT_EQ(banco.uno("SELECT OnorarioProvvigioni FROM ContoIndividuale WHERE IDCausalePagamento = 11"), "0");
}

TEST_F(AnnullaTest, BatchesOfOneAccountAreTakenBackInAnyOrder) {
  compensi("P1;M;2012-09-20;3;100;20;\n");
  const std::int32_t primo = lotto;
  compensi("P1;M;2012-10-20;4;50;10;\n");
  ASSERT_TRUE(banco.annulla(primo));
  EXPECT_EQ(banco.uno("SELECT OnorarioProvvigioni FROM ContoIndividuale WHERE IDCausalePagamento = 11"),
            "50");
  EXPECT_EQ(banco.uno("SELECT COUNT(*) FROM PeriodoIva WHERE Anno = 2012"), "1")
      << "its payments need the year";
  ASSERT_TRUE(banco.annulla(lotto));
  EXPECT_EQ(banco.uno("SELECT OnorarioProvvigioni FROM ContoIndividuale WHERE IDCausalePagamento = 11"), "0");
}

TEST_F(AnnullaTest, AnUnknownBatchAndOneTwiceAreRefused) {
  EXPECT_THAT(rifiuti(99), ::testing::ElementsAre("L'importazione 99 non esiste."));
  ASSERT_TRUE(banco.annulla(3));
  EXPECT_THAT(rifiuti(3), ::testing::ElementsAre("L'importazione 3 è già annullata."));
}

}  // namespace
}  // namespace cu::intake
