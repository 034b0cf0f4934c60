// The effect of each command.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "automation/prova_support.h"

namespace cu::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// The events in the form after it had opened.
std::vector<std::string> eventi(const std::vector<std::string>& comandi) {
  const Dialogo d = parla(comandi);
  for (std::size_t n = 1; n <= comandi.size(); ++n) EXPECT_TRUE(d.a(n)["ok"]) << d.a(n);
  return {d.eventi.begin() + 1, d.eventi.end()};
}

json proprieta(const std::string& nome, const std::function<void(FrmProva&)>& prepara = {}) {
  return parla({R"({"do":"get","of":"frmProva.)" + nome + "\"}"}, prepara).a(1)["result"];
}

TEST(Commands, AClickPressesWhatCanBePressed) {
  EXPECT_THAT(
      eventi({R"({"do":"click","on":"frmProva.chkScelta"})", R"({"do":"click","on":"frmProva.chkScelta"})",
              R"_({"do":"click","on":"frmProva.optModo(1)"})_",
              R"_({"do":"click","on":"frmProva.optModo(1)"})_"}),
      ElementsAre("lascia txtNome", "sì", "no", "modo 1", "modo 1"));
}

TEST(Commands, TheFocusIsLostBeforeAnythingElseHappens) {
  const Dialogo d = parla({R"({"do":"click","on":"frmProva.chkScelta"})"});
  EXPECT_THAT(d.eventi, ElementsAre("prende txtNome", "lascia txtNome", "sì"));
  EXPECT_EQ(d.a(1)["focus"], "frmProva.chkScelta");
}

TEST(Commands, ReadingTouchesNothing) {
  const Dialogo d =
      parla({R"({"do":"get","of":"frmProva.chkScelta"})", R"({"do":"tree","of":"frmProva"})",
             R"({"do":"rows","in":"frmProva.grdRighe","from":1,"count":3})", R"({"do":"context"})"});
  EXPECT_THAT(d.eventi, ElementsAre("prende txtNome"));
  EXPECT_EQ(d.a(4)["focus"], "frmProva.txtNome");
}

TEST(Commands, TypingGoesCharacterByCharacter) {
  EXPECT_THAT(eventi({R"({"do":"enter","in":"frmProva.txtNome","text":"aè€"})"}),
              ElementsAre("cambia a", "cambia aè", "cambia aè€"));
}

TEST(Commands, TypingMeetsTheKeyFilterAndTheLength) {
  const Dialogo d = parla({R"({"do":"enter","in":"frmProva.txtNome","text":"1#2#3456"})"});
  EXPECT_THAT(d.eventi, ElementsAre("prende txtNome", "cambia 1", "cambia 12", "cambia 123", "cambia 1234",
                                    "cambia 12345"));
  EXPECT_EQ(d.a(1)["effects"], json::parse(R"([{"beep":1},{"beep":1}])"));
}

TEST(Commands, TypingReplacesTheContentAndNothingTypedDeletesIt) {
  const auto prima = [](FrmProva& form) { form.txtNome.setText("vecc"); };
  const Dialogo scritto = parla({R"({"do":"enter","in":"frmProva.txtNome","text":"ab"})"}, prima);
  EXPECT_THAT(scritto.eventi, ElementsAre("cambia vecc", "prende txtNome", "cambia a", "cambia ab"));
  const Dialogo vuoto = parla({R"({"do":"enter","in":"frmProva.txtNome","text":""})"}, prima);
  EXPECT_THAT(vuoto.eventi, ElementsAre("cambia vecc", "prende txtNome", "cambia "));
}

TEST(Commands, APasteIsOneStepPastTheFilterButNotPastTheLength) {
  const Dialogo d = parla({R"({"do":"paste","in":"frmProva.txtNome","text":"##3456"})"});
  EXPECT_THAT(d.eventi, ElementsAre("prende txtNome", "cambia ##345"));
  EXPECT_EQ(d.a(1)["effects"], json::array());
}

TEST(Commands, ADateIsTypedAsText) {
  const Dialogo d = parla({R"({"do":"enter","in":"frmProva.dtGiorno","text":"05/03/2017"})",
                           R"({"do":"get","of":"frmProva.dtGiorno"})",
                           R"({"do":"enter","in":"frmProva.dtGiorno","text":"ieri"})",
                           R"({"do":"get","of":"frmProva.dtGiorno"})"});
  EXPECT_EQ(d.a(2)["result"], json::parse(R"({"kind":"date","enabled":true,"visible":true,
      "text":"05/03/2017","value":42799,"background":"window"})"));
  EXPECT_EQ(d.a(4)["result"]["text"], "ieri");
  EXPECT_EQ(d.a(4)["result"]["value"], 0);
}

TEST(Commands, AnEntryIsChosenByIndexTextOrKey) {
  EXPECT_THAT(eventi({R"({"do":"choose","in":"frmProva.cboElenco","index":1})",
                      R"({"do":"choose","in":"frmProva.cboElenco","text":"2017"})",
                      R"({"do":"choose","in":"frmProva.cboElenco","record":16})",
                      R"({"do":"choose","in":"frmProva.cboElenco","index":-1})"}),
              ElementsAre("lascia txtNome", "elenco 1", "elenco 0", "elenco 1", "elenco -1"));
}

TEST(Commands, ASelectorTakesARowOfItsTableOrATextAsItStands) {
  const Dialogo d = parla({R"({"do":"choose","in":"frmProva.selReparto","code":"B"})",
                           R"({"do":"get","of":"frmProva.selReparto"})",
                           R"({"do":"choose","in":"frmProva.selReparto","code":"","description":"Senza"})",
                           R"({"do":"get","of":"frmProva.selReparto"})",
                           R"({"do":"choose","in":"frmProva.selReparto","record":2})",
                           R"({"do":"choose","in":"frmProva.selReparto","code":"","description":""})",
                           R"({"do":"get","of":"frmProva.selReparto"})"});
  EXPECT_EQ(d.a(2)["result"], json::parse(R"({"kind":"selector","enabled":true,"visible":true,"record":2,
      "code":"B","description":"Bravo","table":"Reparti","filter":"IDAzienda = 1","codeField":"Codice",
      "descriptionField":"Reparto","idField":"IDReparto","codeCaption":"Codice",
      "descriptionCaption":"Reparto","title":"Reparti","manage":false,"search":true})"));
  EXPECT_EQ(d.a(4)["result"]["description"], "Senza");
  EXPECT_TRUE(d.a(4)["result"]["record"].is_null());
  EXPECT_EQ(d.a(7)["result"]["description"], "");
  EXPECT_THAT(d.eventi, ElementsAre("prende txtNome", "lascia txtNome", "reparto B", "reparto ", "reparto B",
                                    "reparto "));
}

TEST(Commands, WhatTheDatabaseRefusesALookUpIsAnErrorBox) {
  const Dialogo d = parla(
      {R"({"do":"choose","in":"frmProva.selReparto","code":"GUASTO"})", R"({"do":"answer","with":"ok"})"});
  EXPECT_EQ(d.a(1)["modal"]["kind"], "error");
  EXPECT_EQ(d.a(1)["modal"]["number"], kErrorDatabase);
  EXPECT_TRUE(d.a(2)["ok"]);
  EXPECT_THAT(d.eventi, ElementsAre("prende txtNome"));
}

TEST(Commands, ThePrintControlTakesReportAndOutput) {
  const Dialogo d = parla({R"({"do":"choose","in":"frmProva.prnStampa","report":"Due.rpt","output":4})",
                           R"({"do":"get","of":"frmProva.prnStampa"})"},
                          [](FrmProva& form) {
                            PrintControl::Setup impianto;
                            impianto.objectType = 247;
                            form.prnStampa.initialise(impianto);
                          });
  EXPECT_EQ(d.a(2)["result"], json::parse(R"({"kind":"print","enabled":true,"visible":true,
      "reports":["Uno.rpt","Due.rpt"],"report":"Due.rpt","definition":2,"objectType":247,"output":4,
      "choice":true,"toFile":false})"));
}

TEST(Commands, TheFocusIsGivenAndTakenAway) {
  const Dialogo d =
      parla({R"({"do":"focus","on":"frmProva.cmdChiedi"})", R"({"do":"focus","on":"frmProva.txtNome"})",
             R"({"do":"leave","of":"frmProva.txtNome"})", R"({"do":"leave","of":"frmProva.txtNome"})"});
  EXPECT_EQ(d.a(1)["focus"], "frmProva.cmdChiedi");
  EXPECT_EQ(d.a(2)["focus"], "frmProva.txtNome");
  EXPECT_TRUE(d.a(3)["focus"].is_null());
  EXPECT_THAT(d.eventi, ElementsAre("prende txtNome", "lascia txtNome", "prende txtNome", "lascia txtNome",
                                    "prende txtNome", "lascia txtNome"));
}

TEST(Commands, AControlThatGoesOutOfReachYieldsTheFocus) {
  const Dialogo d = parla({R"({"do":"click","on":"frmProva.cmdSpegniti"})"});
  EXPECT_EQ(d.a(1)["focus"], "frmProva.cmdEsci");
}

TEST(Commands, AControlThatTheLostFocusPutsOutOfReachIsNotPressed) {
  const Dialogo d = parla({R"({"do":"click","on":"frmProva.chkScelta"})"}, [](FrmProva& form) {
    form.txtNome.onLostFocus = [&form] { form.chkScelta.setEnabled(false); };
  });
  EXPECT_TRUE(d.a(1)["ok"]);
  EXPECT_THAT(d.eventi, ElementsAre("prende txtNome"));
}

TEST(Commands, AnErrorOfTheLostFocusDoesNotSwallowTheClick) {
  const Dialogo d = parla({R"({"do":"click","on":"frmProva.chkScelta"})", R"({"do":"answer","with":"ok"})"},
                          [](FrmProva& form) { form.txtNome.onLostFocus = [] { throw Error(5, "x"); }; });
  EXPECT_EQ(d.a(1)["modal"]["kind"], "error");
  EXPECT_EQ(d.eventi.back(), "sì");
}

TEST(Commands, AKeyIsConsumedOrNot) {
  const Dialogo d = parla({R"({"do":"key","on":"frmProva","code":82,"shift":2})",
                           R"({"do":"key","on":"frmProva","code":82,"shift":0})",
                           R"({"do":"key","on":"frmProva","code":82})",
                           R"({"do":"key","on":"frmProva.grdRighe","code":32})",
                           R"({"do":"key","on":"frmProva.grdRighe","code":33})"});
  EXPECT_EQ(d.a(1)["result"], json::parse(R"({"consumed":true})"));
  EXPECT_EQ(d.a(2)["result"], json::parse(R"({"consumed":false})"));
  EXPECT_EQ(d.a(3)["result"], json::parse(R"({"consumed":false})"));
  EXPECT_EQ(d.a(4)["result"], json::parse(R"({"consumed":true})"));
  EXPECT_EQ(d.a(5)["result"], json::parse(R"({"consumed":false})"));
  EXPECT_THAT(d.eventi, ElementsAre("prende txtNome", "control r", "lascia txtNome", "spazio"));
}

TEST(Commands, AKeyThatOpensABoxIsAnsweredBeforeItIsKnownToBeConsumed) {
  const Dialogo d = parla({R"({"id":1,"do":"key","on":"frmProva","code":65,"shift":0})",
                           R"({"id":2,"do":"answer","with":"yes"})"});
  EXPECT_EQ(d.a(1)["id"], 1);
  EXPECT_EQ(d.a(1)["result"], json::parse(R"({"consumed":null})"));
  EXPECT_EQ(d.a(2)["id"], 2);
  EXPECT_TRUE(d.a(2)["result"].is_null());
}

TEST(Commands, EnterAndEscPressTheDefaultAndTheCancelButton) {
  const Dialogo d = parla({R"({"do":"click","on":"frmProva.cmdFiglia"})",
                           R"({"do":"key","on":"frmFiglia","code":13,"shift":0})"});
  EXPECT_EQ(d.a(2)["windows"], json({"frmProva"}));
}

TEST(Commands, TheWheelTurnsOverAForm) {
  EXPECT_THAT(eventi({R"({"do":"wheel","on":"frmProva","delta":-1})"}), ElementsAre("rotella -1"));
}

TEST(Commands, ARowBecomesTheCurrentOne) {
  EXPECT_THAT(eventi({R"({"do":"row","in":"frmProva.grdRighe","row":2})",
                      R"({"do":"row","in":"frmProva.grdRighe","row":2})"}),
              ElementsAre("lascia txtNome", "riga Beta"));
}

TEST(Commands, APressOnACellSelectsTheRowFirst) {
  EXPECT_THAT(eventi({R"({"do":"press","in":"frmProva.grdRighe","row":3,"column":"nome"})",
                      R"({"do":"press","in":"frmProva.grdRighe","row":0,"column":"Nome"})"}),
              ElementsAre("lascia txtNome", "riga Gamma", "mouse 3 Nome", "mouse 0 Nome"));
}

TEST(Commands, ADoubleClickSelectsTheRowFirstAndPassesOverTheHeader) {
  EXPECT_THAT(eventi({R"({"do":"doubleclick","in":"frmProva.grdRighe","row":2})",
                      R"({"do":"doubleclick","in":"frmProva.grdRighe","row":0})"}),
              ElementsAre("lascia txtNome", "riga Beta", "doppio"));
}

TEST(Commands, RowsAreGivenAsStoredAndAsShown) {
  const Dialogo d = parla({R"({"do":"rows","in":"frmProva.grdRighe","from":1,"count":2})",
                           R"({"do":"rows","in":"frmProva.grdRighe","from":3,"count":9223372036854775807})",
                           R"({"do":"rows","in":"frmProva.grdRighe","from":4,"count":1})",
                           R"({"do":"get","of":"frmProva.grdRighe"})"});
  EXPECT_EQ(d.a(1)["result"], json::parse(R"([
      {"Scelto":1,"Popup":null,"Nome":"Alfa","Importo":1234.5,"ID":1,
       "shown":{"Scelto":"Sì","Popup":"2","Nome":"Alfa","Importo":"1.234,50","ID":"1"}},
      {"Scelto":0,"Popup":null,"Nome":"Beta","Importo":null,"ID":2,
       "shown":{"Scelto":"No","Popup":"2","Nome":"Beta","Importo":"","ID":"2"}}])"));
  ASSERT_EQ(d.a(2)["result"].size(), 1U);
  EXPECT_EQ(d.a(2)["result"][0]["shown"]["Importo"], "-0,01");
  EXPECT_EQ(d.a(3)["result"], json::array());
  EXPECT_EQ(d.a(4)["result"]["row"], 1);
  EXPECT_EQ(d.a(4)["result"]["rows"], 3);
}

TEST(Commands, AnEmptyGridHasNoRows) {
  const Dialogo d = parla({R"({"do":"rows","in":"frmProva.grdRighe","from":1,"count":5})",
                           R"({"do":"get","of":"frmProva.grdRighe"})"},
                          [](FrmProva& form) { form.righe.Close(); });
  EXPECT_EQ(d.a(1)["result"], json::array());
  EXPECT_EQ(d.a(2)["result"]["rows"], 0);
  EXPECT_EQ(d.a(2)["result"]["row"], 0);
}

TEST(Commands, APopupIsAModalFromWhichAToolIsChosen) {
  const std::string premi = R"({"do":"press","in":"frmProva.grdRighe","row":2,"column":"Popup"})";
  const Dialogo d = parla({premi, R"({"do":"menu","tool":"Altrove"})", R"({"do":"menu","tool":"Spento"})",
                           R"({"do":"answer","with":"ok"})", R"({"id":8,"do":"menu","tool":"Modifica"})",
                           premi, R"({"do":"answer","with":"cancel"})"});
  EXPECT_EQ(d.a(1)["modal"],
            json::parse(R"({"kind":"menu","band":"bandaRiga","tools":["Modifica","Spento"]})"));
  EXPECT_EQ(d.a(2)["error"], "il menu aperto non ha la voce \"Altrove\"");
  EXPECT_EQ(d.a(3)["error"], "la voce \"Spento\" è disabilitata");
  EXPECT_EQ(d.a(4)["error"], "la finestra attende il comando menu oppure \"cancel\"");
  EXPECT_EQ(d.a(5)["id"], 8);
  EXPECT_TRUE(d.a(5)["modal"].is_null());
  EXPECT_TRUE(d.a(7)["modal"].is_null());
  EXPECT_THAT(d.eventi, ElementsAre("prende txtNome", "lascia txtNome", "riga Beta", "mouse 2 Popup",
                                    "voce Modifica", "mouse 2 Popup"));
}

TEST(Commands, AToolIsChosenFromTheMenuBar) {
  EXPECT_THAT(eventi({R"({"do":"menu","tool":"Altrove"})"}), ElementsAre("voce Altrove"));
}

TEST(Commands, TheRunContextIsTold) {
  std::istringstream in("{\"do\":\"context\"}\n");
  std::ostringstream out;
  Driver driver(in, out);
  driver.setRunContext([] {
    RunContext contesto;
    contesto.gIDFunzione = 342;
    contesto.gAnno = 2016;
    contesto.gTabellaLavoro = "tmpprequadrivio12";
    contesto.gTitolo = "Quadrivio";
    contesto.gChiaveImpostazioni = "Quadrivio";
    contesto.gDecimaliValuta = 1;
    contesto.gSimboloValuta = "€";
    contesto.gSeparatoreDecimale = ",";
    contesto.gSeparatoreMigliaia = ".";
    contesto.IDUtente = 12;
    return contesto;
  });
  FrmProva form(driver);
  driver.drive([&] { form.show(); });
  std::istringstream righe(out.str());
  std::string riga;
  std::getline(righe, riga);
  std::getline(righe, riga);
  EXPECT_EQ(json::parse(riga)["result"], json::parse(R"({"gIDFunzione":342,"gAnno":2016,
      "gTabellaLavoro":"tmpprequadrivio12","gTitolo":"Quadrivio","gChiaveImpostazioni":"Quadrivio",
      "gDecimaliValuta":1,"gSimboloValuta":"€","gSeparatoreDecimale":",","gSeparatoreMigliaia":".",
      "IDUtente":12,"IDAzienda":null,"IDFiliale":null})"));
}

TEST(Properties, OfEachKind) {
  const json comuni = json::parse(R"({"enabled":true,"visible":true})");
  const auto con = [&](const char* altro) {
    json tutte = comuni;
    tutte.update(json::parse(altro));
    return tutte;
  };
  EXPECT_EQ(proprieta("cmdChiedi"), con(R"({"kind":"button","caption":"Chiedi"})"));
  EXPECT_EQ(proprieta("fraModo"), con(R"({"kind":"frame","caption":"Modo"})"));
  EXPECT_EQ(proprieta("lblEtichetta"), con(R"({"kind":"label","caption":"Etichetta"})"));
  EXPECT_EQ(proprieta("lnkAiuto"), con(R"({"kind":"link","caption":"Aiuto"})"));
  EXPECT_EQ(proprieta("optModo(0)"), con(R"({"kind":"option","caption":"Uno","value":true})"));
  EXPECT_EQ(proprieta("chkScelta"), con(R"({"kind":"check","caption":"Scelta","value":false})"));
  EXPECT_EQ(proprieta("txtBloccato"),
            con(R"({"kind":"text","text":"fermo","maxLength":0,"locked":true,"background":"face"})"));
  EXPECT_EQ(proprieta("txtNome"),
            con(R"({"kind":"text","text":"","maxLength":5,"locked":false,"background":"window"})"));
  EXPECT_EQ(proprieta("dtGiorno"), con(R"({"kind":"date","text":"","value":0,"background":"window"})"));
  EXPECT_EQ(proprieta("cboElenco"), con(R"({"kind":"list","index":-1,"text":"","entries":["2017","2016"],
      "record":null,"source":null,"background":"window"})"));
  EXPECT_EQ(proprieta("cboElenco",
                      [](FrmProva& form) {
                        form.cboElenco.setIndex(1);
                        form.cboElenco.setSource("SELECT 1");
                        form.cboElenco.setBackground(Background::Face);
                      }),
            con(R"({"kind":"list","index":1,"text":"2016","entries":["2017","2016"],"record":16,
      "source":"SELECT 1","background":"face"})"));
  EXPECT_EQ(proprieta("bndPassi"), con(R"({"kind":"band","items":[
      {"title":"- Passo iniziale","description":"Filtri"},{"title":"- Passo finale","description":"Fine"}],
      "selected":1})"));
  EXPECT_EQ(proprieta("barMenu"), con(R"({"kind":"menubar","style":2,"tools":{
      "Modifica":{"caption":"&Modifica","shortcut":"","enabled":true,"band":"bandaRiga"},
      "Spento":{"caption":"&Spento","shortcut":"","enabled":false,"band":"bandaRiga"},
      "Altrove":{"caption":"&Altrove","shortcut":"Control+G","enabled":true,"band":"bandaComune"}}})"));
  EXPECT_EQ(proprieta("prnStampa"), con(R"({"kind":"print","reports":[],"report":"","definition":null,
      "objectType":null,"output":1,"choice":true,"toFile":false})"));
  EXPECT_EQ(proprieta("grdRighe"), con(R"({"kind":"grid","columns":[
      {"field":"Scelto","caption":"[ 0 ]","type":11,"width":700,"alignment":2,"visible":true},
      {"field":"Popup","caption":"","type":20,"width":380,"alignment":0,"visible":true},
      {"field":"Nome","caption":"Nome","type":129,"width":2000,"alignment":0,"visible":true},
      {"field":"Importo","caption":"Importo","type":5,"width":2000,"alignment":1,"visible":true},
      {"field":"ID","caption":"ID","type":20,"width":0,"alignment":0,"visible":false}],"rows":3,"row":1})"));
}

TEST(Properties, EnabledAndVisibleAreTheControlsOwn) {
  EXPECT_EQ(proprieta("cmdInChiusa")["enabled"], true);
  EXPECT_EQ(proprieta("cmdInNascosta")["visible"], true);
  EXPECT_EQ(proprieta("cmdSpento")["enabled"], false);
  EXPECT_EQ(proprieta("cmdNascosto")["visible"], false);
}

TEST(Properties, OfAFormAndOfItsTree) {
  const Dialogo d = parla({R"({"do":"get","of":"frmProva"})", R"({"do":"tree","of":"frmProva"})"});
  EXPECT_EQ(d.a(1)["result"], json::parse(R"({"kind":"window","enabled":true,"visible":true,
      "caption":"Prova","shrunk":false,"steps":[0,-20000]})"));
  const json& albero = d.a(2)["result"];
  EXPECT_EQ(albero["frmProva"], d.a(1)["result"]);
  EXPECT_EQ(albero["optModo(1)"]["kind"], "option");
  EXPECT_EQ(albero.size(), 36U);
}

}  // namespace
}  // namespace cu::test
