// What a row of payments leaves as the database has it, and which payment a row means.

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

class AggiornaCompensi : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_THAT(
        banco.importa(Elenco::Compensi,
                      "CodicePercipiente;Causale;DataPagamento;NumeroDocumento;DataDocumento;Onorario;"
                      "QuotaNonSoggetta;SommeNonSoggette;SommeRegimeConvenzionale;RitenutaAcconto;"
                      "ContributoPrevidenziale;ContributoPercipiente;Riferimento\n"
                      "P1;M;2017-11-20;9;2017-11-15;1000;500;2;3;100;30;10;R-1\n"
                      "P1;N;2017-11-20;;;400;;;;80;;;\n"),
        IsEmpty());
  }
  Piano piano(const std::string& colonne, const std::string& righe) {
    return banco.piano(Elenco::Compensi, "CodicePercipiente;Causale;DataPagamento;" + colonne + "\n" + righe);
  }
  // The payment R-1 after a row that is written over it, "9 15/11/2017 1000 500 2 3 100 0 30 10".
  std::string dopo(const std::string& colonne, const std::string& valori) {
    banco.richiesta.diversi = SuDiversi::Aggiorna;
    const std::vector<std::string> contro =
        banco.importa(Elenco::Compensi, "CodicePercipiente;Causale;DataPagamento;Riferimento;" + colonne +
                                            "\nP1;M;2017-11-20;R-1;" + valori + "\n");
    if (!contro.empty()) return contro.front();
    const test::Righe righe(*banco, "SELECT * FROM Compenso WHERE IDCompenso = 4");
    std::string testo;
    for (const char* colonna :
         {"NumeroDocumento", "DataDocumento", "OnorarioProvvigioni", "QuotaProvvigioniNonSoggette",
          "SommeNonSoggette", "SommeNonSoggetteRegConv", "RitenutaAcconto", "RitenutaImposta",
          "ContributoPrevidenziale", "RitenutaPrevidenziale13"}) {
      testo += (testo.empty() ? "" : " ") + (righe.isNull(0, colonna) ? "-" : righe.text(0, colonna));
    }
    return testo;
  }

  Banco banco{prova::riempito()};
};

TEST_F(AggiornaCompensi, LeavesWhatTheRowDoesNotGive) {
  EXPECT_EQ(dopo("Onorario", "1200"), "9 15/11/2017 1200 500 2 3 100 0 30 10");
  EXPECT_EQ(dopo("Onorario;RitenutaAcconto", ";140"), "2: C01: manca l'importo") << "one amount is required";
  EXPECT_EQ(dopo("Onorario;RitenutaAcconto;NumeroDocumento;DataDocumento", "1200;140;;"),
            "9 15/11/2017 1200 500 2 3 140 0 30 10");
  EXPECT_EQ(banco.quante("Compenso"), 5);
}

TEST_F(AggiornaCompensi, EmptiesWhatTheRowHasAHyphenFor) {
  EXPECT_EQ(
      dopo("Onorario;SommeNonSoggette;NumeroDocumento;DataDocumento;ContributoPercipiente", "1000;-;-;-;-"),
      "- - 1000 500 0 3 100 0 30 0");
}

TEST_F(AggiornaCompensi, DerivesFromTheRowAlone) {
  EXPECT_EQ(dopo("Onorario;QuotaNonSoggetta;AliquotaRitenuta", "1500;500;20"),
            "9 15/11/2017 1500 500 2 3 200 0 30 10");
  EXPECT_EQ(dopo("SommeNonSoggette;AliquotaRitenuta", "7;20"), "9 15/11/2017 1500 500 7 3 200 0 30 10")
      << "without a fee no tax follows";
  EXPECT_EQ(dopo("Onorario;ContributoPercipiente", "1500;12"), "9 15/11/2017 1500 500 7 3 200 0 30 12");
}

TEST_F(AggiornaCompensi, ChecksThePaymentAsItWouldBe) {
  banco.richiesta.diversi = SuDiversi::Aggiorna;
  EXPECT_THAT(Banco::messaggi(piano("NumeroDocumento;Onorario", "P1;M;2017-11-20;9;700\n")),
              Contains("2: R01 RitenutaAcconto: la ritenuta non è il 20 % dell'imponibile: 100,00 invece di "
                       "40,00"));
  EXPECT_THAT(Banco::messaggi(piano("NumeroDocumento;Onorario", "P1;M;2017-11-20;9;400\n")),
              Contains("2: R13: la quota non soggetta 500,00 supera il compenso 400,00"));
  EXPECT_THAT(Banco::messaggi(piano("NumeroDocumento;Onorario;Lordo", "P1;M;2017-11-20;9;1000;1005\n")),
              ElementsAre("2: R03: già presente, uguale"));
}

TEST_F(AggiornaCompensi, ComparesOnlyWhatTheRowGives) {
  EXPECT_EQ(Banco::stati(piano("Onorario;Riferimento", "P1;M;2017-11-20;1000;R-1\n")), "uguale");
  EXPECT_EQ(Banco::stati(piano("NumeroDocumento;Onorario", "P1;M;2017-11-20;9;1000\n")), "uguale");
  EXPECT_EQ(Banco::stati(piano("NumeroDocumento;DataDocumento;Onorario", "P1;M;2017-11-20;9;;1000\n")),
            "uguale");
  EXPECT_EQ(
      Banco::stati(piano("NumeroDocumento;DataDocumento;Onorario", "P1;M;2017-11-20;9;2017-11-16;1000\n")),
      "nuovo");
  EXPECT_EQ(Banco::stati(piano("Onorario", "P1;N;2017-11-20;400\nP1;N;2017-11-20;400\n")), "uguale nuovo");
  EXPECT_EQ(Banco::stati(piano("Onorario;RitenutaAcconto", "P1;N;2017-11-20;400;0\n")), "nuovo");
  const Piano diverso = piano("NumeroDocumento;Onorario;SommeNonSoggette", "P1;M;2017-11-20;9;1000;0\n");
  EXPECT_EQ(Banco::stati(diverso), "diverso");
  EXPECT_THAT(Banco::messaggi(diverso),
              ElementsAre("2: R04: già presente, diverso: somme non soggette in archivio 2,00"));
}

TEST_F(AggiornaCompensi, ARowThatGivesLessOfANewPaymentContradictsTheOther) {
  const Piano suo = piano("NumeroDocumento;Onorario;RitenutaAcconto",
                          "P1;A;2017-09-20;3;100;20\nP1;A;2017-09-20;3;100;20\nP1;A;2017-09-20;3;100;\n");
  EXPECT_EQ(Banco::stati(suo), "nuovo uguale errore");
  EXPECT_THAT(Banco::messaggi(suo),
              ElementsAre("3: R03: già presente, uguale, nella riga 2",
                          "4: R04: lo stesso documento è, con altri dati, nella riga 2"));
}

TEST_F(AggiornaCompensi, ARowTwiceOfANewAccountWithACodeIsWrittenOnce) {
  banco.richiesta.diversi = SuDiversi::Aggiorna;
  const std::string colonne = "NumeroDocumento;Onorario;SommeNonSoggette;CodiceNonSoggette";
  EXPECT_EQ(Banco::stati(piano(colonne, "P1;A;2014-09-20;3;100;5;7\nP1;A;2014-09-20;3;100;5;7\n")),
            "nuovo uguale");
  EXPECT_EQ(Banco::stati(piano(colonne, "P1;A;2014-09-20;3;100;5;7\nP1;A;2014-09-20;3;100;5;6\n")),
            "nuovo errore");
}

TEST_F(AggiornaCompensi, ReferencesOfAFileArePaymentsEach) {
  const std::string righe =
      "P1;A;2014-09-20;3;100;X-1\nP1;A;2014-09-20;3;100;X-2\nP1;A;2014-09-20;3;60;X-3\n";
  EXPECT_EQ(Banco::stati(piano("NumeroDocumento;Onorario;Riferimento", righe)), "nuovo nuovo nuovo");
  for (const char* id : {"11", "12"}) {
    banco->Execute(
        std::string("INSERT INTO Compenso (IDCompenso, IDAzienda, IDAnagrafica, IDCausalePagamento,"
                    " DataPagamento, NumeroDocumento, OnorarioProvvigioni) SELECT ") +
        id + ", 1, IDAnagrafica, 1, '20140920', '3', 100 FROM Percipiente WHERE Codice = 'P1'");
  }
  EXPECT_EQ(Banco::stati(piano("NumeroDocumento;Onorario;Riferimento", righe)), "uguale uguale nuovo");
  EXPECT_THAT(Banco::messaggi(piano("NumeroDocumento;Onorario", "P1;A;2014-09-20;3;60\n")),
              ElementsAre("2: R04: lo stesso documento è, con altri dati, in archivio più volte"));
}

class AggiornaCodiceNonSoggette : public AggiornaCompensi {
 protected:
  void SetUp() override {
    importa("P1;M;2014-05-20;1;100;5;7\n");
    ASSERT_EQ(codice(), "7");
    banco.richiesta.diversi = SuDiversi::Aggiorna;
  }
  void importa(const std::string& righe) {
    ASSERT_THAT(banco.importa(Elenco::Compensi, "CodicePercipiente;Causale;" + kColonne + "\n" + righe),
                IsEmpty());
  }
  std::string codice() {
    return banco.uno("SELECT IDCodicePerNonSoggetti FROM ContoIndividualeDatiAggiuntivi WHERE Anno = 2014");
  }
  Piano piano(const std::string& righe) {
    return banco.piano(Elenco::Compensi, "CodicePercipiente;Causale;" + kColonne + "\n" + righe);
  }
  inline static const std::string kColonne =
      "DataPagamento;NumeroDocumento;Onorario;SommeNonSoggette;CodiceNonSoggette";
};

TEST_F(AggiornaCodiceNonSoggette, ANewOneOfTheOnlyPaymentReplacesIt) {
  importa("P1;M;2014-05-20;1;100;5;6\n");
  EXPECT_EQ(codice(), "6");
  EXPECT_EQ(Banco::stati(piano("P1;M;2014-05-20;1;100;5;6\nP1;M;2014-05-20;1;100;5;6\n")), "uguale uguale");
}

TEST_F(AggiornaCodiceNonSoggette, AHyphenEmptiesIt) {
  const auto prima = banco.contenuto();
  importa("P1;M;2014-05-20;1;100;5;-\n");
  EXPECT_EQ(codice(), "");
  EXPECT_EQ(banco.quante("ContoIndividualeDatiAggiuntivi"), 1);
  EXPECT_EQ(Banco::stati(piano("P1;M;2014-05-20;1;100;5;-\n")), "uguale");
  ASSERT_TRUE(banco.annulla(storico(*banco, 1).back().id));
  EXPECT_EQ(banco.contenuto(), prima);
}

TEST_F(AggiornaCodiceNonSoggette, OfSeveralPaymentsAllHaveToGiveTheNewOne) {
  importa("P1;M;2014-06-20;2;100;5;\n");
  const Piano una = piano("P1;M;2014-05-20;1;100;5;6\n");
  EXPECT_EQ(Banco::stati(una), "errore");
  EXPECT_THAT(Banco::messaggi(una), Contains(HasSubstr("A03: ")));
  EXPECT_EQ(Banco::stati(piano("P1;M;2014-05-20;1;100;5;6\nP1;M;2014-07-20;3;100;5;6\n")), "errore errore");
  EXPECT_EQ(Banco::stati(piano("P1;M;2014-05-20;1;100;5;6\nP1;M;2014-06-20;2;100;5;8\n")), "errore errore");
  importa("P1;M;2014-05-20;1;100;5;6\nP1;M;2014-06-20;2;100;5;6\n");
  EXPECT_EQ(codice(), "6");
  importa("P1;M;2014-07-20;3;100;5;-\n");
  EXPECT_EQ(codice(), "6") << "a new payment has none to empty";
}

}  // namespace
}  // namespace cu::intake
