#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "controls/numericbox.h"
#include "wizard/wizard_prova.h"

namespace cu::test {
namespace {

using testing::IsEmpty;

class HelpAndAbandon : public testing::Test, public WizardProva {};

TEST_F(HelpAndAbandon, HelpOpensAtTheSessionsContext) {
  factory.prepareSession = [](FakeSession& sessione) { sessione.context = 4711; };
  modMain.main();
  premi(form().cmdNav[0]);
  ASSERT_EQ(frontEnd.helps.size(), 1U);
  EXPECT_EQ(frontEnd.helps[0].file, "/guida/Velatura.chm");
  EXPECT_EQ(frontEnd.helps[0].command, 15);
  EXPECT_EQ(frontEnd.helps[0].context, 4711);
}

struct Abbandono {
  int modo;
  const char* domanda;
};

class Abandoning : public testing::TestWithParam<Abbandono>, public WizardProva {};

TEST_P(Abandoning, AsksInTheWordsOfTheMode) {
  if (GetParam().modo == 342) {
    vaiAllaGriglia();
  } else {
    avvia(GetParam().modo);
  }
  frontEnd.answers = {Answer::No};
  premi(form().cmdNav[1]);
  ASSERT_EQ(frontEnd.boxes.size(), 1U);
  EXPECT_EQ(frontEnd.boxes[0].text, GetParam().domanda);
  EXPECT_EQ(frontEnd.boxes[0].title, "Quadrivio");
  EXPECT_EQ(frontEnd.boxes[0].icon, BoxIcon::Question);
  EXPECT_EQ(frontEnd.boxes[0].buttons, BoxButtons::YesNo);
  EXPECT_TRUE(form().isOpen());
}

INSTANTIATE_TEST_SUITE_P(
    Modes, Abandoning,
    testing::Values(
        Abbandono{246, "Confermare l'abbandono dell'autocomposizione stampa conti individuali?"},
        Abbandono{247, " Confermare l'abbandono dell'autocomposizione stampa certificazione compensi?"},
        Abbandono{342, " Confermare l'abbandono dell'autocomposizione stampa certificazione compensi?"}),
    [](const auto& caso) { return "Mode" + std::to_string(caso.param.modo); });

TEST_F(HelpAndAbandon, AbandoningFromTheGridAsksNothingAboutTheEditsAndWritesNone) {
  vaiAllaGriglia();
  form().grdCompensi.rows()->Set("Modificato", Value::ofFlag(true));
  form().grdCompensi.rows()->Update();
  dimentica();
  frontEnd.answers = {Answer::Yes};
  premi(form().cmdNav[1]);
  EXPECT_FALSE(form().isOpen());
  EXPECT_EQ(frontEnd.boxes.size(), 1U);
  EXPECT_THAT(istruzioni(), IsEmpty());
}

class ClosingTheWindow : public testing::Test, public WizardProva {
 protected:
  void correggi(std::size_t riga) {
    frontEnd.modals.push_back([](Form& editor) {
      dynamic_cast<AmountBox&>(*editor.find("curField(19)")).enter("7");
      dynamic_cast<Button&>(*editor.find("cmdOk")).click();
    });
    form().grdCompensi.doubleClick(riga);
  }
};

TEST_F(ClosingTheWindow, LosesTheRowsThatNoWriteBackHasStored) {
  vaiAllaGriglia();
  EXPECT_EQ(form().unsavedWork(), "");
  correggi(1);
  EXPECT_EQ(form().unsavedWork(), "Un compenso corretto non è ancora stato memorizzato nei conti.");
  correggi(2);
  EXPECT_EQ(form().unsavedWork(), "2 compensi corretti non sono ancora stati memorizzati nei conti.");
  premi(form().cmdNav[3]);
  ASSERT_EQ(passo(), 2);
  EXPECT_NE(form().unsavedWork(), "");
  dimentica();
  form().close();
  EXPECT_FALSE(form().isOpen());
  EXPECT_THAT(frontEnd.boxes, IsEmpty()) << "the form itself asks nothing";
}

TEST_F(ClosingTheWindow, LosesNothingOnceTheQuestionOnTheWayBackIsAnswered) {
  vaiAllaGriglia();
  correggi(1);
  frontEnd.answers = {Answer::No};
  premi(form().cmdNav[2]);
  ASSERT_EQ(passo(), 0);
  EXPECT_EQ(form().unsavedWork(), "");
}

TEST_F(ClosingTheWindow, LosesNothingInThePrintsThatFollow) {
  vaiAllaGriglia();
  correggi(1);
  frontEnd.answers = {Answer::No};
  premi(form().cmdNav[2]);
  premi(form().optstType[0]);
  premi(form().cmdNav[3]);
  ASSERT_EQ(passo(), 2);
  EXPECT_EQ(form().unsavedWork(), "");
}

TEST_F(ClosingTheWindow, LosesNothingOfAStoredRowThatAnEditorLeavesAsItWas) {
  avviaCU();
  form().optTipoComunicazione[2].click();
  premi(form().cmdNav[3]);
  frontEnd.modals.push_back([](Form& dialogo) {
    dynamic_cast<TextBox&>(*dialogo.find("txtProtocollo")).enter("12345678901234567");
    dynamic_cast<TextBox&>(*dialogo.find("txtProgressivo")).enter("123456");
    dynamic_cast<Button&>(*dialogo.find("cmdOk")).click();
  });
  premi(form().cmdProtocollo);
  EXPECT_NE(form().unsavedWork(), "");
  premi(form().cmdNav[3]);
  ASSERT_EQ(passo(), 2);
  form().dtDataFirma.enter("");
  premi(form().cmdNav[4]);
  ASSERT_EQ(passo(), 2) << "the checks stop the run behind the write-back";
  EXPECT_EQ(form().unsavedWork(), "");
  premi(form().cmdNav[2]);
  ASSERT_EQ(passo(), 1);
  frontEnd.modals.push_back([](Form& editor) { dynamic_cast<Button&>(*editor.find("cmdOk")).click(); });
  form().grdCompensi.doubleClick(1);
  EXPECT_EQ(form().unsavedWork(), "");
}

}  // namespace
}  // namespace cu::test
