#include "wizard/frm_protocollo.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "support/scripted_front_end.h"
#include "support/simple_utility.h"
#include "worklist/riferimenti.h"

namespace cu::test {
namespace {

using testing::ElementsAre;

class ReferencesDialog : public testing::Test {
 protected:
  // Opens the dialog and runs the user's action; closes the dialog afterwards if it is still open.
  void apri(const std::function<void(FrmProtocollo&)>& azione) {
    frontEnd.modals.push_back([&](Form& form) { azione(dynamic_cast<FrmProtocollo&>(form)); });
    dialogo.showModal();
  }

  ScriptedFrontEnd frontEnd;
  SimpleUtility utilita{frontEnd};
  FrmProtocollo dialogo{frontEnd, utilita};
};

TEST_F(ReferencesDialog, ShowsItsTextsWordForWord) {
  EXPECT_EQ(dialogo.name(), "frmProtocollo");
  EXPECT_EQ(dialogo.caption(), "Protocollo annullamento/sostituzione");
  EXPECT_EQ(dialogo.lblStep.caption(),
            "Aggiorna i riferimenti per l'annullamento o la sostituzione dei compensi selezionati.");
  EXPECT_EQ(dialogo.fraRiferimenti.caption(), "Riferimenti per annullamento/sostituzione");
  EXPECT_EQ(dialogo.lblProtocollo.caption(), "Protocollo");
  EXPECT_EQ(dialogo.lblProgressivo.caption(), "Progressivo");
  EXPECT_EQ(dialogo.chkSovrascrivi.caption(), "Aggiorna dove già presente");
  EXPECT_EQ(dialogo.cmdOk.caption(), "OK");
  EXPECT_EQ(dialogo.cmdAnnulla.caption(), "Annulla");
}

TEST_F(ReferencesDialog, ItsControlsBearTheirNamesAndStandInTheirFrame) {
  std::vector<std::string> nellaCornice;
  std::vector<std::string> altri;
  for (const Control* controllo : dialogo.controls()) {
    (controllo->frame() == &dialogo.fraRiferimenti ? nellaCornice : altri).push_back(controllo->name());
  }
  EXPECT_THAT(nellaCornice, ElementsAre("lblProtocollo", "txtProtocollo", "lblProgressivo", "txtProgressivo",
                                        "chkSovrascrivi"));
  EXPECT_THAT(altri, ElementsAre("lblStep", "fraRiferimenti", "cmdOk", "cmdAnnulla"));
}

TEST_F(ReferencesDialog, OpensWithEmptyBoxesTheCheckOnAndOkDisabled) {
  apri([](FrmProtocollo& form) {
    EXPECT_EQ(form.txtProtocollo.text(), "");
    EXPECT_EQ(form.txtProgressivo.text(), "");
    EXPECT_TRUE(form.chkSovrascrivi.value());
    EXPECT_FALSE(form.cmdOk.enabled());
    EXPECT_TRUE(form.cmdAnnulla.enabled());
  });
  EXPECT_THAT(utilita.prepared, ElementsAre("frmProtocollo"));
}

TEST_F(ReferencesDialog, BoxesHoldSeventeenAndSixCharacters) {
  dialogo.txtProtocollo.enter("123456789012345678");
  EXPECT_EQ(dialogo.txtProtocollo.text(), "12345678901234567");
  dialogo.txtProgressivo.enter("1234567");
  EXPECT_EQ(dialogo.txtProgressivo.text(), "123456");
  dialogo.txtProgressivo.paste("abcdefgh");
  EXPECT_EQ(dialogo.txtProgressivo.text(), "abcdef");
}

// Digits, and the characters with the codes 8, 9, 12, 37 to 40 and 46.
TEST_F(ReferencesDialog, DigitsAndEightOtherCodesAreTheOnlyOnesLetThrough) {
  const std::set<char32_t> ammessi = {8, 9, 12, 37, 38, 39, 40, 46, 48, 49, 50, 51, 52, 53, 54, 55, 56, 57};
  for (char32_t carattere = 1; carattere < 400; ++carattere) {
    EXPECT_EQ(tastoRiferimento(carattere), ammessi.contains(carattere)) << static_cast<unsigned>(carattere);
  }
  EXPECT_FALSE(tastoRiferimento(0x20AC));
  EXPECT_FALSE(tastoRiferimento(0xFF10));
}

TEST_F(ReferencesDialog, ADroppedCharacterBeepsInEitherBox) {
  dialogo.txtProtocollo.enter("1a2b3");
  EXPECT_EQ(dialogo.txtProtocollo.text(), "123");
  EXPECT_EQ(frontEnd.beeps, 2);
  dialogo.txtProgressivo.enter("-4 €");
  EXPECT_EQ(dialogo.txtProgressivo.text(), "4");
  EXPECT_EQ(frontEnd.beeps, 5);
}

TEST_F(ReferencesDialog, PercentAmpersandApostropheParenthesisAndFullStopAreAccepted) {
  dialogo.txtProtocollo.enter("%&'(.)");
  EXPECT_EQ(dialogo.txtProtocollo.text(), "%&'(.");
  EXPECT_EQ(frontEnd.beeps, 1);
}

TEST_F(ReferencesDialog, OneOfTheTwoBoxesIsEnoughForOk) {
  dialogo.txtProtocollo.enter("1");
  EXPECT_TRUE(dialogo.cmdOk.enabled());
  dialogo.txtProtocollo.enter("");
  EXPECT_FALSE(dialogo.cmdOk.enabled());
  dialogo.txtProgressivo.enter("1");
  EXPECT_TRUE(dialogo.cmdOk.enabled());
  dialogo.txtProtocollo.enter("2");
  dialogo.txtProgressivo.enter("");
  EXPECT_TRUE(dialogo.cmdOk.enabled());
}

TEST_F(ReferencesDialog, PastedBlanksLeaveOkDisabled) {
  dialogo.txtProtocollo.paste("   ");
  EXPECT_EQ(dialogo.txtProtocollo.text(), "   ");
  EXPECT_FALSE(dialogo.cmdOk.enabled());
  dialogo.txtProgressivo.paste("  ");
  EXPECT_FALSE(dialogo.cmdOk.enabled());
}

TEST_F(ReferencesDialog, OkHandsOverTheTextsUntrimmedAndTheCheck) {
  apri([](FrmProtocollo& form) {
    form.txtProtocollo.paste(" 12 ");
    form.txtProgressivo.enter("3");
    form.chkSovrascrivi.click();
    form.cmdOk.click();
    EXPECT_FALSE(form.isOpen());
  });
  EXPECT_TRUE(dialogo.OK());
  EXPECT_EQ(dialogo.Protocollo(), " 12 ");
  EXPECT_EQ(dialogo.Progressivo(), "3");
  EXPECT_FALSE(dialogo.Sovrascrivi());
}

TEST_F(ReferencesDialog, OkWithTheCheckOnSaysSo) {
  apri([](FrmProtocollo& form) {
    form.txtProtocollo.enter("12");
    form.cmdOk.click();
  });
  EXPECT_TRUE(dialogo.OK());
  EXPECT_TRUE(dialogo.Sovrascrivi());
}

TEST_F(ReferencesDialog, CancelIsNotOk) {
  apri([](FrmProtocollo& form) {
    form.txtProtocollo.enter("12");
    form.cmdAnnulla.click();
    EXPECT_FALSE(form.isOpen());
  });
  EXPECT_FALSE(dialogo.OK());
}

TEST_F(ReferencesDialog, ClosedInAnyOtherWayItIsNotOk) {
  apri([](FrmProtocollo& form) {
    form.txtProtocollo.enter("12");
    form.close();
    EXPECT_FALSE(form.isOpen());
  });
  EXPECT_FALSE(dialogo.OK());
}

TEST_F(ReferencesDialog, EnterPressesOkOnceItIsEnabledAndEscPressesCancel) {
  apri([](FrmProtocollo& form) {
    form.keyDown(13, 0);
    EXPECT_TRUE(form.isOpen());
    form.txtProgressivo.enter("1");
    form.keyDown(13, 0);
    EXPECT_FALSE(form.isOpen());
  });
  EXPECT_TRUE(dialogo.OK());
  FrmProtocollo altro(frontEnd, utilita);
  frontEnd.modals.push_back([](Form& form) {
    form.keyDown(27, 0);
    EXPECT_FALSE(form.isOpen());
  });
  altro.showModal();
  EXPECT_FALSE(altro.OK());
}

TEST_F(ReferencesDialog, GivesNoMessage) {
  apri([](FrmProtocollo& form) {
    form.txtProtocollo.enter("1");
    form.cmdOk.click();
  });
  EXPECT_TRUE(frontEnd.boxes.empty());
}

}  // namespace
}  // namespace cu::test
