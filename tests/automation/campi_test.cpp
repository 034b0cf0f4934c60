// Boxes for amounts and numbers, the picker, tabs: a driver's commands on them and their descriptions.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "automation/prova_support.h"
#include "controls/numericbox.h"
#include "controls/picker.h"
#include "controls/tabs.h"

namespace cu::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class FrmCampi : public Form {
 public:
  explicit FrmCampi(FrontEnd& schermo) : Form(schermo, "frmCampi", "Campi") {
    txtPrima.onLostFocus = [this] { eventi.push_back("lascia txtPrima"); };
    curImporto.setFormat(2, "€", ",", ".");
    curImporto.setLimits(Decimal::fromInteger(-1000), Decimal::fromInteger(99'999'999));
    curImporto.onChange = [this] { eventi.push_back("importo " + curImporto.text()); };
    curImporto.onLostFocus = [this] { eventi.push_back("lascia curImporto " + curImporto.text()); };
    numAnno.setLimits(Decimal(), Decimal::fromInteger(9999));
    numAnno.onChange = [this] { eventi.push_back("anno " + numAnno.text()); };
    curFermo.setLocked(true);
    curFermo.setBackground(Background::Face);
    for (const auto& [id, nome] : {std::pair{"58", "Roma"}, std::pair{"59", "Milano"}}) {
      comuni.answer(std::string("SELECT Comune FROM Comune WHERE IDComune = ") + id,
                    Table({"Comune"}, {{text(nome)}}));
    }
    comuni.answer("SELECT Comune FROM Comune WHERE IDComune = 7", Table({"Comune"}, {}));
    comuni.refuseContaining("IDComune = 66");
    townComune.bind(comuni, "Quadrivio", 100);
    townComune.onChange = [this] { eventi.push_back("comune " + townComune.text()); };
    stbSchede.add("Modulo 1", fraPrima);
    stbSchede.add("Altri moduli", fraSeconda);
    stbSchede.add("Nascosta", fraTerza);
    stbSchede.setTabVisible(3, false);
  }
  std::vector<std::string> eventi;
  FakeConnection comuni;
  TextBox txtPrima{*this, "txtPrima", nullptr};
  AmountBox curImporto{*this, "curField(10)", nullptr, "4 Ammontare lordo"};
  AmountBox curFermo{*this, "curField(2)", nullptr};
  NumberBox numAnno{*this, "numAnno", nullptr, "Anno"};
  Picker townComune{*this, "townComune", nullptr};
  Tabs stbSchede{*this, "stbSchede", nullptr};
  Frame fraPrima{*this, "fraPrima", nullptr};
  Button cmdUno{*this, "cmdUno", &fraPrima, "Uno"};
  Frame fraSeconda{*this, "fraSeconda", nullptr};
  Button cmdDue{*this, "cmdDue", &fraSeconda, "Due"};
  Frame fraTerza{*this, "fraTerza", nullptr};
};

struct Colloquio {
  std::vector<json> risposte;  // to the commands, from 0
  std::vector<std::string> eventi;
};

Colloquio parlaCampi(const std::vector<std::string>& comandi,
                     const std::function<void(FrmCampi&)>& prepara = {}) {
  std::string ingresso;
  for (const std::string& comando : comandi) ingresso += comando + "\n";
  std::istringstream in(ingresso);
  std::ostringstream out;
  Colloquio colloquio;
  {
    Driver driver(in, out);
    FrmCampi form(driver);
    if (prepara) prepara(form);
    driver.drive([&] { form.show(); });
    colloquio.eventi = form.eventi;
  }
  std::istringstream righe(out.str());
  std::string riga;
  std::getline(righe, riga);  // the start
  while (std::getline(righe, riga)) colloquio.risposte.push_back(json::parse(riga));
  return colloquio;
}

std::string su(const char* comando, const char* argomento, const char* controllo, const std::string& altro) {
  return std::string(R"({"do":")") + comando + R"(",")" + argomento + R"(":"frmCampi.)" + controllo + "\"" +
         altro + "}";
}
std::string scrivi(const char* controllo, const char* testo) {
  return su("enter", "in", controllo, std::string(R"(,"text":")") + testo + "\"");
}
std::string incolla(const char* controllo, const char* testo) {
  return su("paste", "in", controllo, std::string(R"(,"text":")") + testo + "\"");
}
std::string scegli(const char* controllo, const std::string& cosa) {
  return su("choose", "in", controllo, "," + cosa);
}
std::string leggi(const char* controllo) { return su("get", "of", controllo, ""); }
std::string lascia(const char* controllo) { return su("leave", "of", controllo, ""); }

// The rejection of a command, after checking that the command has changed nothing.
std::string rifiutoDiCampi(const std::string& comando) {
  const std::string albero = R"({"do":"tree","of":"frmCampi"})";
  const Colloquio c = parlaCampi({albero, comando, albero});
  EXPECT_EQ(c.risposte[1]["ok"], false) << comando;
  EXPECT_EQ(c.risposte[0]["result"], c.risposte[2]["result"]) << comando;
  EXPECT_THAT(c.eventi, IsEmpty()) << comando;
  return c.risposte[1].value("error", "");
}

TEST(DrivenAmount, IsTypedCharacterByCharacterAndShapedWhenLeft) {
  const Colloquio c = parlaCampi({scrivi("curField(10)", "1.234,5"), leggi("curField(10)"),
                                  lascia("curField(10)"), leggi("curField(10)")});
  EXPECT_THAT(c.eventi, ElementsAre("lascia txtPrima", "importo 1", "importo 1.", "importo 1.2",
                                    "importo 1.23", "importo 1.234", "importo 1.234,", "importo 1.234,5",
                                    "lascia curImporto 1.234,50"));
  EXPECT_EQ(c.risposte[1]["result"]["text"], "1.234,5");
  EXPECT_EQ(c.risposte[1]["result"]["value"], 1234.5);
  EXPECT_EQ(c.risposte[3]["result"], json::parse(R"({"kind":"amount","enabled":true,"visible":true,
      "caption":"4 Ammontare lordo","text":"1.234,50","value":1234.5,"min":-1000.0,"max":99999999.0,
      "background":"window","decimals":2,"symbol":"€","decimalPoint":",","separator":"."})"));
  EXPECT_TRUE(c.risposte[3]["focus"].is_null());
}

TEST(DrivenAmount, LetsInOnlyWhatMakesANumberWithinItsLimits) {
  const Colloquio c =
      parlaCampi({scrivi("curField(10)", "-10"), leggi("curField(10)"), scrivi("curField(10)", "12a"),
                  leggi("curField(10)"), scrivi("curField(10)", "-1001"), leggi("curField(10)"),
                  scrivi("curField(10)", ""), leggi("curField(10)")});
  EXPECT_EQ(c.risposte[1]["result"]["value"], -10);
  EXPECT_EQ(c.risposte[3]["result"]["text"], "12");
  EXPECT_EQ(c.risposte[5]["result"]["text"], "-100");
  EXPECT_EQ(c.risposte[7]["result"]["text"], "");
  EXPECT_EQ(c.risposte[7]["result"]["value"], 0);
  for (const json& risposta : c.risposte) EXPECT_EQ(risposta["ok"], true);
}

TEST(DrivenAmount, IsPastedInOneStepOrNotAtAll) {
  const Colloquio c = parlaCampi({incolla("curField(10)", "1.234,56"), incolla("curField(10)", "abc"),
                                  incolla("curField(10)", "100000000"), leggi("curField(10)")});
  EXPECT_THAT(c.eventi, ElementsAre("lascia txtPrima", "importo 1.234,56"));
  EXPECT_EQ(c.risposte[3]["result"]["value"], 1234.56);
}

TEST(DrivenAmount, IsNotTypedIntoWhereItIsLockedAndNotChosen) {
  EXPECT_EQ(rifiutoDiCampi(scrivi("curField(2)", "1")),
            "frmCampi.curField(2): il controllo è in sola lettura");
  EXPECT_EQ(rifiutoDiCampi(incolla("curField(2)", "1")),
            "frmCampi.curField(2): il controllo è in sola lettura");
  EXPECT_EQ(rifiutoDiCampi(scegli("curField(10)", R"("index":0)")),
            "frmCampi.curField(10): qui non c'è nulla da scegliere");
  EXPECT_THAT(rifiutoDiCampi(su("click", "on", "curField(10)", "")), HasSubstr("nulla da premere"));
}

TEST(DrivenNumber, IsTypedPastedAndRead) {
  const Colloquio c = parlaCampi({scrivi("numAnno", "2x016"), leggi("numAnno"), incolla("numAnno", "1999"),
                                  leggi("numAnno"), incolla("numAnno", "10000"), leggi("numAnno")});
  EXPECT_THAT(c.eventi,
              ElementsAre("lascia txtPrima", "anno 2", "anno 20", "anno 201", "anno 2016", "anno 1999"));
  EXPECT_EQ(c.risposte[1]["result"], json::parse(R"({"kind":"number","enabled":true,"visible":true,
      "caption":"Anno","text":"2016","value":2016,"min":0.0,"max":9999.0,"background":"window"})"));
  EXPECT_EQ(c.risposte[5]["result"]["text"], "1999");
}

TEST(DrivenPicker, IsChosenByItsKeyAndEmptiedByZero) {
  const Colloquio c =
      parlaCampi({leggi("townComune"), scegli("townComune", R"("record":58)"), leggi("townComune"),
                  scegli("townComune", R"("record":0)"), leggi("townComune"), lascia("townComune")});
  EXPECT_EQ(c.risposte[0]["result"], json::parse(R"({"kind":"picker","enabled":true,"visible":true,
      "record":null,"text":""})"));
  EXPECT_EQ(c.risposte[2]["result"]["record"], 58);
  EXPECT_EQ(c.risposte[2]["result"]["text"], "Roma");
  EXPECT_TRUE(c.risposte[4]["result"]["record"].is_null());
  EXPECT_EQ(c.risposte[4]["result"]["text"], "");
  EXPECT_THAT(c.eventi, ElementsAre("lascia txtPrima", "comune Roma", "comune "));
}

TEST(DrivenPicker, RefusesAKeyThatNoMunicipalityHasAndAnythingElse) {
  EXPECT_EQ(rifiutoDiCampi(scegli("townComune", R"("record":7)")),
            "frmCampi.townComune: nessun comune ha la chiave 7");
  EXPECT_EQ(rifiutoDiCampi(scegli("townComune", R"("text":"Roma")")),
            "frmCampi.townComune: \"text\" non serve a scegliere qui");
  EXPECT_EQ(rifiutoDiCampi(su("choose", "in", "townComune", "")), "frmCampi.townComune: indicare record");
  EXPECT_THAT(rifiutoDiCampi(scrivi("townComune", "Roma")), HasSubstr("qui non si scrive"));
}

TEST(DrivenPicker, WhatTheDatabaseRefusesIsAnErrorBox) {
  const Colloquio c = parlaCampi({scegli("townComune", R"("record":66)"), R"({"do":"answer","with":"ok"})"});
  EXPECT_EQ(c.risposte[0]["modal"]["kind"], "error");
  EXPECT_EQ(c.risposte[1]["ok"], true);
  EXPECT_THAT(c.eventi, IsEmpty());
}

TEST(DrivenTabs, AreSwitchedByNumberOrCaption) {
  const Colloquio c =
      parlaCampi({leggi("stbSchede"), su("click", "on", "cmdDue", ""), scegli("stbSchede", R"("index":2)"),
                  leggi("stbSchede"), su("click", "on", "cmdDue", ""), su("click", "on", "cmdUno", ""),
                  scegli("stbSchede", R"("text":"Modulo 1")"), leggi("stbSchede")});
  EXPECT_EQ(c.risposte[0]["result"], json::parse(R"({"kind":"tabs","enabled":true,"visible":true,
      "tabs":[{"caption":"Modulo 1","visible":true},{"caption":"Altri moduli","visible":true},
              {"caption":"Nascosta","visible":false}],"selected":1})"));
  EXPECT_EQ(c.risposte[1]["error"], "frmCampi.cmdDue: il riquadro fraSeconda che lo contiene è nascosto");
  EXPECT_EQ(c.risposte[3]["result"]["selected"], 2);
  EXPECT_EQ(c.risposte[4]["ok"], true);
  EXPECT_EQ(c.risposte[5]["ok"], false);
  EXPECT_EQ(c.risposte[7]["result"]["selected"], 1);
}

TEST(DrivenTabs, RefuseOneThatIsNotThere) {
  EXPECT_EQ(rifiutoDiCampi(scegli("stbSchede", R"("index":0)")),
            "frmCampi.stbSchede: la scheda 0 non esiste: le schede sono 3");
  EXPECT_EQ(rifiutoDiCampi(scegli("stbSchede", R"("index":4)")),
            "frmCampi.stbSchede: la scheda 4 non esiste: le schede sono 3");
  EXPECT_EQ(rifiutoDiCampi(scegli("stbSchede", R"("index":3)")), "frmCampi.stbSchede: la scheda è nascosta");
  EXPECT_EQ(rifiutoDiCampi(scegli("stbSchede", R"("text":"Altra")")),
            "frmCampi.stbSchede: la scheda \"Altra\" non esiste");
  EXPECT_EQ(rifiutoDiCampi(scegli("stbSchede", R"("index":1,"text":"Modulo 1")")),
            "frmCampi.stbSchede: indicare index oppure text");
  EXPECT_EQ(rifiutoDiCampi(scegli("stbSchede", R"("record":1)")),
            "frmCampi.stbSchede: \"record\" non serve a scegliere qui");
}

TEST(DrivenFields, OutOfReachAreRefused) {
  for (const std::string& comando :
       {scrivi("curField(10)", "1"), incolla("numAnno", "1"), scegli("townComune", R"("record":58)"),
        scegli("stbSchede", R"("index":2)"), lascia("numAnno")}) {
    const Colloquio c = parlaCampi({comando}, [](FrmCampi& form) {
      for (Control* controllo : form.controls()) controllo->setEnabled(false);
    });
    EXPECT_EQ(c.risposte[0]["ok"], false) << comando;
    EXPECT_THAT(c.risposte[0]["error"].get<std::string>(), HasSubstr("disabilitato")) << comando;
    EXPECT_THAT(c.eventi, IsEmpty()) << comando;
  }
}

}  // namespace
}  // namespace cu::test
