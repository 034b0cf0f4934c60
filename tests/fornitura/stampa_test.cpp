#include "fornitura/stampa.h"

#include <gmock/gmock.h>

#include "fornitura/carico.h"
#include "fornitura/corsa.h"
#include "fornitura/fornitura_prova.h"

namespace cu::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

class Print : public OperazioniProva {
 protected:
  fornitura::RichiestaReport conti() {
    return {.modo = ModoCorsa::ContiIndividuali,
            .tipoOggetto = 246,
            .report = {"ContoIndividuale.rpt", 1},
            .anno = "2016",
            .adAnno = std::nullopt,
            .estremi = {},
            .guasto = [this](const std::string& testo) { guasti.push_back(testo); }};
  }
  fornitura::RichiestaModuli moduli() const {
    return {.stampa = {.dati = {.modo = ModoCorsa::CU, .report = "Modulo.rpt", .filtri = anno("2016")},
                       .tipoOggetto = 342,
                       .definizione = 4,
                       .uscita = Uscita::File,
                       .percorso = {},
                       .guasto = {}},
            .sCodFisc = "01234567890",
            .cartella = "/cu",
            .tipo = Comunicazione::Ordinaria,
            .intermediari = false,
            .dataFirma = "05/03/2017",
            .cumulativa = false};
  }
  void qualcosa() {
    database.main.answerContaining("FROM RepContoIndividuale", Table({"IDAzienda"}, {{whole(1)}}));
  }
  std::vector<std::string> guasti;
};

TEST_F(Print, AReportGoesWhereItsRequestSays) {
  qualcosa();
  EXPECT_TRUE(fornitura::stampaReport(intorno(), conti()));
  EXPECT_THAT(factory.printing.calls,
              ElementsAre("report.create", "report.session 12 1 1", "report.connection", "dialog.connection",
                          "dialog.session 12", "report.objectType 246", HasSubstr("report.formula "),
                          "report.file ContoIndividuale.rpt", "report.definition 1", "dialog.definition 1",
                          "report.run 1", "report.release"));
  EXPECT_THAT(guasti, IsEmpty());
}

TEST_F(Print, NothingToPrintIsRefused) {
  const auto esito = fornitura::stampaReport(intorno(), conti());
  EXPECT_THAT(codici(esito.refusals), ElementsAre("nulla-da-stampare @"));
  EXPECT_EQ(esito.refusals[0].text, "Nessun elemento da stampare");
  EXPECT_THAT(factory.printing.calls, IsEmpty());
}

TEST_F(Print, ATestThatFailsIsReportedAndCountsAsNothing) {
  database.main.refuseContaining("FROM RepContoIndividuale");
  EXPECT_FALSE(fornitura::stampaReport(intorno(), conti()));
  EXPECT_THAT(guasti, ElementsAre("Il database ha rifiutato l'istruzione."));
}

TEST_F(Print, AModeWithoutATestPasses) {
  stampa::Dati dati;
  dati.modo = ModoCorsa::Altro;
  EXPECT_TRUE(fornitura::controllaStampa(intorno(), dati, {}));
  EXPECT_THAT(database.main.sent, IsEmpty());
}

TEST_F(Print, AYearWithoutAccountsIsRefused) {
  fornitura::RichiestaReport richiesta = conti();
  richiesta.adAnno = "2012";
  const auto esito = fornitura::stampaReport(intorno(), richiesta);
  EXPECT_THAT(codici(esito.refusals), ElementsAre("anno-senza-conti @KRNCboEsCont(1)"));
}

TEST_F(Print, ABoundThatIsFoundHasItsFirstNameRead) {
  qualcosa();
  database.own.answerContaining("FROM RepPercipienteCD", Table({"IDAnagrafica", "Codice", "Anagrafica"},
                                                               {{whole(7), text("P001"), text("Rossi")}}));
  fornitura::RichiestaReport richiesta = conti();
  richiesta.estremi.daPercipiente = "p001";
  EXPECT_TRUE(fornitura::stampaReport(intorno(), richiesta));
  EXPECT_THAT(database.main.texts(), Contains(HasSubstr("IDAnagrafica = 7")));
  EXPECT_THAT(factory.printing.arguments("report.formula"), ElementsAre(HasSubstr("'P001'")));
}

TEST_F(Print, TheBranchsDefaultIsZeroWhereItCannotBeRead) {
  EXPECT_EQ(fornitura::fnFilialePredefinita(intorno(), 246), 0);
  database.main.answerContaining("DefaultFilialePerTipoOggetto",
                                 Table({"IDDefaultFilialePerTipoOggetto", "IDTipoOggetto", "IDFiliale"},
                                       {{whole(9), whole(246), whole(1)}}));
  EXPECT_EQ(fornitura::fnFilialePredefinita(intorno(), 246), 9);
  database.main.refuseContaining("DefaultFilialePerTipoOggetto");
  EXPECT_EQ(fornitura::fnFilialePredefinita(intorno(), 246), 0);
}

TEST_F(Print, FormsAreOneFileALineOrOneForAll) {
  ASSERT_TRUE(fornitura::carica(intorno(), compensi, anno("2016")));
  fornitura::RichiestaModuli richiesta = moduli();
  EXPECT_TRUE(fornitura::stampaModuli(intorno(), compensi, richiesta));
  EXPECT_THAT(factory.printing.arguments("report.outputPath"), SizeIs(2));
  EXPECT_THAT(avanzamento.works, Not(Contains("Preparazione dei moduli")));
  factory.printing.calls.clear();
  avanzamento.works.clear();
  richiesta.cumulativa = true;
  EXPECT_TRUE(fornitura::stampaModuli(intorno(), compensi, richiesta));
  EXPECT_THAT(avanzamento.works, ElementsAre("Preparazione dei moduli", "Stampa dei moduli"))
      << "the print of all of them begins when its lines are there";
  EXPECT_THAT(factory.printing.arguments("report.outputPath"),
              ElementsAre("/cu/CUR_01234567890_2016_05032017_1030.cur"));
}

TEST_F(Print, AnInterruptionBetweenTwoFormsKeepsTheFirstAndReturnsTheOthers) {
  ASSERT_TRUE(fornitura::carica(intorno(), compensi, anno("2016")));
  avanzamento.interrupts = [this] { return !factory.printing.arguments("report.outputPath").empty(); };
  const auto esito = fornitura::stampaModuli(intorno(), compensi, moduli());
  EXPECT_TRUE(esito);
  EXPECT_THAT(factory.printing.arguments("report.outputPath"), SizeIs(1));
  EXPECT_EQ(esito->richiesti, 2U);
  ASSERT_THAT(esito->nonStampati, SizeIs(1));
  Recordset& righe = compensi.rsCompensi();
  righe.MoveTo(2);
  EXPECT_EQ(esito->nonStampati[0].percipiente, righe.Get("AnagraficaPerc").toText());
  EXPECT_EQ(esito->nonStampati[0].codiceFiscale, righe.Get("CodiceFiscale").toText());
}

TEST_F(Print, OneFileForAllIsNotBegunWhenItsLinesAreInterrupted) {
  fornitura::RichiestaModuli richiesta = moduli();
  richiesta.cumulativa = true;
  for (const char* const fase : {"Preparazione dei moduli", "Stampa dei moduli"}) {
    ASSERT_TRUE(fornitura::carica(intorno(), compensi, anno("2016")));
    avanzamento.interrupts = [this, fase] { return avanzamento.works.back() == fase; };
    const auto esito = fornitura::stampaModuli(intorno(), compensi, richiesta);
    EXPECT_TRUE(esito->interrotta) << fase;
    EXPECT_THAT(factory.printing.arguments("report.outputPath"), IsEmpty());
    EXPECT_THAT(esito->nonStampati, IsEmpty());
  }
}

TEST_F(Print, OneFileForAllThatIsInterruptedIsReturned) {
  ASSERT_TRUE(fornitura::carica(intorno(), compensi, anno("2016")));
  fornitura::RichiestaModuli richiesta = moduli();
  richiesta.cumulativa = true;
  richiesta.stampa.guasto = [this](const std::string& testo) { guasti.push_back(testo); };
  EXPECT_FALSE(fornitura::stampaModuli(intorno(), compensi, richiesta)->interrotta);
  factory.printing.interrupted = "report.run";
  const auto esito = fornitura::stampaModuli(intorno(), compensi, richiesta);
  EXPECT_TRUE(esito);
  EXPECT_TRUE(esito->interrotta);
  EXPECT_THAT(guasti, IsEmpty());
  EXPECT_EQ(avanzamento.pointers.back(), kPointerDefault);
}

TEST_F(Print, TheProgressOfTheFormsCountsTheChosenLines) {
  ASSERT_TRUE(fornitura::carica(intorno(), compensi, anno("2016")));
  compensi.rsCompensi().MoveFirst();
  compensi.rsCompensi().Set("Selezionato", Value::ofFlag(false));
  compensi.rsCompensi().Update();
  avanzamento.progresses.clear();
  EXPECT_TRUE(fornitura::stampaModuli(intorno(), compensi, moduli()));
  ASSERT_THAT(avanzamento.progresses, SizeIs(1));
  EXPECT_EQ(avanzamento.progresses[0].done, 1U);
  EXPECT_EQ(avanzamento.progresses[0].total, 1U);
}

TEST_F(Print, TheUsersLinesAreTakenOut) {
  fornitura::svuotaRicorsione(intorno());
  EXPECT_THAT(eseguite(),
              ElementsAre("DELETE FROM TabellaRicorsione2 WHERE IDUtente = 12 AND IDFunzione = 342"));
}

}  // namespace
}  // namespace cu::test
