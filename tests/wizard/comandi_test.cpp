#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "wizard/wizard_prova.h"

namespace cu::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::int16_t kR = 82;
constexpr std::int16_t kG = 71;
constexpr std::int16_t kF1 = 112;
constexpr std::int16_t kEsc = 27;
constexpr std::int16_t kMaiuscole = 1;
constexpr std::int16_t kControl = 2;
constexpr std::int16_t kAlt = 4;

class Commands : public testing::Test, public WizardProva {
 protected:
  void SetUp() override { avvia(247); }
};

TEST_F(Commands, ToolsStandInTwoBands) {
  EXPECT_THAT(form().BarMenuWzr.bands(), ElementsAre("mnuPopUp", "PopDettaglio"));
  struct Atteso {
    const char* chiave;
    int numero;
    const char* banda;
    const char* didascalia;
    const char* scorciatoia;
  };
  constexpr Atteso kAttesi[] = {
      {"Mnu_RunApplication", 1, "mnuPopUp", "&Vai", "Control+G"},
      {"Mnu_SearchObject", 2, "mnuPopUp", "&Cerca", "Control+R"},
      {"ModificaCompenso", 3, "PopDettaglio", "&Modifica compenso per creazione CU", ""},
  };
  ASSERT_EQ(form().BarMenuWzr.tools().size(), std::size(kAttesi));
  for (std::size_t i = 0; i < std::size(kAttesi); ++i) {
    const MenuBar::Tool& voce = form().BarMenuWzr.tools()[i];
    EXPECT_EQ(voce.key, kAttesi[i].chiave);
    EXPECT_EQ(voce.id, kAttesi[i].numero);
    EXPECT_EQ(voce.band, kAttesi[i].banda);
    EXPECT_EQ(voce.caption, kAttesi[i].didascalia);
    EXPECT_EQ(voce.shortcut, kAttesi[i].scorciatoia);
    EXPECT_TRUE(voce.enabled);
    EXPECT_EQ(voce.inert, voce.band == "mnuPopUp");
  }
}

struct Tasto {
  const char* nome;
  std::int16_t codice;
  std::int16_t modificatori;
  bool consumato;
};

class Keys : public testing::TestWithParam<Tasto>, public WizardProva {};

TEST_P(Keys, AreConsumedOrNot) {
  avvia(247);
  frontEnd.answers = {Answer::No};
  std::int16_t codice = GetParam().codice;
  std::int16_t modificatori = GetParam().modificatori;
  form().onKeyDown(codice, modificatori);
  EXPECT_EQ(codice, GetParam().consumato ? 0 : GetParam().codice);
  EXPECT_EQ(modificatori, GetParam().consumato ? 0 : GetParam().modificatori);
}

INSTANTIATE_TEST_SUITE_P(
    Table, Keys,
    testing::Values(Tasto{"ControlR", kR, kControl, true}, Tasto{"R", kR, 0, false},
                    Tasto{"ShiftR", kR, kMaiuscole, false}, Tasto{"AltR", kR, kAlt, false},
                    Tasto{"ControlG", kG, kControl, true}, Tasto{"G", kG, 0, false},
                    Tasto{"ShiftG", kG, kMaiuscole, false}, Tasto{"ShiftF1", kF1, kMaiuscole, true},
                    Tasto{"F1", kF1, 0, true}, Tasto{"Esc", kEsc, 0, false},
                    Tasto{"ShiftEsc", kEsc, kMaiuscole, false}, Tasto{"ControlEsc", kEsc, kControl, false},
                    Tasto{"Enter", 13, 0, false}, Tasto{"F2", 113, 0, false},
                    Tasto{"ControlF1", kF1, kControl, false}, Tasto{"ControlA", 65, kControl, false}),
    [](const auto& caso) { return std::string(caso.param.nome); });

class ToolKeys : public testing::TestWithParam<std::pair<std::int16_t, const char*>>, public WizardProva {};

TEST_P(ToolKeys, AreSwallowedAndDoNothingWhileTheToolIsDisabled) {
  avvia(247);
  form().BarMenuWzr.clear();
  form().BarMenuWzr.addTool(
      {.key = GetParam().second, .band = {}, .caption = {}, .shortcut = {}, .enabled = false});
  dimentica();
  EXPECT_TRUE(form().keyDown(GetParam().first, kControl));
  EXPECT_EQ(form().oggettoCorrente(), 0);
  EXPECT_THAT(frontEnd.boxes, IsEmpty());
  EXPECT_THAT(frontEnd.helps, IsEmpty());
  EXPECT_THAT(database.main.texts(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Tools, ToolKeys,
                         testing::Values(std::pair{kR, "Mnu_SearchObject"},
                                         std::pair{kG, "Mnu_RunApplication"}));

TEST_F(Commands, ControlRLeavesTheObjectAtMinusOne) {
  EXPECT_EQ(form().oggettoCorrente(), 0);
  EXPECT_TRUE(form().keyDown(kR, kControl));
  EXPECT_EQ(form().oggettoCorrente(), -1);
}

TEST_F(Commands, ControlGLeavesTheObjectAsItIs) {
  EXPECT_TRUE(form().keyDown(kG, kControl));
  EXPECT_EQ(form().oggettoCorrente(), 0);
  form().keyDown(kR, kControl);
  form().keyDown(kG, kControl);
  EXPECT_EQ(form().oggettoCorrente(), -1);
}

TEST_F(Commands, TheTwoInertToolsDoNothingThatShows) {
  dimentica();
  form().BarMenuWzr.click("Mnu_RunApplication");
  form().BarMenuWzr.click("Mnu_SearchObject");
  EXPECT_EQ(form().oggettoCorrente(), -1);
  EXPECT_THAT(frontEnd.boxes, IsEmpty());
  EXPECT_THAT(frontEnd.helps, IsEmpty());
  EXPECT_THAT(frontEnd.opened, IsEmpty());
  EXPECT_THAT(database.main.texts(), IsEmpty());
}

struct Guida {
  const char* nome;
  std::int16_t modificatori;
  const char* voce;
};

class HelpKeys : public testing::TestWithParam<Guida>, public WizardProva {};

// No argument is ever set, so that both open the first context.
TEST_P(HelpKeys, OpenTheHelpAtContextOneByKeyAndByCommand) {
  avvia(247);
  form().keyDown(kF1, GetParam().modificatori);
  form().BarMenuWzr.click(GetParam().voce);
  ASSERT_THAT(frontEnd.helps, SizeIs(2));
  for (const ScriptedFrontEnd::Help& guida : frontEnd.helps) {
    EXPECT_EQ(guida.file, "/guida/Velatura.chm");
    EXPECT_EQ(guida.command, 15);
    EXPECT_EQ(guida.context, 1);
  }
}

INSTANTIATE_TEST_SUITE_P(Table, HelpKeys,
                         testing::Values(Guida{"F1", 0, "Mnu_HelpOnLine"},
                                         Guida{"ShiftF1", kMaiuscole, "Mnu_Arg"}),
                         [](const auto& caso) { return std::string(caso.param.nome); });

class EscOnAnyStep : public testing::TestWithParam<int>, public WizardProva {};

TEST_P(EscOnAnyStep, AsksTheAbandonQuestionOnce) {
  if (GetParam() == 0) avviaCU();
  if (GetParam() == 1) vaiAllaGriglia();
  if (GetParam() == 2) vaiAllaFine();
  ASSERT_EQ(passo(), GetParam());
  frontEnd.answers = {Answer::No};
  EXPECT_FALSE(form().keyDown(kEsc, 0));
  ASSERT_THAT(frontEnd.boxes, SizeIs(1));
  EXPECT_EQ(frontEnd.boxes[0].text,
            " Confermare l'abbandono dell'autocomposizione stampa certificazione compensi?");
  EXPECT_TRUE(form().isOpen());
  form().keyDown(kEsc, 0);
  EXPECT_FALSE(form().isOpen());
}

INSTANTIATE_TEST_SUITE_P(Steps, EscOnAnyStep, testing::Values(0, 1, 2));

TEST_F(Commands, EscInTheGridAsksTheAbandonQuestionToo) {
  premi(form().optstType[1]);
  form().KRNCboEsCont0.setIndex(0);
  premi(form().cmdNav[3]);
  frontEnd.answers = {Answer::No};
  form().grdCompensi.keyDown(kEsc, 0);
  EXPECT_THAT(frontEnd.boxes, SizeIs(1));
}

TEST_F(Commands, TheRowMenusToolOpensTheEditor) {
  premi(form().optstType[1]);
  form().KRNCboEsCont0.setIndex(0);
  premi(form().cmdNav[3]);
  form().BarMenuWzr.click("ModificaCompenso");
  EXPECT_EQ(frontEnd.shown.back(), "frmCompenso2017");
}

class RowMenusTool : public testing::Test, public WizardProva {
 protected:
  bool abilitata() { return form().BarMenuWzr.toolAvailable(*form().BarMenuWzr.tool("ModificaCompenso")); }
  // Nothing opens, and nothing is sent.
  void premutaInvano() {
    dimentica();
    frontEnd.shown.clear();
    form().BarMenuWzr.click("ModificaCompenso");
    EXPECT_THAT(frontEnd.shown, IsEmpty());
    EXPECT_THAT(istruzioni(), IsEmpty());
  }
};

TEST_F(RowMenusTool, IsEnabledOnTheGridAlone) {
  avviaCU();
  EXPECT_FALSE(abilitata());
  premi(form().cmdNav[3]);
  EXPECT_TRUE(abilitata());
  premi(form().cmdNav[3]);
  ASSERT_EQ(passo(), 2);
  EXPECT_FALSE(abilitata());
  premi(form().cmdNav[2]);
  ASSERT_EQ(passo(), 1);
  EXPECT_TRUE(abilitata());
}

// The rows of the loaded year are still there; the year in the list may be another one.
TEST_F(RowMenusTool, DoesNothingOnTheFirstStepThoughRowsAreLoaded) {
  vaiAllaGriglia();
  frontEnd.answers = {Answer::No};
  premi(form().cmdNav[2]);
  ASSERT_EQ(passo(), 0);
  form().KRNCboEsCont0.setIndex(2);
  EXPECT_FALSE(abilitata());
  premutaInvano();
  premi(form().optstType[0]);
  EXPECT_FALSE(abilitata());
  premutaInvano();
  premi(form().cmdNav[3]);
  ASSERT_EQ(passo(), 2);
  EXPECT_FALSE(abilitata());
  premutaInvano();
}

TEST_F(RowMenusTool, DoesNothingOnTheLastStep) {
  vaiAllaFine();
  premutaInvano();
}

TEST_F(RowMenusTool, IsDisabledWithoutACurrentRow) {
  righe({});
  vaiAllaGriglia();
  ASSERT_EQ(passo(), 1);
  EXPECT_FALSE(abilitata());
  premutaInvano();
}

TEST_F(Commands, AnUnknownToolDoesNothing) {
  dimentica();
  form().BarMenuWzr.click("Mnu_Altro");
  form().BarMenuWzr.click("mnu_helponline");
  EXPECT_THAT(frontEnd.helps, IsEmpty());
  EXPECT_THAT(frontEnd.shown, ElementsAre("frmWizard"));
  EXPECT_EQ(form().oggettoCorrente(), 0);
}

class GuideChapter : public testing::Test, public WizardProva {};

TEST_F(GuideChapter, IsThatOfTheStepAndTheMode) {
  avvia(246);
  EXPECT_EQ(form().guideChapter(), "Stampare i conti individuali");
  form().unload();
  avviaCU();
  EXPECT_EQ(form().guideChapter(), "Scegliere l'anno");
  premi(form().optstType[0]);
  EXPECT_EQ(form().guideChapter(), "Stampare le certificazioni in forma libera");
  premi(form().optstType[1]);
  premi(form().cmdNav[3]);
  EXPECT_EQ(form().guideChapter(), "Scegliere i compensi");
  premi(form().cmdNav[3]);
  EXPECT_EQ(form().guideChapter(), "Firma, intermediario, cartella");
}

TEST_F(GuideChapter, OfAnAnnulmentIsItsOwn) {
  avviaCU();
  form().optTipoComunicazione[1].click();
  EXPECT_EQ(form().guideChapter(), "Annullare e sostituire");
  premi(form().cmdNav[3]);
  EXPECT_EQ(form().guideChapter(), "Annullare e sostituire");
}

}  // namespace
}  // namespace cu::test
