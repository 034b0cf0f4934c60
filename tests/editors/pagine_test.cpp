// The two pages, their scrolling, the links; and the oldest layout with its tabs and references.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editors/campi_prova.h"

namespace cu::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PicturePages : public testing::TestWithParam<int>, public CampiProva {
 protected:
  bool visibile(const char* nome) { return editor->find(nome)->visible(); }
  void atteso(bool prima) {
    EXPECT_EQ(c<Button>("cmdModulo1").enabled(), !prima);
    EXPECT_EQ(c<Button>("cmdAltriModuli").enabled(), prima);
    EXPECT_EQ(visibile("picModulo1"), prima);
    EXPECT_EQ(visibile("fraAltriModuli"), !prima);
    EXPECT_EQ(visibile("picAltriModuli"), !prima);
    EXPECT_EQ(importo(19).available(), prima);
    EXPECT_EQ(importo(17).available(), !prima);
    EXPECT_EQ(c<Button>("cmdNew").available(), !prima);
  }
  int posizione() { return editor->scroll()->position; }
};

TEST_P(PicturePages, OpenOnTheModuleOne) {
  apri(GetParam());
  atteso(true);
  EXPECT_EQ(posizione(), 0);
}

TEST_P(PicturePages, TakeTurnsAndTouchNoData) {
  moduli({modulo(7, 2)});
  apri(GetParam(), rigaPiena());
  const Righe prima = fotografia(riga);
  premi("cmdAltriModuli");
  atteso(false);
  premi("cmdModulo1");
  atteso(true);
  EXPECT_FALSE(salvaAcceso());
  premi("cmdOk");
  EXPECT_TRUE(differenze(prima, fotografia(riga)).empty());
  EXPECT_THAT(istruzioni(), IsEmpty());
}

TEST_P(PicturePages, ThePageTurnedToIsLaidOutAtTheTop) {
  apri(GetParam());
  editor->wheel(-120);
  ASSERT_GT(posizione(), 0);
  premi("cmdAltriModuli");
  EXPECT_EQ(posizione(), 0);
  editor->wheel(-120);
  premi("cmdModulo1");
  EXPECT_EQ(posizione(), 0);
}

TEST_P(PicturePages, TheWheelScrollsOneStepAndZeroNothing) {
  apri(GetParam());
  editor->wheel(-1);
  EXPECT_EQ(posizione(), 1);
  editor->wheel(-120);
  EXPECT_EQ(posizione(), 2);
  editor->wheel(0);
  EXPECT_EQ(posizione(), 2);
  editor->wheel(1);
  EXPECT_EQ(posizione(), 1);
  editor->wheel(120);
  EXPECT_EQ(posizione(), 0);
  editor->wheel(120);
  EXPECT_EQ(posizione(), 0);
}

TEST_P(PicturePages, PageUpAndPageDownScrollOneStep) {
  apri(GetParam());
  EXPECT_TRUE(editor->keyDown(34, 0));
  EXPECT_EQ(posizione(), 1);
  EXPECT_TRUE(editor->keyDown(33, 0));
  EXPECT_EQ(posizione(), 0);
  EXPECT_TRUE(editor->keyDown(33, 0));
  EXPECT_EQ(posizione(), 0);
  EXPECT_FALSE(editor->keyDown(40, 0));
  EXPECT_EQ(posizione(), 0);
}

TEST_P(PicturePages, TheBarEndsAtItsLastPlace) {
  apri(GetParam());
  for (int n = 0; n < 100; ++n) editor->wheel(-120);
  EXPECT_EQ(posizione(), editor->scroll()->max);
}

TEST_P(PicturePages, TheLinksOpenTheirDocumentsInTheFolderOfTheSettings) {
  const bool del2016 = GetParam() == 2015;
  const std::string istruzioni = del2016 ? "CU_2016_Istruzioni.pdf" : "CU_2017_Istruzioni.pdf";
  const std::string note = del2016 ? "Note di compilazione CU 2016.pdf" : "Note di compilazione CU 2017.pdf";
  for (const std::string cartella : {"", "/programmi/suite"}) {
    frontEnd.opened.clear();
    if (!cartella.empty()) settings.values[{"Quadrivio", "MenuSettings", "Path"}] = cartella;
    apri(GetParam());
    c<Link>("lblIstruzioniMinisteriali").click();
    c<Link>("lblNoteCompilazione").click();
    ASSERT_EQ(frontEnd.opened.size(), 2U);
    EXPECT_EQ(frontEnd.opened[0].path, istruzioni);
    EXPECT_EQ(frontEnd.opened[0].folder, cartella);
    EXPECT_EQ(frontEnd.opened[1].path, note);
    EXPECT_EQ(frontEnd.opened[1].folder, cartella);
    EXPECT_THAT(frontEnd.boxes, IsEmpty());
  }
}

INSTANTIATE_TEST_SUITE_P(Layouts, PicturePages, testing::Values(2015, 2016, 2018),
                         [](const auto& anno) { return std::to_string(anno.param); });

struct OldestLayout : testing::Test, CampiProva {
  const Tabs& schede() { return c<Tabs>("stbMain"); }
  TextBox& protocollo() { return c<TextBox>("txtProtocollo"); }
  TextBox& progressivo() { return c<TextBox>("txtProgressivo"); }
  void riferimenti(const std::string& didascalia, bool aperti) {
    EXPECT_EQ(c<Frame>("fraRiferimenti").caption(), didascalia);
    for (const char* nome :
         {"fraRiferimenti", "txtProtocollo", "txtProgressivo", "lblProtocollo", "lblProgressivo"}) {
      EXPECT_EQ(editor->find(nome)->enabled(), aperti) << nome;
    }
    for (TextBox* casella : {&protocollo(), &progressivo()}) {
      EXPECT_EQ(casella->background(), aperti ? Background::Window : Background::Face);
    }
  }
};

TEST_F(OldestLayout, HasTwoTabs) {
  apri(2014);
  ASSERT_EQ(schede().tabs().size(), 2U);
  EXPECT_EQ(schede().tabs()[0].caption, "Modulo 1");
  EXPECT_EQ(schede().tabs()[1].caption, "Altri moduli");
  EXPECT_EQ(schede().selected(), 1);
  EXPECT_TRUE(importo(19).available());
  EXPECT_FALSE(importo(17).available());
  c<Tabs>("stbMain").select(2);
  EXPECT_FALSE(importo(19).available());
  EXPECT_TRUE(importo(17).available());
}

TEST_F(OldestLayout, AnAnnulmentLeavesOnlyTheTabModuloOneAndTheReferences) {
  apri(2014, {}, 2);
  riferimenti("Riferimenti per annullamento", true);
  EXPECT_TRUE(schede().tabs()[0].visible);
  EXPECT_FALSE(schede().tabs()[1].visible);
  EXPECT_FALSE(c<Frame>("fraMain").visible());
  EXPECT_TRUE(editor->shrunk());
  EXPECT_TRUE(protocollo().available());
  for (const Campo& campo : tavolaModulo1()) {
    if (!campo.nel(2014)) continue;
    EXPECT_FALSE(editor->find(campo.controllo)->available()) << campo.controllo;
  }
  EXPECT_FALSE(c<Picker>("TownComuneResidenzaAnnoPrec").available());
}

TEST_F(OldestLayout, TheLaterOnesAreNeverShrunk) {
  for (const int anno : {2015, 2016}) {
    apri(anno, {}, 2);
    EXPECT_FALSE(editor->shrunk()) << anno;
  }
}

TEST_F(OldestLayout, TheOtherKindsShowAll) {
  for (const int tipo : {3, 1, 0}) {
    apri(2014, {}, 2);
    editor->setTipoComunicazione(static_cast<Comunicazione>(tipo));
    riferimenti(tipo == 3 ? "Riferimenti per sostituzione" : "Riferimenti per sost./ann.", tipo == 3);
    EXPECT_TRUE(schede().tabs()[1].visible);
    EXPECT_TRUE(c<Frame>("fraMain").visible());
    EXPECT_FALSE(editor->shrunk());
  }
}

TEST_F(OldestLayout, ShowsReferencesAndMunicipalitiesOfTheRow) {
  WorkRow piena = rigaPiena();
  piena["ProtocolloAnnSost"] = text("12");
  piena["ProgressivoAnnSost"] = text("34");
  apri(2014, piena);
  EXPECT_EQ(protocollo().text(), "12");
  EXPECT_EQ(progressivo().text(), "34");
  EXPECT_EQ(c<Picker>("TownComuneResidenzaAnnoPrec").text(), "Roma");
  EXPECT_EQ(c<Picker>("TownComuneResidenzaAnnoCorr").text(), "Milano");
  EXPECT_EQ(c<Picker>("TownComuneResidenzaAnnoPrec").title(), "Quadrivio");
}

TEST_F(OldestLayout, FiltersTheKeysOfTheReferences) {
  apri(2014, {}, 3);
  for (TextBox* casella : {&protocollo(), &progressivo()}) {
    frontEnd.beeps = 0;
    casella->enter("1a2 3");
    EXPECT_EQ(casella->text(), "123");
    EXPECT_EQ(frontEnd.beeps, 2);
  }
}

TEST_F(OldestLayout, HandsBackWhatItsControlsHold) {
  apri(2014, rigaPiena(), 3);
  const Righe prima = fotografia(riga);
  protocollo().enter("99");
  progressivo().enter("3");
  c<Picker>("TownComuneResidenzaAnnoPrec").setRecord(59);
  c<Picker>("TownComuneResidenzaAnnoCorr").setRecord(0);
  premi("cmdOk");
  EXPECT_EQ(differenze(prima, fotografia(riga)), (Righe{{"Modificato", "-1"},
                                                        {"ProtocolloAnnSost", "99"},
                                                        {"ProgressivoAnnSost", "3"},
                                                        {"IDComuneResidenzaAnnoPrec", "59"},
                                                        {"ComuneResidenzaAnnoPrec", "Milano"},
                                                        {"SiglaProvResidenzaAnnoPrec", "MI"},
                                                        {"CodiceComuneDiNascitaPrec", "F205"},
                                                        {"IDComuneResidenzaAnnoCorr", "0"},
                                                        {"ComuneResidenzaAnnoCorr", ""},
                                                        {"SiglaProvResidenzaAnnoCorr", ""},
                                                        {"CodiceComuneDiNascitaCorr", ""}}));
}

TEST_F(OldestLayout, WithoutReferencesAConfirmationIsRefusedWithNoQuestion) {
  for (const int tipo : {2, 3}) {
    frontEnd.boxes.clear();
    apri(2014, {}, tipo);
    utilita.released.clear();
    premi("cmdOk");
    EXPECT_FALSE(editor->OK());
    EXPECT_EQ(editor->focus(), &protocollo());
    protocollo().setText("  ");
    premi("cmdOk");
    protocollo().setText("1");
    premi("cmdOk");
    EXPECT_EQ(editor->focus(), &progressivo());
    EXPECT_FALSE(modificata());
    EXPECT_THAT(utilita.released, IsEmpty());
    progressivo().setText("2");
    premi("cmdOk");
    EXPECT_TRUE(editor->OK());
    EXPECT_THAT(frontEnd.boxTexts(), ElementsAre("Attenzione! Il protocollo è un campo obbligatorio.",
                                                 "Attenzione! Il protocollo è un campo obbligatorio.",
                                                 "Attenzione! Il progressivo è un campo obbligatorio."));
    EXPECT_EQ(frontEnd.boxes[0].icon, BoxIcon::Warning);
    EXPECT_EQ(frontEnd.boxes[0].buttons, BoxButtons::Ok);
    EXPECT_EQ(frontEnd.boxes[0].title, "Quadrivio");
  }
}

TEST_F(OldestLayout, AnOrdinaryConfirmationNeedsNoReferences) {
  apri(2014);
  premi("cmdOk");
  EXPECT_TRUE(editor->OK());
  EXPECT_THAT(frontEnd.boxes, IsEmpty());
}

TEST_F(OldestLayout, SavesAModuleWithoutAnyWarning) {
  apri(2014);
  premi("cmdNew");
  importo(18).enter("1");
  premi("cmdSave");
  EXPECT_THAT(frontEnd.boxes, IsEmpty());
}

TEST_F(OldestLayout, HasNoDialogOfAdditionalData) {
  apri(2014, {}, 2);
  editor->ApriDatiAggiuntivi();
  EXPECT_THAT(frontEnd.shown, IsEmpty());
  EXPECT_THAT(utilita.released, IsEmpty());
}

}  // namespace
}  // namespace cu::test
