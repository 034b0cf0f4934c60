#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editors/editor.h"
#include "wizard/wizard_prova.h"

namespace cu::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

constexpr std::int16_t kSpazio = 32;

std::string seleziona(const char* valore, int idAnagrafica) {
  return "UPDATE tmpprequadrivio12 SET Selezionato = " + std::string(valore) +
         " WHERE Anno = 2016 AND IDAnagrafica = " + std::to_string(idAnagrafica) +
         " AND IDAzienda = 1 AND IDCausalePagamento = 1";
}

class GridStep : public testing::Test, public WizardProva {
 protected:
  void SetUp() override {
    righe({workRow(1, 1), workRow(2, 1, {{"Selezionato", whole(0)}}), workRow(3, 1)});
    vaiAllaGriglia();
    dimentica();
  }
  Grid& griglia() { return form().grdCompensi; }
  std::string didascalia() { return griglia().column("Selezionato")->caption; }
};

TEST_F(GridStep, SpaceTogglesTheCurrentRowAndCountsAnew) {
  conteggi.selected = 1;
  griglia().keyDown(kSpazio, 0);
  EXPECT_THAT(istruzioni(), ElementsAre(seleziona("0", 1)));
  EXPECT_EQ(didascalia(), "[ 1 ]");
  conteggi.selected = 2;
  griglia().keyDown(kSpazio, 0);
  EXPECT_THAT(istruzioni(), ElementsAre(seleziona("0", 1), seleziona("1", 1)));
  EXPECT_EQ(didascalia(), "[ 2 ]");
}

TEST_F(GridStep, SpaceTogglesEachHighlightedRowAndCountsOnce) {
  conteggi.selected = 7;
  griglia().selectRow(3);
  griglia().highlight({1, 2});
  griglia().keyDown(kSpazio, 0);
  EXPECT_THAT(istruzioni(), ElementsAre(seleziona("0", 1), seleziona("1", 2)));
  EXPECT_THAT(database.main.texts(), SizeIs(1));
  EXPECT_EQ(didascalia(), "[ 7 ]");
  EXPECT_EQ(griglia().row(), 3U);
}

TEST_F(GridStep, OtherKeysToggleNothing) {
  griglia().keyDown(13, 0);
  griglia().keyDown(65, 0);
  EXPECT_THAT(istruzioni(), IsEmpty());
}

TEST_F(GridStep, SpaceIsPassedOverUnlessTheGridIsAtRest) {
  griglia().setState(1);
  griglia().keyDown(kSpazio, 0);
  EXPECT_THAT(istruzioni(), IsEmpty());
}

TEST_F(GridStep, SpaceBeforeTheFirstOrBehindTheLastRowTogglesNothing) {
  griglia().rows()->MoveTo(griglia().rows()->RecordCount());
  griglia().rows()->MoveNext();
  griglia().keyDown(kSpazio, 0);
  griglia().rows()->MoveFirst();
  griglia().rows()->MovePrevious();
  griglia().keyDown(kSpazio, 0);
  EXPECT_THAT(istruzioni(), IsEmpty());
}

TEST_F(GridStep, AClickOnTheCheckTogglesTheRowClicked) {
  griglia().press(2, "Selezionato");
  EXPECT_EQ(griglia().row(), 2U);
  EXPECT_THAT(istruzioni(), ElementsAre(seleziona("1", 2)));
  EXPECT_EQ(griglia().rows()->Get("Selezionato").toText(), "-1");
}

TEST_F(GridStep, AClickOnTheHeaderTogglesNothing) {
  griglia().press(0, "Selezionato");
  griglia().press(0, "Popup");
  EXPECT_THAT(istruzioni(), IsEmpty());
  EXPECT_THAT(frontEnd.popups, IsEmpty());
}

TEST_F(GridStep, AClickOnAnotherColumnOnlyMovesThere) {
  griglia().press(3, "AnagraficaPerc");
  EXPECT_EQ(griglia().row(), 3U);
  EXPECT_THAT(istruzioni(), IsEmpty());
  EXPECT_THAT(frontEnd.popups, IsEmpty());
}

TEST_F(GridStep, AClickOnTheMenuColumnOpensTheRowsMenu) {
  griglia().press(3, "Popup");
  EXPECT_EQ(griglia().row(), 3U);
  EXPECT_THAT(frontEnd.popups, ElementsAre("PopDettaglio"));
  EXPECT_THAT(istruzioni(), IsEmpty());
}

TEST_F(GridStep, TheMouseIsPassedOverUnlessTheGridIsAtRest) {
  griglia().setState(1);
  griglia().press(2, "Selezionato");
  griglia().press(2, "Popup");
  griglia().doubleClick(2);
  EXPECT_THAT(istruzioni(), IsEmpty());
  EXPECT_THAT(frontEnd.popups, IsEmpty());
  EXPECT_THAT(frontEnd.shown, ElementsAre("frmWizard"));
}

TEST_F(GridStep, AToggledRowIsDrawnAnew) {
  int mostrate = 0;
  griglia().onRowChange = [&] { ++mostrate; };
  griglia().keyDown(kSpazio, 0);
  EXPECT_EQ(mostrate, 1);
}

TEST_F(GridStep, TheTwoButtonsSelectAndDeselectEveryRow) {
  premi(form().cmdSelect[0]);
  EXPECT_THAT(istruzioni(), ElementsAre(seleziona("1", 1), seleziona("1", 2), seleziona("1", 3)));
  dimentica();
  premi(form().cmdSelect[1]);
  EXPECT_THAT(istruzioni(), ElementsAre(seleziona("0", 1), seleziona("0", 2), seleziona("0", 3)));
}

TEST_F(GridStep, AfterDeselectingEverythingTheWayOnIsBarred) {
  conteggi.selected = 0;
  premi(form().cmdSelect[1]);
  EXPECT_EQ(didascalia(), "[ 0 ]");
  premi(form().cmdNav[3]);
  EXPECT_EQ(passo(), 1);
  EXPECT_THAT(frontEnd.boxTexts(),
              ElementsAre("Per poter proseguire è necessario selezionare almeno un elemento."));
}

class EmptyGrid : public testing::Test, public WizardProva {};

TEST_F(EmptyGrid, ButtonsKeysAndMouseDoNothing) {
  righe({});
  vaiAllaGriglia();
  dimentica();
  premi(form().cmdSelect[0]);
  premi(form().cmdSelect[1]);
  form().grdCompensi.keyDown(kSpazio, 0);
  form().grdCompensi.press(1, "Selezionato");
  form().grdCompensi.onMouseUp(1, "Selezionato");
  form().grdCompensi.onMouseUp(1, "Popup");
  form().grdCompensi.doubleClick(1);
  form().BarMenuWzr.click("ModificaCompenso");
  EXPECT_THAT(istruzioni(), IsEmpty());
  EXPECT_THAT(database.main.texts(), IsEmpty());
  EXPECT_THAT(frontEnd.popups, IsEmpty());
  EXPECT_THAT(frontEnd.shown, ElementsAre("frmWizard"));
  EXPECT_THAT(frontEnd.errors, IsEmpty());
}

class Editing : public testing::Test, public WizardProva {
 protected:
  // Goes to the grid of a year, with a kind of communication; the rows are of that year.
  void vai(int anno, std::size_t tipo = 0) {
    database.own.answerContaining("SELECT DISTINCT ContoIndividuale.Anno", Table({"Anno"}, {{whole(anno)}}));
    righe({workRow(1, 1, {{"Anno", whole(anno)}}), workRow(2, 1, {{"Anno", whole(anno)}})});
    avviaCU();
    form().optTipoComunicazione.at(tipo).click();
    premi(form().cmdNav[3]);
    dimentica();
    frontEnd.shown.clear();
  }
  void rispondi(bool conferma) {
    frontEnd.modals.push_back([conferma](Form& editor) {
      dynamic_cast<Button&>(*editor.find(conferma ? "cmdOk" : "cmdAnnulla")).click();
    });
  }
};

TEST_F(Editing, ADoubleClickOpensTheEditorOfTheRow) {
  vai(2016);
  std::int64_t riga = 0;
  frontEnd.modals.push_back(
      [&](Form& form) { riga = dynamic_cast<Editor&>(form).Recordset().Get("IDAnagrafica").integer(); });
  form().grdCompensi.doubleClick(2);
  EXPECT_THAT(frontEnd.shown, ElementsAre("frmCompenso2017"));
  EXPECT_EQ(riga, 2);
}

struct AnnoEditor {
  int anno;
  const char* form;
};

class EditorOfTheYear : public Editing, public testing::WithParamInterface<AnnoEditor> {};

TEST_P(EditorOfTheYear, IsTheOneOfTheModelsLayout) {
  vai(GetParam().anno);
  form().BarMenuWzr.click("ModificaCompenso");
  EXPECT_THAT(frontEnd.shown, ElementsAre(GetParam().form));
}

INSTANTIATE_TEST_SUITE_P(Years, EditorOfTheYear,
                         testing::Values(AnnoEditor{2013, "frmCompenso2017"}, AnnoEditor{2014, "frmCompenso"},
                                         AnnoEditor{2015, "frmCompenso2016"},
                                         AnnoEditor{2016, "frmCompenso2017"},
                                         AnnoEditor{2017, "frmCompenso2017"},
                                         AnnoEditor{2030, "frmCompenso2017"}),
                         [](const auto& caso) { return "Year" + std::to_string(caso.param.anno); });

TEST_F(Editing, AConfirmedRowIsSavedToTheWorkTable) {
  vai(2016);
  rispondi(true);
  form().grdCompensi.doubleClick(2);
  ASSERT_THAT(istruzioni(), SizeIs(1));
  EXPECT_THAT(istruzioni()[0], StartsWith("UPDATE tmpprequadrivio12 SET ProtocolloAnnSost = "));
  EXPECT_THAT(istruzioni()[0], HasSubstr(" WHERE Anno = 2016 AND IDAnagrafica = 2 "));
}

TEST_F(Editing, ACancelledRowIsNotSaved) {
  vai(2016);
  rispondi(false);
  form().grdCompensi.doubleClick(2);
  EXPECT_THAT(istruzioni(), IsEmpty());
  EXPECT_THAT(frontEnd.facts,
              ElementsAre("L'editor è stato chiuso senza confermare: la riga è rimasta com'era."));
}

TEST_F(Editing, AfterwardsAllRowsShowAndTheEditedOneIsCurrent) {
  for (const bool conferma : {true, false}) {
    vai(2016);
    rispondi(conferma);
    std::size_t righeNellEditor = 0;
    const auto script = frontEnd.modals.front();
    frontEnd.modals.front() = [&](Form& form) {
      righeNellEditor = dynamic_cast<Editor&>(form).Recordset().RecordCount();
      script(form);
    };
    form().grdCompensi.doubleClick(2);
    EXPECT_EQ(righeNellEditor, 1U);
    EXPECT_EQ(form().grdCompensi.rowCount(), 2U);
    EXPECT_EQ(form().grdCompensi.row(), 2U);
    EXPECT_EQ(form().grdCompensi.rows()->Filter(), "");
    form().unload();
  }
}

TEST_F(Editing, ASaveThatFailsIsToldAndAllRowsShow) {
  vai(2016);
  database.internal.refuseContaining("SET ProtocolloAnnSost", DatabaseErrorKind::Locked, "Occupato.");
  rispondi(true);
  frontEnd.runEvent([&] { form().grdCompensi.doubleClick(2); });
  ASSERT_THAT(frontEnd.errors, SizeIs(1));
  EXPECT_EQ(frontEnd.errors[0].text, "Occupato.");
  EXPECT_EQ(form().grdCompensi.rowCount(), 2U);
}

TEST_F(Editing, AnAnnulmentBefore2015OpensTheFullEditor) {
  vai(2014, 1);
  form().grdCompensi.doubleClick(1);
  EXPECT_THAT(frontEnd.shown, ElementsAre("frmCompenso"));
}

TEST_F(Editing, AnAnnulmentFrom2015OnOpensOnlyTheDialogOfTheReferences) {
  vai(2015, 1);
  frontEnd.modals.push_back([](Form& dialogo) {
    dynamic_cast<TextBox&>(*dialogo.find("txtProtocollo")).enter("12345678901234567");
    dynamic_cast<TextBox&>(*dialogo.find("txtProgressivo")).enter("000001");
    dynamic_cast<Button&>(*dialogo.find("cmdOk")).click();
  });
  form().grdCompensi.doubleClick(2);
  EXPECT_THAT(frontEnd.shown, ElementsAre("frmDatiAggiuntivi"));
  ASSERT_THAT(istruzioni(), SizeIs(1));
  EXPECT_THAT(istruzioni()[0], HasSubstr(" WHERE Anno = 2015 AND IDAnagrafica = 2 "));
  EXPECT_EQ(form().grdCompensi.rowCount(), 2U);
}

TEST_F(Editing, AnAnnulmentGivenUpInItsDialogSavesNothing) {
  vai(2016, 1);
  frontEnd.modals.push_back(
      [](Form& dialogo) { dynamic_cast<Button&>(*dialogo.find("cmdAnnulla")).click(); });
  form().grdCompensi.doubleClick(1);
  EXPECT_THAT(frontEnd.shown, ElementsAre("frmDatiAggiuntivi"));
  EXPECT_THAT(istruzioni(), IsEmpty());
  EXPECT_EQ(form().grdCompensi.rowCount(), 2U);
}

TEST_F(Editing, WithNoKindChosenTheWholeEditorOpens) {
  vai(2014);
  form().optTipoComunicazione[0].setValue(false);
  bool ridotto = true;
  frontEnd.modals.push_back([&](Form& editor) { ridotto = editor.shrunk(); });
  form().grdCompensi.doubleClick(1);
  EXPECT_THAT(frontEnd.shown, ElementsAre("frmCompenso"));
  EXPECT_FALSE(ridotto);
}

TEST_F(Editing, BeforeTheFirstRowNoEditorOpens) {
  vai(2016);
  form().grdCompensi.rows()->MoveFirst();
  form().grdCompensi.rows()->MovePrevious();
  form().BarMenuWzr.click("ModificaCompenso");
  EXPECT_THAT(frontEnd.shown, IsEmpty());
}

class UnloadedGrid : public testing::Test, public WizardProva {};

TEST_F(UnloadedGrid, ItsSpaceBarDoesNothing) {
  avviaCU();
  dimentica();
  form().grdCompensi.keyDown(kSpazio, 0);
  EXPECT_THAT(istruzioni(), IsEmpty());
  EXPECT_THAT(database.main.texts(), IsEmpty());
}

}  // namespace
}  // namespace cu::test
