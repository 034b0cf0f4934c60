// The front end of the commands without forms.

#include "apps/comune/terminale.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "base/error.h"
#include "controls/form.h"

namespace cu::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(Terminal, ARefusalIsKeptAndAnsweredWithOk) {
  Terminale terminale;
  EXPECT_EQ(terminale.messageBox({"Manca l'anno", "T", BoxIcon::Warning, BoxButtons::Ok, Answer::Ok}),
            Answer::Ok);
  EXPECT_THAT(terminale.messaggi, ElementsAre("Manca l'anno"));
}

TEST(Terminal, AWarningIsPassedOnlyIfSoWanted) {
  Terminale terminale;
  const MessageBox avviso{"Continuare?", "T", BoxIcon::Question, BoxButtons::OkCancel, Answer::Cancel};
  EXPECT_EQ(terminale.messageBox(avviso), Answer::Cancel);
  terminale.passaAvvisi = true;
  EXPECT_EQ(terminale.messageBox(avviso), Answer::Ok);
  ASSERT_EQ(terminale.avvisi.size(), 2U);
  EXPECT_FALSE(terminale.avvisi[0].passato);
  EXPECT_TRUE(terminale.avvisi[1].passato);
  EXPECT_THAT(terminale.messaggi, IsEmpty());
}

TEST(Terminal, AQuestionGetsItsDefault) {
  Terminale terminale;
  for (const Answer risposta : {Answer::Yes, Answer::No}) {
    EXPECT_EQ(terminale.messageBox({"?", "T", BoxIcon::Question, BoxButtons::YesNo, risposta}), risposta);
  }
}

TEST(Terminal, AnErrorThatNothingCaughtIsAMessage) {
  Terminale terminale;
  terminale.runEvent([] { throw Error(76, "Percorso non trovato"); });
  EXPECT_THAT(terminale.messaggi, ElementsAre("Percorso non trovato"));
}

TEST(Terminal, DialogsAreAnsweredAndTheRestIsKept) {
  Terminale terminale;
  EXPECT_EQ(terminale.chooseFileToSave("", "", ""), std::nullopt);
  terminale.fileDaSalvare = "/scelto.pdf";
  EXPECT_EQ(terminale.chooseFileToSave("", "", ""), "/scelto.pdf");
  EXPECT_EQ(terminale.choosePrinter(), std::nullopt);
  terminale.showLog({{"Campo"}, {}});
  EXPECT_EQ(terminale.registri.size(), 1U);
  EXPECT_TRUE(terminale.stampe.empty());
  const auto stampata = [](const char* report, const char* file, bool fatta) {
    PrintNote nota;
    nota.report = report;
    nota.file = file;
    nota.written = fatta;
    return nota;
  };
  terminale.printed(stampata("Modulo.rpt", "/cu/uno.pdf", true));
  terminale.printed(stampata("Modulo.rpt", "/cu/due.pdf", false));
  terminale.printed(stampata("Conti.rpt", "senza cartella.pdf", true));
  terminale.printed({});
  ASSERT_EQ(terminale.stampe.size(), 4U);
  EXPECT_EQ(terminale.stampe[0].file, "/cu/uno.pdf");
  EXPECT_TRUE(terminale.stampe[0].fatta);
  EXPECT_EQ(terminale.stampe[1].file, "/cu/due.pdf");
  EXPECT_EQ(terminale.stampe[1].report, "Modulo.rpt");
  EXPECT_FALSE(terminale.stampe[1].fatta);
  EXPECT_EQ(terminale.stampe[2].file, "senza cartella.pdf");
  EXPECT_EQ(terminale.stampe[2].report, "Conti.rpt");
  EXPECT_EQ(terminale.stampe[3].file, "");
}

TEST(Terminal, NoFormIsShown) {
  class Finestra : public Form {
   public:
    explicit Finestra(FrontEnd& schermo) : Form(schermo, "frmProva") {}
  };
  Terminale terminale;
  Finestra finestra(terminale);
  EXPECT_THROW(finestra.show(), std::logic_error);
  Finestra dialogo(terminale);
  EXPECT_THROW(dialogo.showModal(), std::logic_error);
}

}  // namespace
}  // namespace cu::test
