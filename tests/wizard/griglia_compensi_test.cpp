#include <gtest/gtest.h>

#include <string_view>

#include "controls/form.h"
#include "controls/grid.h"
#include "support/fake_connection.h"
#include "support/scripted_front_end.h"
#include "support/work_table.h"
#include "wizard/griglia_compensi.h"

namespace cu::test {
namespace {

enum class Quando { Sempre, AnnullamentoOSostituzione, NonAnnullamento, Nascosta };

struct ColonnaAttesa {
  std::string_view campo;
  std::string_view didascalia;
  int tipo;
  int larghezza;
  int allineamento;
  Quando quando;
};

// clang-format off
constexpr ColonnaAttesa kColonne[] = {
    {"Selezionato", "[ 0 ]", 11, 700, 2, Quando::Sempre},
    {"Popup", "", 20, 380, 0, Quando::Sempre},
    {"AnagraficaPerc", "Percipiente", 129, 2000, 0, Quando::Sempre},
    {"Codice", "Codice pagamento", 129, 700, 0, Quando::Sempre},
    {"ProtocolloAnnSost", "Protocollo da annullare/sostituire", 129, 2000, 0, Quando::AnnullamentoOSostituzione},
    {"ProgressivoAnnSost", "Progressivo da annullare/sostituire", 129, 2000, 0, Quando::AnnullamentoOSostituzione},
    {"Anticipazione", "Anticipazione", 11, 700, 2, Quando::NonAnnullamento},
    {"AmmontareLordo", "Ammontare lordo", 5, 2000, 1, Quando::NonAnnullamento},
    {"SommeRegimeConvenzionale", "Somme regime convenzionale", 5, 2000, 1, Quando::NonAnnullamento},
    {"CodicePerNonSoggetti", "Codice per non soggetti", 129, 2000, 0, Quando::NonAnnullamento},
    {"SommeNonSoggetteARitenuta", "Somme non soggette a ritenuta", 5, 2000, 1, Quando::NonAnnullamento},
    {"Imponibile", "Imponibile", 5, 2000, 1, Quando::NonAnnullamento},
    {"RitenuteAcconto", "Ritenute d'acconto", 5, 2000, 1, Quando::NonAnnullamento},
    {"RitenuteImposta", "Ritenute d'imposta", 5, 2000, 1, Quando::NonAnnullamento},
    {"RitenuteSospese", "Ritenute sospese", 5, 2000, 1, Quando::NonAnnullamento},
    {"AddRegionAcconto", "Add. Region. d'acconto", 5, 2000, 1, Quando::NonAnnullamento},
    {"AddRegionImposta", "Add. Region. d'imposta", 5, 2000, 1, Quando::NonAnnullamento},
    {"AddRegionSospesa", "Add. Region. Sospesa", 5, 2000, 1, Quando::NonAnnullamento},
    {"AddComunAcconto", "Add. Comun. d'acconto", 5, 2000, 1, Quando::NonAnnullamento},
    {"AddComunImposta", "Add. Comun. d'imposta", 5, 2000, 1, Quando::NonAnnullamento},
    {"AddComunSospesa", "Add. Comun. Sospesa", 5, 2000, 1, Quando::NonAnnullamento},
    {"ImponibileAnniPrecedenti", "Imponib. anni prec.", 5, 2000, 1, Quando::NonAnnullamento},
    {"RitenuteAnniPrecedenti", "Ritenute anni prec.", 5, 2000, 1, Quando::NonAnnullamento},
    {"ContributiCaricoAzienda", "Contributi carico azienda", 5, 2000, 1, Quando::NonAnnullamento},
    {"ContributiCaricoPercipiente", "Contributi carico percip.", 5, 2000, 1, Quando::NonAnnullamento},
    {"SpeseRimborsate", "Spese rimborsate", 5, 2000, 1, Quando::NonAnnullamento},
    {"RitenuteRimborsate", "Ritenute rimborsate", 5, 2000, 1, Quando::NonAnnullamento},
    {"ComuneResidenzaAnnoPrec", "Comune residenza anno prec.", 129, 2000, 0, Quando::NonAnnullamento},
    {"ComuneResidenzaAnnoCorr", "Comune residenza anno corr.", 129, 2000, 0, Quando::NonAnnullamento},
    {"IDAnagrafica", "IDAnagrafica", 20, 0, 0, Quando::Nascosta},
    {"IDCausalePagamento", "IDCausalePagamento", 20, 0, 0, Quando::Nascosta},
};
// clang-format on

bool presente(Quando quando, int tipoComunicazione) {
  switch (quando) {
    case Quando::Sempre:
    case Quando::Nascosta:
      return true;
    case Quando::AnnullamentoOSostituzione:
      return tipoComunicazione == 2 || tipoComunicazione == 3;
    case Quando::NonAnnullamento:
      return tipoComunicazione != 2;
  }
  return false;
}

struct GrigliaProva {
  class Finestra : public Form {
   public:
    explicit Finestra(FrontEnd& schermo)
        : Form(schermo, "frmWizard"), griglia(*this, "grdCompensi", nullptr) {}
    Grid griglia;
  };

  void apri() {
    database.answer("tmpprequadrivio12", workTable({workRow(1, 1), workRow(2, 1), workRow(3, 1)}));
    righe.Open(database, "tmpprequadrivio12");
  }

  FakeConnection database;
  Recordset righe;
  ScriptedFrontEnd frontEnd;
  Finestra finestra{frontEnd};
  GrigliaCompensi vista{finestra.griglia};
};

class ColumnsByKind : public testing::TestWithParam<int>, public GrigliaProva {};

TEST_P(ColumnsByKind, AreThoseOfTheKindInOrder) {
  vista.sbFormattaGriglia(static_cast<Comunicazione>(GetParam()));
  const auto& colonne = finestra.griglia.columns();
  std::size_t posto = 0;
  for (const ColonnaAttesa& attesa : kColonne) {
    if (!presente(attesa.quando, GetParam())) continue;
    SCOPED_TRACE(attesa.campo);
    ASSERT_LT(posto, colonne.size());
    const GridColumn& colonna = colonne[posto++];
    EXPECT_EQ(colonna.field, attesa.campo);
    EXPECT_EQ(colonna.caption, attesa.didascalia);
    EXPECT_EQ(colonna.type, attesa.tipo);
    EXPECT_EQ(colonna.width, attesa.larghezza);
    EXPECT_EQ(colonna.alignment, attesa.allineamento);
    EXPECT_EQ(colonna.visible, attesa.quando != Quando::Nascosta);
    EXPECT_FALSE(colonna.editable);
  }
  EXPECT_EQ(posto, colonne.size());
}

INSTANTIATE_TEST_SUITE_P(Kinds, ColumnsByKind, testing::Values(1, 2, 3));

class WorklistGrid : public testing::Test, public GrigliaProva {};

TEST_F(WorklistGrid, AnOrdinaryCommunicationShowsNoReferences) {
  vista.sbFormattaGriglia(Comunicazione::Ordinaria);
  EXPECT_EQ(finestra.griglia.columns().size(), 29U);
  EXPECT_EQ(finestra.griglia.column("ProtocolloAnnSost"), nullptr);
}

TEST_F(WorklistGrid, AnAnnulmentShowsOnlyWhoAndWhichReference) {
  vista.sbFormattaGriglia(Comunicazione::Annullamento);
  std::vector<std::string> visibili;
  for (const GridColumn& colonna : finestra.griglia.columns()) {
    if (colonna.visible) visibili.push_back(colonna.field);
  }
  EXPECT_EQ(visibili, (std::vector<std::string>{"Selezionato", "Popup", "AnagraficaPerc", "Codice",
                                                "ProtocolloAnnSost", "ProgressivoAnnSost"}));
}

TEST_F(WorklistGrid, AReplacementShowsEverything) {
  vista.sbFormattaGriglia(Comunicazione::Sostituzione);
  EXPECT_EQ(finestra.griglia.columns().size(), 31U);
}

TEST_F(WorklistGrid, WithNoKindChosenNoReferencesAreShown) {
  vista.sbFormattaGriglia(Comunicazione::Nessuna);
  EXPECT_EQ(finestra.griglia.column("ProtocolloAnnSost"), nullptr);
  EXPECT_NE(finestra.griglia.column("AmmontareLordo"), nullptr);
}

TEST_F(WorklistGrid, ALayoutReplacesTheOneBefore) {
  vista.sbFormattaGriglia(Comunicazione::Sostituzione);
  vista.sbFormattaGriglia(Comunicazione::Annullamento);
  EXPECT_EQ(finestra.griglia.columns().size(), 8U);
}

TEST_F(WorklistGrid, AmountsHaveTwoPlacesACommaAndPointsWhateverTheCurrency) {
  vista.sbFormattaGriglia(Comunicazione::Ordinaria);
  const Grid& griglia = finestra.griglia;
  const GridColumn& importo = *finestra.griglia.column("AmmontareLordo");
  EXPECT_EQ(griglia.shown(importo, amount("1234567.891").view()), "1.234.567,89");
  EXPECT_EQ(griglia.shown(importo, amount("-999.995").view()), "-1.000,00");
  EXPECT_EQ(griglia.shown(importo, amount("0").view()), "0,00");
  EXPECT_EQ(griglia.shown(importo, CellView()), "");
}

TEST_F(WorklistGrid, TheMenuColumnShowsTheSameValueInEveryRowAndNoOtherColumnIsPainted) {
  vista.sbFormattaGriglia(Comunicazione::Ordinaria);
  const Grid& griglia = finestra.griglia;
  const GridColumn& popup = *finestra.griglia.column("Popup");
  EXPECT_EQ(griglia.shown(popup, CellView()), "2");
  EXPECT_EQ(griglia.shown(popup, CellView::ofInteger(7)), "2");
  const GridColumn& identita = *finestra.griglia.column("IDAnagrafica");
  EXPECT_EQ(griglia.shown(identita, CellView::ofInteger(7)), "7");
  Value nulla;
  griglia.paintValue(identita, nulla);
  EXPECT_TRUE(nulla.isNull());
}

TEST_F(WorklistGrid, ShowsTheRowsAndHowManyAreSelected) {
  apri();
  vista.sbFormattaGriglia(Comunicazione::Ordinaria);
  EXPECT_EQ(finestra.griglia.column("Selezionato")->caption, "[ 0 ]");
  vista.caricati(righe);
  vista.contati(2);
  EXPECT_EQ(finestra.griglia.rows(), &righe);
  EXPECT_EQ(finestra.griglia.rowCount(), 3U);
  EXPECT_EQ(finestra.griglia.row(), 1U);
  EXPECT_EQ(finestra.griglia.column("Selezionato")->caption, "[ 2 ]");
}

TEST_F(WorklistGrid, StandsStillWhileItsRowsChangeAndThenShowsTheCurrentOne) {
  apri();
  vista.caricati(righe);
  int mostrate = 0;
  finestra.griglia.onRowChange = [&] { ++mostrate; };
  vista.sospendi();
  EXPECT_FALSE(finestra.griglia.drawing());
  vista.riprendi();
  EXPECT_TRUE(finestra.griglia.drawing());
  vista.cambiati();
  EXPECT_EQ(mostrate, 1);
}

}  // namespace
}  // namespace cu::test
