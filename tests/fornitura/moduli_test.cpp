// The forms of a run that are laid out while the rows of later ones are read.

#include <gmock/gmock.h>

#include "fornitura/carico.h"
#include "fornitura/fornitura_prova.h"
#include "fornitura/stampa.h"

namespace cu::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

class ModuliInAnticipo : public OperazioniProva {
 protected:
  void SetUp() override {
    ASSERT_TRUE(fornitura::carica(intorno(), compensi, anno("2016")));
    ASSERT_EQ(compensi.rsCompensi().RecordCount(), 2U);
    factory.printing.ahead = 4;
  }
  fornitura::RichiestaModuli moduli() {
    return {.stampa = {.dati = {.modo = ModoCorsa::CU, .report = "Modulo.rpt", .filtri = anno("2016")},
                       .tipoOggetto = 342,
                       .definizione = 4,
                       .uscita = Uscita::File,
                       .percorso = {},
                       .guasto =
                           [this](const std::string& testo) {
                             guasti.push_back(testo);
                             // Files of one minute may have one name.
                             if (unGuastoSolo) factory.printing.failures.clear();
                           }},
            .sCodFisc = "01234567890",
            .cartella = "/cu",
            .tipo = Comunicazione::Ordinaria,
            .intermediari = false,
            .dataFirma = "05/03/2017",
            .cumulativa = false};
  }
  // The begun and the finished prints, in order, and the paths of the files.
  std::vector<std::string> stampe() const {
    std::vector<std::string> trovate;
    for (const std::string& chiamata : factory.printing.calls) {
      if (chiamata.starts_with("report.begin") || chiamata.starts_with("report.finish"))
        trovate.push_back(chiamata.substr(0, chiamata.find(' ')));
    }
    return trovate;
  }
  std::string file(std::size_t quale) const {
    return factory.printing.arguments("report.outputPath").at(quale);
  }
  std::vector<std::string> guasti;
  bool unGuastoSolo = false;
};

TEST_F(ModuliInAnticipo, AreBegunBeforeTheFirstIsFinished) {
  EXPECT_TRUE(fornitura::stampaModuli(intorno(), compensi, moduli()));
  EXPECT_THAT(stampe(), ElementsAre("report.begin", "report.begin", "report.finish", "report.finish"));
}

TEST_F(ModuliInAnticipo, AreNotBegunFurtherAheadThanTheRunAllows) {
  factory.printing.ahead = 1;
  EXPECT_TRUE(fornitura::stampaModuli(intorno(), compensi, moduli()));
  EXPECT_THAT(stampe(), ElementsAre("report.begin", "report.finish", "report.begin", "report.finish"));
}

// Statements, files, pointers and steps are those of a run one by one.
TEST_F(ModuliInAnticipo, LookAsOneByOne) {
  const auto corsa = [this](std::size_t anticipo) {
    factory.printing.ahead = anticipo;
    factory.printing.calls.clear();
    avanzamento.progresses.clear();
    avanzamento.pointers.clear();
    const std::size_t prima = eseguite().size();
    EXPECT_TRUE(fornitura::stampaModuli(intorno(), compensi, moduli()));
    std::vector<std::string> tutto = eseguite();
    tutto.erase(tutto.begin(), tutto.begin() + static_cast<std::ptrdiff_t>(prima));
    for (const std::string& nome : factory.printing.arguments("report.outputPath")) tutto.push_back(nome);
    for (const int puntatore : avanzamento.pointers) tutto.push_back(std::to_string(puntatore));
    for (const auto& passo : avanzamento.progresses)
      tutto.push_back(passo.what + std::to_string(passo.done) + "/" + std::to_string(passo.total));
    return tutto;
  };
  const auto unoAllaVolta = corsa(0);
  EXPECT_EQ(corsa(1), unoAllaVolta);
  EXPECT_EQ(corsa(4), unoAllaVolta);
  compensi.rsCompensi().MoveTo(2);
  compensi.rsCompensi().Set("Selezionato", Value::ofFlag(false));
  compensi.rsCompensi().Update();
  const auto unaSola = corsa(0);
  EXPECT_NE(unaSola, unoAllaVolta);
  EXPECT_EQ(corsa(4), unaSola) << "the last line is not selected";
}

TEST_F(ModuliInAnticipo, AFailureIsReportedInItsPlaceAndTheOthersFollow) {
  EXPECT_TRUE(fornitura::stampaModuli(intorno(), compensi, moduli()));
  const std::string primo = file(0);
  factory.printing.calls.clear();
  unGuastoSolo = true;
  factory.printing.failures.emplace("report.finish " + primo,
                                    Error(kErrorDeviceIo, "Il disco non risponde."));
  avanzamento.progresses.clear();
  const auto esito = fornitura::stampaModuli(intorno(), compensi, moduli());
  EXPECT_TRUE(esito);
  EXPECT_THAT(guasti, ElementsAre("Il disco non risponde."));
  EXPECT_EQ(esito->richiesti, 2U);
  EXPECT_THAT(stampe(), ElementsAre("report.begin", "report.begin", "report.finish", "report.finish"));
  EXPECT_THAT(esito->nonStampati, IsEmpty());
}

TEST_F(ModuliInAnticipo, AFailureOfTheRowsIsReportedLikeOneOfTheLayout) {
  factory.printing.failures.emplace("report.begin", Error(kErrorDeviceIo, "La vista non risponde."));
  EXPECT_TRUE(fornitura::stampaModuli(intorno(), compensi, moduli()));
  EXPECT_THAT(guasti, ElementsAre("La vista non risponde.", "La vista non risponde."));
  EXPECT_THAT(avanzamento.pointers.back(), kPointerDefault);
}

TEST_F(ModuliInAnticipo, AGivenUpPrintIsNotReported) {
  factory.printing.failures.emplace("report.begin", Error(kErrorPrintGivenUp, "annullata"));
  EXPECT_TRUE(fornitura::stampaModuli(intorno(), compensi, moduli()));
  EXPECT_THAT(guasti, IsEmpty());
}

TEST_F(ModuliInAnticipo, AnInterruptionMakesNothingOfWhatWasBegun) {
  avanzamento.interrupts = [this] { return avanzamento.progresses.back().done == 2; };
  avanzamento.progresses.clear();
  const auto esito = fornitura::stampaModuli(intorno(), compensi, moduli());
  EXPECT_THAT(stampe(), ElementsAre("report.begin", "report.begin", "report.finish"));
  EXPECT_EQ(esito->richiesti, 2U);
  ASSERT_THAT(esito->nonStampati, SizeIs(1));
  Recordset& righe = compensi.rsCompensi();
  righe.MoveTo(2);
  EXPECT_EQ(esito->nonStampati[0].codiceFiscale, righe.Get("CodiceFiscale").toText());
}

TEST_F(ModuliInAnticipo, AFailingStatementEndsTheRunBehindTheFormsBegunBefore) {
  const std::size_t prima = eseguite().size();
  EXPECT_TRUE(fornitura::stampaModuli(intorno(), compensi, moduli()));
  const std::string ultima = eseguite().back();
  ASSERT_GT(eseguite().size(), prima);
  ASSERT_THAT(ultima, StartsWith("INSERT INTO TabellaRicorsione2"));
  factory.printing.calls.clear();
  avanzamento.progresses.clear();
  database.internal.refuseContaining(ultima);
  EXPECT_THROW(static_cast<void>(fornitura::stampaModuli(intorno(), compensi, moduli())), DatabaseError);
  EXPECT_THAT(stampe(), ElementsAre("report.begin", "report.finish"));
  EXPECT_THAT(avanzamento.progresses, SizeIs(2)) << "the failing line was announced, as one by one";
}

TEST_F(ModuliInAnticipo, OneFileForAllHasNothingToBegin) {
  fornitura::RichiestaModuli insieme = moduli();
  insieme.cumulativa = true;
  EXPECT_TRUE(fornitura::stampaModuli(intorno(), compensi, insieme));
  EXPECT_THAT(stampe(), IsEmpty());
  EXPECT_THAT(factory.printing.arguments("report.run"), ElementsAre("3"));
}

}  // namespace
}  // namespace cu::test
