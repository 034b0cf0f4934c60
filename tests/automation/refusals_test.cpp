// Which commands are rejected, and that a rejected command changes nothing.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "automation/commands.h"
#include "automation/prova_support.h"

namespace cu::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

// The rejection of a command, after checking that the command has changed nothing.
std::string rifiuto(const std::string& comando) {
  const std::string albero = R"({"do":"tree","of":"frmProva"})";
  const Dialogo d = parla({albero, comando, albero});
  if (d.risposte.size() != 5) return "(" + std::to_string(d.risposte.size()) + " risposte)";
  if (d.a(2)["ok"] == true) return "(nessun rifiuto)";
  EXPECT_TRUE(d.a(2)["result"].is_null()) << comando;
  EXPECT_EQ(d.a(1)["result"], d.a(3)["result"]) << comando;
  EXPECT_EQ(d.a(1)["focus"], d.a(2)["focus"]) << comando;
  EXPECT_EQ(d.a(2)["effects"], json::array()) << comando;
  EXPECT_THAT(d.eventi, ElementsAre("prende txtNome")) << comando;
  return d.a(2)["error"];
}

TEST(Refusals, WhatIsNoCommand) {
  EXPECT_EQ(rifiuto(""), "la riga non è JSON valido");
  EXPECT_EQ(rifiuto("{"), "la riga non è JSON valido");
  EXPECT_EQ(rifiuto("ciao"), "la riga non è JSON valido");
  EXPECT_EQ(rifiuto("{\"do\":\"state\"} x"), "la riga non è JSON valido");
  EXPECT_EQ(rifiuto("{\"do\":\"\xff\"}"), "la riga non è JSON valido");
  EXPECT_EQ(rifiuto(std::string("{\"do\":\"st\0ate\"}", 16)), "la riga non è JSON valido");
  EXPECT_EQ(rifiuto("{\"do\":\"state\",\"id\":1e999}"), "la riga non è JSON valido");
  EXPECT_EQ(rifiuto("[]"), "atteso un oggetto JSON, come {\"do\":\"state\"}");
  EXPECT_EQ(rifiuto("\"state\""), "atteso un oggetto JSON, come {\"do\":\"state\"}");
  EXPECT_EQ(rifiuto("{}"), "manca \"do\": atteso il nome di un comando");
  EXPECT_EQ(rifiuto("{\"do\":3}"), "manca \"do\": atteso il nome di un comando");
  EXPECT_EQ(rifiuto("{\"do\":\"premi\"}"), "comando sconosciuto: \"premi\"");
  EXPECT_EQ(rifiuto("{\"do\":\"State\"}"), "comando sconosciuto: \"State\"");
}

TEST(Refusals, NestingBeyondAnyCommandIsNotFollowed) {
  EXPECT_EQ(rifiuto(std::string(100000, '[')), "JSON troppo annidato");
  EXPECT_EQ(rifiuto("{\"do\":\"state\",\"id\":" + std::string(64, '[') + std::string(64, ']') + "}"),
            "JSON troppo annidato");
  const Dialogo d = parla({"{\"do\":\"state\",\"id\":" + std::string(63, '[') + std::string(63, ']') + "}",
                           "{\"do\":\"state\",\"id\":\"" + std::string(200, '[') + "\\\"[\"}"});
  EXPECT_TRUE(d.a(1)["ok"]);
  EXPECT_TRUE(d.a(2)["ok"]);
}

TEST(Refusals, ALineWithoutEndIsCut) {
  const Dialogo d =
      parla({"{\"do\":\"state\",\"id\":\"" + std::string(3U << 20, 'x') + "\"}", R"({"id":2,"do":"state"})"});
  EXPECT_EQ(d.a(1)["error"], "la riga supera 1 MiB");
  EXPECT_TRUE(d.a(2)["ok"]);
}

TEST(Refusals, AMissingArgument) {
  EXPECT_EQ(rifiuto(R"({"do":"get"})"), "manca \"of\": atteso un testo");
  EXPECT_EQ(rifiuto(R"({"do":"click"})"), "manca \"on\": atteso un testo");
  EXPECT_EQ(rifiuto(R"({"do":"enter","in":"frmProva.txtNome"})"), "manca \"text\": atteso un testo");
  EXPECT_EQ(rifiuto(R"({"do":"key","on":"frmProva"})"), "manca \"code\": atteso un numero intero");
  EXPECT_EQ(rifiuto(R"({"do":"wheel","on":"frmProva"})"), "manca \"delta\": atteso un numero intero");
  EXPECT_EQ(rifiuto(R"({"do":"press","in":"frmProva.grdRighe","row":1})"),
            "manca \"column\": atteso un testo");
  EXPECT_EQ(rifiuto(R"({"do":"rows","in":"frmProva.grdRighe","from":1})"),
            "manca \"count\": atteso un numero intero");
  EXPECT_EQ(rifiuto(R"({"do":"menu"})"), "manca \"tool\": atteso un testo");
  EXPECT_EQ(rifiuto(R"({"do":"answer"})"), "manca \"with\": atteso un valore");
  EXPECT_EQ(rifiuto(R"({"do":"close"})"), "manca \"window\": atteso un testo");
}

TEST(Refusals, AZeroCharacterInAnyText) {
  const std::string nullo = "\"a\\u0000b\"";
  const auto detto = [](const std::string& nome) {
    return "\"" + nome + "\": il carattere nullo non è ammesso";
  };
  EXPECT_EQ(rifiuto(R"({"do":"get","of":)" + nullo + "}"), detto("of"));
  EXPECT_EQ(rifiuto(R"({"do":"enter","in":"frmProva.txtNome","text":)" + nullo + "}"), detto("text"));
  EXPECT_EQ(rifiuto(R"({"do":"paste","in":"frmProva.txtNome","text":)" + nullo + "}"), detto("text"));
  EXPECT_EQ(rifiuto(R"({"do":"choose","in":"frmProva.x","code":"a","description":)" + nullo + "}"),
            detto("description"));
  EXPECT_EQ(rifiuto(R"({"do":"press","in":"frmProva.grdRighe","row":1,"column":)" + nullo + "}"),
            detto("column"));
  EXPECT_EQ(rifiuto(R"({"do":"answer","with":)" + nullo + "}"), detto("with"));
  EXPECT_EQ(rifiuto(R"({"do":"answer","with":{"folder":)" + nullo + "}}"), detto("with"));
}

TEST(Refusals, AnArgumentOfAnotherType) {
  EXPECT_EQ(rifiuto(R"({"do":"click","on":3})"), "\"on\": atteso un testo");
  EXPECT_EQ(rifiuto(R"({"do":"enter","in":"frmProva.txtNome","text":null})"), "\"text\": atteso un testo");
  EXPECT_EQ(rifiuto(R"({"do":"key","on":"frmProva","code":"27"})"),
            "\"code\": atteso un numero intero da 0 a 32767");
  EXPECT_EQ(rifiuto(R"({"do":"key","on":"frmProva","code":40000})"),
            "\"code\": atteso un numero intero da 0 a 32767");
  EXPECT_EQ(rifiuto(R"({"do":"key","on":"frmProva","code":27,"shift":9})"),
            "\"shift\": atteso un numero intero da 0 a 7");
  EXPECT_EQ(rifiuto(R"({"do":"row","in":"frmProva.grdRighe","row":1.5})"),
            "\"row\": atteso un numero intero");
  EXPECT_EQ(rifiuto(R"({"do":"row","in":"frmProva.grdRighe","row":99999999999999999999})"),
            "\"row\": atteso un numero intero");
  EXPECT_EQ(rifiuto(R"({"do":"row","in":"frmProva.grdRighe","row":18446744073709551615})"),
            "\"row\": atteso un numero intero");
  EXPECT_EQ(rifiuto(R"({"do":"rows","in":"frmProva.grdRighe","from":0,"count":1})"),
            "\"from\": atteso un numero intero da 1");
  EXPECT_EQ(rifiuto(R"({"do":"rows","in":"frmProva.grdRighe","from":1,"count":-1})"),
            "\"count\": atteso un numero intero da 0");
}

TEST(Refusals, AnArgumentThatTheCommandDoesNotKnow) {
  EXPECT_EQ(rifiuto(R"({"do":"click","on":"frmProva.chkScelta","twice":true})"),
            "click non conosce \"twice\"");
  EXPECT_EQ(rifiuto(R"({"do":"state","of":"frmProva"})"), "state non conosce \"of\"");
}

TEST(Refusals, ANameThatNothingBears) {
  EXPECT_EQ(rifiuto(R"({"do":"get","of":"frmAltra"})"), "la finestra \"frmAltra\" non è aperta");
  EXPECT_EQ(rifiuto(R"({"do":"get","of":"frmAltra.cmdOk"})"), "la finestra \"frmAltra\" non è aperta");
  EXPECT_EQ(rifiuto(R"({"do":"get","of":"frmProva.cmdAltro"})"), "frmProva non ha un controllo \"cmdAltro\"");
  EXPECT_EQ(rifiuto(R"_({"do":"click","on":"frmProva.cmdNav(3)"})_"),
            "frmProva non ha un controllo \"cmdNav(3)\"");
  EXPECT_EQ(rifiuto(R"({"do":"click","on":"cmdChiedi"})"),
            "atteso finestra.controllo invece di \"cmdChiedi\"");
  EXPECT_EQ(rifiuto(R"({"do":"close","window":"frmFiglia"})"), "la finestra \"frmFiglia\" non è aperta");
  EXPECT_EQ(rifiuto(R"({"do":"tree","of":"frmProva.chkScelta"})"),
            "la finestra \"frmProva.chkScelta\" non è aperta");
}

TEST(Refusals, AControlOutOfReach) {
  const auto premi = [](const std::string& nome) {
    return rifiuto(R"({"do":"click","on":"frmProva.)" + nome + "\"}");
  };
  EXPECT_EQ(premi("cmdSpento"), "frmProva.cmdSpento: il controllo è disabilitato");
  EXPECT_EQ(premi("cmdNascosto"), "frmProva.cmdNascosto: il controllo è nascosto");
  EXPECT_EQ(premi("cmdInChiusa"),
            "frmProva.cmdInChiusa: il riquadro fraChiusa che lo contiene è disabilitato");
  EXPECT_EQ(premi("cmdInNascosta"),
            "frmProva.cmdInNascosta: il riquadro fraNascosta che lo contiene è nascosto");
  EXPECT_EQ(premi("cmdInFuori"), "frmProva.cmdInFuori: il riquadro fraFuori che lo contiene è fuori scena");
  EXPECT_EQ(rifiuto(R"({"do":"focus","on":"frmProva.cmdSpento"})"),
            "frmProva.cmdSpento: il controllo è disabilitato");
  EXPECT_EQ(rifiuto(R"({"do":"leave","of":"frmProva.cmdSpento"})"),
            "frmProva.cmdSpento: il controllo è disabilitato");
}

TEST(Refusals, EveryGestureLooksWhetherAHandReachesTheControl) {
  const std::string comandi[] = {R"({"do":"click","on":"frmProva.chkScelta"})",
                                 R"_({"do":"click","on":"frmProva.optModo(1)"})_",
                                 R"({"do":"click","on":"frmProva.lnkAiuto"})",
                                 R"({"do":"enter","in":"frmProva.txtNome","text":"x"})",
                                 R"({"do":"paste","in":"frmProva.txtNome","text":"x"})",
                                 R"({"do":"enter","in":"frmProva.dtGiorno","text":"x"})",
                                 R"({"do":"choose","in":"frmProva.cboElenco","index":0})",
                                 R"({"do":"choose","in":"frmProva.selReparto","code":"B"})",
                                 R"({"do":"choose","in":"frmProva.prnStampa","output":2})",
                                 R"({"do":"row","in":"frmProva.grdRighe","row":2})",
                                 R"({"do":"press","in":"frmProva.grdRighe","row":2,"column":"Nome"})",
                                 R"({"do":"doubleclick","in":"frmProva.grdRighe","row":2})",
                                 R"({"do":"key","on":"frmProva.grdRighe","code":32})",
                                 R"({"do":"menu","tool":"Altrove"})"};
  for (const std::string& comando : comandi) {
    const Dialogo d = parla({comando}, [](FrmProva& form) {
      for (Control* controllo : form.controls()) controllo->setEnabled(false);
    });
    EXPECT_FALSE(d.a(1)["ok"]) << comando;
    EXPECT_THAT(d.a(1)["error"].get<std::string>(), HasSubstr("disabilitato")) << comando;
    EXPECT_TRUE(d.eventi.empty()) << comando;
  }
}

TEST(Refusals, AGestureThatTheControlDoesNotHave) {
  EXPECT_EQ(rifiuto(R"({"do":"click","on":"frmProva.lblEtichetta"})"),
            "frmProva.lblEtichetta: qui non c'è nulla da premere");
  for (const char* nome : {"fraModo", "txtNome", "cboElenco", "grdRighe", "bndPassi", "barMenu", "prnStampa",
                           "selReparto", "dtGiorno"}) {
    EXPECT_THAT(rifiuto(R"({"do":"click","on":"frmProva.)" + std::string(nome) + "\"}"),
                HasSubstr("nulla da premere"));
  }
  for (const char* nome : {"chkScelta", "cboElenco", "selReparto", "lblEtichetta", "grdRighe"}) {
    EXPECT_THAT(rifiuto(R"({"do":"enter","in":"frmProva.)" + std::string(nome) + R"(","text":"x"})"),
                HasSubstr("qui non si scrive"));
    EXPECT_THAT(rifiuto(R"({"do":"paste","in":"frmProva.)" + std::string(nome) + R"(","text":"x"})"),
                HasSubstr("qui non si scrive"));
  }
  EXPECT_EQ(rifiuto(R"({"do":"choose","in":"frmProva.txtNome","index":0})"),
            "frmProva.txtNome: qui non c'è nulla da scegliere");
  EXPECT_EQ(rifiuto(R"({"do":"focus","on":"frmProva.lblEtichetta"})"),
            "frmProva.lblEtichetta: il controllo non può avere il fuoco");
  EXPECT_EQ(rifiuto(R"({"do":"leave","of":"frmProva.fraModo"})"),
            "frmProva.fraModo: il controllo non può avere il fuoco");
  EXPECT_EQ(rifiuto(R"({"do":"key","on":"frmProva.txtNome","code":13})"),
            "frmProva.txtNome: il controllo non è una griglia");
  EXPECT_EQ(rifiuto(R"({"do":"row","in":"frmProva.txtNome","row":1})"),
            "frmProva.txtNome: il controllo non è una griglia");
  EXPECT_EQ(rifiuto(R"({"do":"rows","in":"frmProva.txtNome","from":1,"count":1})"),
            "frmProva.txtNome: il controllo non è una griglia");
}

TEST(Refusals, TypingIntoALockedBox) {
  EXPECT_EQ(rifiuto(R"({"do":"enter","in":"frmProva.txtBloccato","text":"x"})"),
            "frmProva.txtBloccato: il controllo è in sola lettura");
  EXPECT_EQ(rifiuto(R"({"do":"paste","in":"frmProva.txtBloccato","text":"x"})"),
            "frmProva.txtBloccato: il controllo è in sola lettura");
}

TEST(Refusals, AChoiceThatIsNotThere) {
  const auto scegli = [](const std::string& controllo, const std::string& cosa) {
    return rifiuto(R"({"do":"choose","in":"frmProva.)" + controllo + "\"" + cosa + "}");
  };
  EXPECT_EQ(scegli("cboElenco", R"(,"index":2)"), "frmProva.cboElenco: la voce 2 non esiste: le voci sono 2");
  EXPECT_THAT(scegli("cboElenco", R"(,"index":-2)"), HasSubstr("la voce -2 non esiste"));
  EXPECT_EQ(scegli("cboElenco", R"(,"text":"2015")"),
            "frmProva.cboElenco: la voce \"2015\" non è nell'elenco");
  EXPECT_EQ(scegli("cboElenco", R"(,"record":15)"), "frmProva.cboElenco: nessuna voce ha la chiave 15");
  EXPECT_EQ(scegli("cboElenco", ""), "frmProva.cboElenco: indicare una sola fra index, text e record");
  EXPECT_EQ(scegli("cboElenco", R"(,"index":0,"text":"2017")"),
            "frmProva.cboElenco: indicare una sola fra index, text e record");
  EXPECT_EQ(scegli("cboElenco", R"(,"code":"2017")"),
            "frmProva.cboElenco: \"code\" non serve a scegliere qui");
  EXPECT_EQ(scegli("selReparto", R"(,"code":"Z")"), "frmProva.selReparto: nessuna riga ha il codice \"Z\"");
  EXPECT_EQ(scegli("selReparto", R"(,"record":9)"), "frmProva.selReparto: nessuna riga ha la chiave 9");
  EXPECT_EQ(scegli("selReparto", R"(,"description":"Bravo")"),
            "frmProva.selReparto: indicare code, oppure record, oppure code e description insieme");
  EXPECT_EQ(scegli("selReparto", R"(,"code":"B","record":2)"),
            "frmProva.selReparto: indicare code, oppure record, oppure code e description insieme");
  EXPECT_EQ(scegli("selReparto", R"(,"index":0)"),
            "frmProva.selReparto: \"index\" non serve a scegliere qui");
  EXPECT_EQ(scegli("prnStampa", ""), "frmProva.prnStampa: indicare report, output o entrambi");
  EXPECT_EQ(scegli("prnStampa", R"(,"output":7)"), "frmProva.prnStampa: output va da 1 a 6");
  EXPECT_EQ(scegli("prnStampa", R"(,"report":"Tre.rpt")"),
            "frmProva.prnStampa: la stampa \"Tre.rpt\" non esiste");
}

TEST(Refusals, APrintControlWithoutAChoice) {
  const Dialogo d = parla({R"({"do":"choose","in":"frmProva.prnStampa","output":2})"},
                          [](FrmProva& form) { form.prnStampa.setChoice(false); });
  EXPECT_EQ(d.a(1)["error"], "frmProva.prnStampa: stampa e destinazione qui non si scelgono");
}

TEST(Refusals, ARowOrColumnThatIsNotThere) {
  EXPECT_EQ(rifiuto(R"({"do":"row","in":"frmProva.grdRighe","row":4})"),
            "frmProva.grdRighe: la riga 4 non esiste: le righe sono 3");
  EXPECT_THAT(rifiuto(R"({"do":"row","in":"frmProva.grdRighe","row":0})"), HasSubstr("la riga 0 non esiste"));
  EXPECT_THAT(rifiuto(R"({"do":"doubleclick","in":"frmProva.grdRighe","row":-1})"),
              HasSubstr("la riga -1 non esiste"));
  EXPECT_THAT(rifiuto(R"({"do":"press","in":"frmProva.grdRighe","row":4,"column":"Nome"})"),
              HasSubstr("la riga 4 non esiste"));
  EXPECT_EQ(rifiuto(R"({"do":"press","in":"frmProva.grdRighe","row":1,"column":"Cognome"})"),
            "frmProva.grdRighe: la colonna \"Cognome\" non esiste");
  EXPECT_EQ(rifiuto(R"({"do":"press","in":"frmProva.grdRighe","row":1,"column":"ID"})"),
            "frmProva.grdRighe: la colonna \"ID\" è nascosta");
}

TEST(Refusals, AMenuToolThatCannotBeChosen) {
  EXPECT_EQ(rifiuto(R"({"do":"menu","tool":"Nessuna"})"), "il menu non ha la voce \"Nessuna\"");
  EXPECT_EQ(rifiuto(R"({"do":"menu","tool":"Spento"})"), "la voce \"Spento\" è disabilitata");
}

TEST(Refusals, EveryCommandIsDocumented) {
  std::ifstream file(CU_DOCS "/automazione.md");
  const std::string documento((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  ASSERT_FALSE(documento.empty());
  const auto forme = commandShapes();
  EXPECT_EQ(forme.size(), 19U);
  for (const std::string& forma : forme) {
    const std::string nome = forma.substr(0, forma.find(' '));
    EXPECT_THAT(documento, HasSubstr("\"do\":\"" + nome + "\"")) << nome;
  }
}

}  // namespace
}  // namespace cu::test
