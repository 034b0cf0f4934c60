#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/wizard_prova.h"

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

}  // namespace
}  // namespace cu::test
