// The structure of the conversation: one answer for each command, modals, effects, the end.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "automation/prova_support.h"

namespace cu::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

const std::string kStato = R"({"id":1,"do":"state"})";

TEST(Answers, TheFirstLineComesBeforeAnyCommand) {
  const Dialogo d = parlaTesto("");
  ASSERT_EQ(d.risposte.size(), 2U);
  EXPECT_EQ(d.risposte[0], json::parse(R"({"id":null,"ok":true,"result":null,"windows":["frmProva"],
      "modal":null,"effects":[],"pointer":0,"focus":"frmProva.txtNome","ended":false})"));
}

TEST(Answers, EachCommandGetsExactlyOne) {
  const Dialogo d = parla({kStato, kStato, kStato});
  ASSERT_EQ(d.risposte.size(), 5U);
  EXPECT_EQ(d.a(1)["id"], 1);
}

TEST(Answers, TheMembersStandInTheirOrder) {
  std::istringstream in(kStato);
  std::ostringstream out;
  Driver driver(in, out);
  FrmProva form(driver);
  driver.drive([&] { form.show(); });
  EXPECT_EQ(out.str().substr(0, out.str().find('\n')),
            R"({"id":null,"ok":true,"result":null,"windows":["frmProva"],"modal":null,"effects":[],)"
            R"("pointer":0,"focus":"frmProva.txtNome","ended":false})");
}

TEST(Answers, TheIdComesBackAsItWasGiven) {
  const Dialogo d = parla({R"({"id":"a","do":"state"})", R"({"id":{"n":[1,2.5,null]},"do":"state"})",
                           R"({"do":"state"})", R"({"id":18446744073709551615,"do":"nulla"})"});
  EXPECT_EQ(d.a(1)["id"], "a");
  EXPECT_EQ(d.a(2)["id"], json::parse(R"({"n":[1,2.5,null]})"));
  EXPECT_TRUE(d.a(3)["id"].is_null());
  EXPECT_EQ(d.a(4)["id"], 18446744073709551615ULL);
  EXPECT_FALSE(d.a(4)["ok"]);
}

TEST(Answers, ABoxIsAnsweredBeforeItsHandlerGoesOn) {
  const Dialogo d = parla({R"({"id":5,"do":"click","on":"frmProva.cmdChiedi"})", R"({"id":6,"do":"state"})",
                           R"({"id":7,"do":"answer","with":"no"})"});
  EXPECT_EQ(d.a(1)["id"], 5);
  EXPECT_EQ(d.a(1)["modal"], json::parse(R"({"kind":"message","text":"Prima riga\r\nSeconda","title":"Titolo",
      "icon":"question","buttons":["yes","no","cancel"],"default":"cancel"})"));
  EXPECT_EQ(d.a(2)["modal"], d.a(1)["modal"]);
  EXPECT_EQ(d.a(3)["id"], 7);
  EXPECT_TRUE(d.a(3)["modal"].is_null());
  EXPECT_THAT(d.eventi, Contains("risposta 7"));
}

TEST(Answers, AnAnswerThatTheBoxDoesNotHaveIsRefused) {
  const Dialogo d = parla({R"({"do":"click","on":"frmProva.cmdChiedi"})", R"({"do":"answer","with":"ok"})",
                           R"({"do":"answer","with":3})", R"({"do":"answer","with":{"folder":"/x"}})",
                           R"({"do":"answer","with":"yes"})", R"({"do":"answer","with":"yes"})"});
  for (const std::size_t n : {2U, 3U, 4U}) {
    EXPECT_FALSE(d.a(n)["ok"]);
    EXPECT_EQ(d.a(n)["error"], "la finestra attende una di queste risposte: \"yes\", \"no\", \"cancel\"");
    EXPECT_EQ(d.a(n)["modal"]["kind"], "message");
  }
  EXPECT_TRUE(d.a(5)["ok"]);
  EXPECT_EQ(d.a(6)["error"], "nessuna finestra attende una risposta");
  EXPECT_THAT(d.eventi, Contains("risposta 6"));
}

TEST(Answers, WhileABoxWaitsOnlyReadingAndTheAnswerAreTaken) {
  const Dialogo d = parla(
      {R"({"do":"click","on":"frmProva.cmdChiedi"})", R"({"do":"click","on":"frmProva.chkScelta"})",
       R"({"do":"close","window":"frmProva"})", R"({"do":"key","on":"frmProva","code":27})",
       R"({"do":"menu","tool":"Altrove"})", R"({"do":"get","of":"frmProva.chkScelta"})",
       R"({"do":"tree","of":"frmProva"})", R"({"do":"rows","in":"frmProva.grdRighe","from":1,"count":1})",
       R"({"do":"context"})", R"({"do":"answer","with":"cancel"})"});
  for (const std::size_t n : {2U, 3U, 4U}) {
    EXPECT_EQ(d.a(n)["error"], "una finestra (message) attende una risposta: usare answer");
  }
  EXPECT_EQ(d.a(5)["error"], "la finestra aperta non è un menu");
  for (const std::size_t n : {6U, 7U, 8U, 9U, 10U}) EXPECT_TRUE(d.a(n)["ok"]);
  EXPECT_EQ(d.a(6)["result"]["value"], false);
}

TEST(Answers, AnErrorThatNothingCaughtIsOneBox) {
  const Dialogo d = parla({R"({"do":"click","on":"frmProva.cmdErrore"})",
                           R"({"do":"answer","with":"cancel"})", R"({"do":"answer","with":"ok"})", kStato});
  EXPECT_EQ(d.a(1)["modal"],
            json::parse(R"({"kind":"error","number":76,"text":"Percorso non trovato","buttons":["ok"]})"));
  EXPECT_EQ(d.a(1)["pointer"], 11);
  EXPECT_EQ(d.a(2)["error"], "la finestra attende \"ok\"");
  EXPECT_TRUE(d.a(3)["modal"].is_null());
  EXPECT_EQ(d.a(4)["pointer"], 11);
  EXPECT_EQ(d.a(4)["windows"], json({"frmProva"}));
}

TEST(Answers, AFolderIsChosenOrNot) {
  const Dialogo d =
      parla({R"({"do":"click","on":"frmProva.cmdCartella"})", R"({"do":"answer","with":"ok"})",
             R"({"do":"answer","with":{"folder":""}})", R"({"do":"answer","with":{"folder":"/x","y":1}})",
             R"({"do":"answer","with":{"folder":"/scelta"}})", R"({"do":"answer","with":"cancel"})"});
  EXPECT_EQ(d.a(1)["modal"],
            json::parse(R"({"kind":"folder","title":"Seleziona cartella...","start":"/da qui"})"));
  for (const std::size_t n : {2U, 3U, 4U}) {
    EXPECT_EQ(d.a(n)["error"], "la finestra attende {\"folder\":\"/cartella\"} oppure \"cancel\"");
  }
  EXPECT_EQ(d.a(5)["modal"], json::parse(R"({"kind":"folder","title":"Senza partenza","start":null})"));
  EXPECT_THAT(d.eventi, ElementsAre("prende txtNome", "lascia txtNome", "cartella [/scelta]", "cartella []"));
}

TEST(Answers, APrinterIsChosenOrNot) {
  const std::string premi = R"({"do":"click","on":"frmProva.cmdStampante"})";
  const Dialogo d = parla(
      {premi, R"({"do":"answer","with":{"printer":"laser","copies":0}})",
       R"({"do":"answer","with":{"printer":"laser","copies":18446744073709551615}})",
       R"({"do":"answer","with":{"printer":"laser","copies":"2"}})", R"({"do":"answer","with":{"copies":2}})",
       R"({"do":"answer","with":"ok"})", R"({"do":"answer","with":{"printer":"laser","copies":2}})", premi,
       R"({"do":"answer","with":"cancel"})", premi, R"({"do":"answer","with":{"printer":"getto"}})"});
  EXPECT_EQ(d.a(1)["modal"], json::parse(R"({"kind":"printer"})"));
  for (std::size_t n = 2; n <= 6; ++n) EXPECT_FALSE(d.a(n)["ok"]) << n;
  EXPECT_THAT(d.eventi, ElementsAre("prende txtNome", "lascia txtNome", "laser 2", "nessuna", "getto 1"));
}

TEST(Answers, AFileToSaveIsNamedOrNot) {
  const std::string premi = R"({"do":"click","on":"frmProva.cmdSalva"})";
  const Dialogo d =
      parla({premi, R"({"do":"answer","with":{"file":"/x/b.pdf"}})", premi,
             R"({"do":"answer","with":{"folder":"/x"}})", R"({"do":"answer","with":"cancel"})"});
  EXPECT_EQ(d.a(1)["modal"],
            json::parse(R"({"kind":"save","title":"Salva","start":"/x/a.pdf","filter":"*.pdf"})"));
  EXPECT_FALSE(d.a(4)["ok"]);
  EXPECT_THAT(d.eventi, ElementsAre("prende txtNome", "lascia txtNome", "file /x/b.pdf", "file nessuno"));
}

TEST(Answers, ALogAndAPreviewAreClosedByOk) {
  const Dialogo d =
      parla({R"({"do":"click","on":"frmProva.cmdRegistro"})", R"({"do":"answer","with":"cancel"})",
             R"({"do":"answer","with":"ok"})", R"({"do":"click","on":"frmProva.cmdAnteprima"})",
             R"({"do":"answer","with":"ok"})"});
  EXPECT_EQ(d.a(1)["modal"],
            json::parse(R"({"kind":"log","columns":["Campo","MessageType"],"rows":[["Nome",2]]})"));
  EXPECT_FALSE(d.a(2)["ok"]);
  EXPECT_EQ(d.a(4)["modal"],
            json::parse(R"({"kind":"preview","title":"Conto","pages":["pagina 1","pagina 2"]})"));
  EXPECT_THAT(d.eventi,
              ElementsAre("prende txtNome", "lascia txtNome", "registro chiuso", "anteprima chiusa"));
}

TEST(Answers, EffectsAreToldOnceInTheirOrder) {
  const Dialogo d = parla(
      {R"({"do":"click","on":"frmProva.cmdEffetti"})", R"({"do":"click","on":"frmProva.lnkAiuto"})", kStato});
  EXPECT_EQ(d.a(1)["effects"], json::parse(R"([
      {"help":{"file":"/guida/Velatura.chm","command":15,"context":100}},{"beep":1},{"beep":1},
      {"viewer":"/x/a.cur"},
      {"printed":{"kind":6,"report":"Uno.rpt","formula":"{x} = 1","code":3,"file":"/x/a.cur","printer":"",
                  "copies":null}},
      {"printed":{"kind":2,"report":"Uno.rpt","formula":"","code":null,"file":"","printer":"laser",
                  "copies":2}}])"));
  EXPECT_EQ(d.a(2)["effects"],
            json::parse(R"([{"open":{"path":"/cartella con spazi","folder":"/cartella con spazi"}}])"));
  EXPECT_EQ(d.a(3)["effects"], json::array());
}

TEST(Answers, AModalFormStandsBeforeTheOther) {
  const Dialogo d = parla(
      {R"({"id":1,"do":"click","on":"frmProva.cmdFiglia"})",
       R"({"id":2,"do":"click","on":"frmProva.cmdEsci"})", R"({"id":3,"do":"get","of":"frmProva.cmdEsci"})",
       R"({"id":4,"do":"enter","in":"frmFiglia.txtNota","text":"ciao"})",
       R"({"id":5,"do":"close","window":"frmProva"})", R"({"id":6,"do":"menu","tool":"Altrove"})",
       R"({"id":7,"do":"click","on":"frmFiglia.cmdOk"})"});
  EXPECT_EQ(d.a(1)["id"], 1);
  EXPECT_EQ(d.a(1)["windows"], json({"frmProva", "frmFiglia"}));
  EXPECT_TRUE(d.a(1)["modal"].is_null());
  EXPECT_EQ(d.a(1)["focus"], "frmFiglia.txtNota");
  EXPECT_EQ(d.a(2)["error"], "frmProva attende che si chiuda frmFiglia");
  EXPECT_TRUE(d.a(3)["ok"]);
  EXPECT_TRUE(d.a(4)["ok"]);
  EXPECT_EQ(d.a(5)["error"], "frmProva attende che si chiuda frmFiglia");
  EXPECT_EQ(d.a(6)["error"], "frmFiglia non ha una barra dei menu");
  EXPECT_EQ(d.a(7)["id"], 7);
  EXPECT_EQ(d.a(7)["windows"], json({"frmProva"}));
  EXPECT_EQ(d.a(7)["focus"], "frmProva.cmdFiglia");
  EXPECT_EQ(d.eventi.back(), "figlia chiusa");
}

TEST(Answers, ABoxOverAModalFormNests) {
  const Dialogo d = parla({R"({"do":"click","on":"frmProva.cmdFiglia"})",
                           R"({"do":"click","on":"frmFiglia.cmdAnnulla"})", R"({"do":"answer","with":"no"})",
                           R"({"do":"key","on":"frmFiglia","code":27})", R"({"do":"answer","with":"yes"})"});
  EXPECT_EQ(d.a(2)["modal"]["text"], "Chiudere?");
  EXPECT_EQ(d.a(3)["windows"], json({"frmProva", "frmFiglia"}));
  EXPECT_EQ(d.a(4)["modal"]["text"], "Chiudere?");
  EXPECT_EQ(d.a(5)["windows"], json({"frmProva"}));
}

TEST(Answers, ClosingTheLastFormEndsTheConversation) {
  for (const char* comando :
       {R"({"id":9,"do":"close","window":"frmProva"})", R"({"id":9,"do":"click","on":"frmProva.cmdEsci"})"}) {
    const Dialogo d = parla({comando, kStato});
    ASSERT_EQ(d.risposte.size(), 2U);
    EXPECT_EQ(d.ultima(), json::parse(R"({"id":9,"ok":true,"result":null,"windows":[],"modal":null,
        "effects":[],"pointer":0,"focus":null,"ended":true})"));
    EXPECT_EQ(d.esito, Driver::Outcome::Ended);
    EXPECT_EQ(d.scarichi, 1);
  }
}

TEST(Answers, AFormThatRefusesItsCloseBoxStaysOpen) {
  const Dialogo d =
      parla({R"({"do":"close","window":"frmProva"})"}, [](FrmProva& form) { form.rifiuta = true; });
  EXPECT_TRUE(d.a(1)["ok"]);
  EXPECT_EQ(d.a(1)["windows"], json({"frmProva"}));
}

TEST(Answers, TheEndOfTheInputUnloadsWithoutAQuestion) {
  const Dialogo d = parla({kStato}, [](FrmProva& form) { form.rifiuta = true; });
  ASSERT_EQ(d.risposte.size(), 3U);
  EXPECT_TRUE(d.ultima()["ended"]);
  EXPECT_TRUE(d.ultima()["id"].is_null());
  EXPECT_EQ(d.ultima()["windows"], json::array());
  EXPECT_EQ(d.esito, Driver::Outcome::InputEnded);
  EXPECT_EQ(d.scarichi, 1);
}

TEST(Answers, TheEndOfTheInputWhileSomethingWaitsStopsTheHandlerThere) {
  for (const char* bottone : {"cmdChiedi", "cmdErrore", "cmdCartella", "cmdStampante", "cmdSalva",
                              "cmdRegistro", "cmdAnteprima", "cmdFiglia"}) {
    const Dialogo d = parla({R"({"do":"click","on":"frmProva.)" + std::string(bottone) + "\"}"});
    EXPECT_TRUE(d.ultima()["ended"]) << bottone;
    EXPECT_TRUE(d.ultima()["modal"].is_null()) << bottone;
    EXPECT_EQ(d.ultima()["windows"], json::array()) << bottone;
    EXPECT_EQ(d.scarichi, 1) << bottone;
    EXPECT_THAT(d.eventi, ElementsAre("prende txtNome", "lascia txtNome")) << bottone;
  }
  const Dialogo popup = parla({R"({"do":"press","in":"frmProva.grdRighe","row":1,"column":"Popup"})"});
  EXPECT_TRUE(popup.ultima()["ended"]);
}

TEST(Answers, TheEndOfTheInputInTheMiddleOfALineTakesTheLine) {
  const Dialogo d = parlaTesto(std::string(R"({"id":3,"do":"state"})"));
  ASSERT_EQ(d.risposte.size(), 3U);
  EXPECT_EQ(d.a(1)["id"], 3);
  const Dialogo rotta = parlaTesto(std::string(R"({"id":3,"do":)"));
  EXPECT_EQ(rotta.a(1)["error"], "la riga non è JSON valido");
}

TEST(Answers, AnErrorOfTheEntryIsTheLastThing) {
  std::istringstream in("{\"id\":1,\"do\":\"answer\",\"with\":\"ok\"}\n");
  std::ostringstream out;
  Driver driver(in, out);
  FrmProva form(driver);
  const auto esito = driver.drive([&] {
    form.show();
    throw Error(-2147211502, "No processes to execute\r\n");
  });
  EXPECT_EQ(esito, Driver::Outcome::EntryFailed);
  std::istringstream righe(out.str());
  std::string riga;
  std::getline(righe, riga);
  EXPECT_EQ(json::parse(riga)["windows"], json({"frmProva"}));
  EXPECT_EQ(json::parse(riga)["modal"], json::parse(R"({"kind":"error","number":-2147211502,
      "text":"No processes to execute\r\n","buttons":["ok"]})"));
  std::getline(righe, riga);
  EXPECT_EQ(json::parse(riga)["id"], 1);
  EXPECT_EQ(json::parse(riga)["windows"], json::array());
  EXPECT_TRUE(json::parse(riga)["ended"]);
  EXPECT_FALSE(std::getline(righe, riga));
}

TEST(Answers, AnErrorOfTheEntryThatNobodyAnswersEndsQuietly) {
  std::istringstream in("");
  std::ostringstream out;
  Driver driver(in, out);
  EXPECT_EQ(driver.drive([] { throw Error(5, "x"); }), Driver::Outcome::InputEnded);
}

TEST(Answers, AnEntryThatShowsNothingGivesOneLine) {
  std::istringstream in(kStato);
  std::ostringstream out;
  Driver driver(in, out);
  EXPECT_EQ(driver.drive([] {}), Driver::Outcome::Ended);
  EXPECT_EQ(json::parse(out.str()), json::parse(R"({"id":null,"ok":true,"result":null,"windows":[],
      "modal":null,"effects":[],"pointer":0,"focus":null,"ended":true})"));
}

TEST(Answers, AnOutputThatIsGoneEndsTheConversation) {
  std::istringstream in(kStato + "\n" + kStato + "\n");
  std::ostringstream out;
  out.setstate(std::ios::badbit);
  Driver driver(in, out);
  FrmProva form(driver);
  EXPECT_EQ(driver.drive([&] { form.show(); }), Driver::Outcome::InputEnded);
  EXPECT_EQ(form.scarichi, 1);
}

TEST(Answers, BytesThatAreNoUtf8DoNotSpoilTheLine) {
  const Dialogo d = parla({R"({"do":"get","of":"frmProva.lblEtichetta"})"},
                          [](FrmProva& form) { form.lblEtichetta.setCaption("perch\xe9"); });
  EXPECT_EQ(d.a(1)["result"]["caption"], "perch\xEF\xBF\xBD");
}

}  // namespace
}  // namespace cu::test
