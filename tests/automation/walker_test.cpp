// The front end that answers by rules.

#include "automation/walker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "automation/gestures.h"
#include "automation/prova_support.h"

namespace cu::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(Walker, ARefusalIsKeptAndAnsweredWithOk) {
  Walker walker;
  EXPECT_EQ(walker.messageBox({"Manca l'anno", "T", BoxIcon::Warning, BoxButtons::Ok, Answer::Ok}),
            Answer::Ok);
  EXPECT_THAT(walker.messages, ElementsAre("Manca l'anno"));
}

TEST(Walker, AWarningIsPassedOnlyIfSoWanted) {
  Walker walker;
  const MessageBox avviso{"Continuare?", "T", BoxIcon::Question, BoxButtons::OkCancel, Answer::Cancel};
  EXPECT_EQ(walker.messageBox(avviso), Answer::Cancel);
  walker.passWarnings = true;
  EXPECT_EQ(walker.messageBox(avviso), Answer::Ok);
  ASSERT_EQ(walker.warnings.size(), 2U);
  EXPECT_FALSE(walker.warnings[0].passed);
  EXPECT_TRUE(walker.warnings[1].passed);
  EXPECT_THAT(walker.messages, IsEmpty());
}

TEST(Walker, AQuestionGetsItsDefault) {
  Walker walker;
  FrmProva form(walker);
  form.show();
  clickOn(form.cmdChiedi);
  EXPECT_EQ(form.eventi.back(), "risposta 2");
}

TEST(Walker, AnErrorThatNothingCaughtIsAMessage) {
  Walker walker;
  FrmProva form(walker);
  form.show();
  EXPECT_EQ(walker.shown, &form);
  clickOn(form.cmdErrore);
  EXPECT_THAT(walker.messages, ElementsAre("Percorso non trovato"));
  closeBox(form);
  EXPECT_EQ(walker.shown, nullptr);
}

TEST(Walker, AModalFormIsDoneByItsStepsAndClosed) {
  Walker walker;
  std::string nota;
  walker.onForm("frmFiglia", [&](Form& form) {
    typeInto(*form.find("txtNota"), "fatto");
    nota = dynamic_cast<FrmFiglia&>(form).txtNota.text();
  });
  FrmProva form(walker);
  form.show();
  clickOn(form.cmdFiglia);
  EXPECT_EQ(nota, "fatto");
  EXPECT_EQ(form.eventi.back(), "figlia chiusa");
}

TEST(Walker, AModalFormThatNobodyExpectsIsClosed) {
  Walker walker;
  FrmProva form(walker);
  form.show();
  clickOn(form.cmdFiglia);
  EXPECT_EQ(form.eventi.back(), "figlia chiusa");
}

TEST(Walker, DialogsAreAnsweredAndTheRestIsKept) {
  Walker walker;
  walker.folder = "/scelta";
  FrmProva form(walker);
  form.show();
  clickOn(form.cmdCartella);
  EXPECT_EQ(form.eventi.back(), "cartella [/scelta]");
  clickOn(form.cmdStampante);
  EXPECT_EQ(form.eventi.back(), "nessuna");
  clickOn(form.cmdSalva);
  EXPECT_EQ(form.eventi.back(), "file nessuno");
  walker.savedFile = "/scelto.pdf";
  clickOn(form.cmdSalva);
  EXPECT_EQ(form.eventi.back(), "file /scelto.pdf");
  clickOn(form.cmdRegistro);
  ASSERT_EQ(walker.logs.size(), 1U);
  EXPECT_THAT(walker.logs[0].columns, ElementsAre("Campo", "MessageType"));
  clickOn(form.cmdEffetti);
  EXPECT_EQ(walker.prints.size(), 2U);
}

TEST(Gestures, WhatIsOutOfReachIsRefusedAndNothingHappens) {
  Walker walker;
  FrmProva form(walker);
  form.show();
  form.eventi.clear();
  EXPECT_THROW(clickOn(form.cmdSpento), Refused);
  EXPECT_THROW(typeInto(form.txtBloccato, "x"), Refused);
  EXPECT_THROW(selectRow(form.grdRighe, 9), Refused);
  EXPECT_THAT(form.eventi, IsEmpty());
  EXPECT_EQ(form.focus(), &form.txtNome);
}

}  // namespace
}  // namespace cu::test
