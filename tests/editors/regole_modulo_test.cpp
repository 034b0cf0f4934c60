// The checks of a module before it is stored: one message at a time, the focus on the faulty field.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editors/campi_prova.h"

namespace cu::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ModuleRule : public testing::TestWithParam<int>, public CampiProva {
 protected:
  void SetUp() override {
    moduli({modulo(7, 2), modulo(8, 5)});
    apri(GetParam());
    premi("cmdNew");
  }
  // Nothing is saved, the message is shown, the named field has the focus.
  void rifiuta(const std::string& testo, const std::string& campo) {
    frontEnd.boxes.clear();
    const bool acceso = salvaAcceso();
    premi("cmdSave");
    ASSERT_EQ(frontEnd.boxes.size(), 1U);
    EXPECT_EQ(frontEnd.boxes[0].text, testo);
    EXPECT_EQ(frontEnd.boxes[0].title, "Quadrivio");
    EXPECT_EQ(frontEnd.boxes[0].icon, BoxIcon::Warning);
    EXPECT_EQ(frontEnd.boxes[0].buttons, BoxButtons::Ok);
    ASSERT_NE(editor->focus(), nullptr);
    EXPECT_EQ(editor->focus()->name(), campo);
    EXPECT_EQ(righeModuli().RecordCount(), 2U);
    EXPECT_EQ(salvaAcceso(), acceso);
  }
  void accetta() {
    frontEnd.boxes.clear();
    premi("cmdSave");
    EXPECT_THAT(frontEnd.boxTexts(), IsEmpty());
    EXPECT_FALSE(salvaAcceso());
  }
  NumberBox& numero(const char* nome) { return c<NumberBox>(nome); }
};

TEST_P(ModuleRule, TheNumberIsAboveOne) {
  for (const char* n : {"1", "0", ""}) {
    numero("numModulo").enter(n);
    rifiuta("Attenzione! Il numero modulo deve essere superiore a 1.", "numModulo");
  }
}

TEST_P(ModuleRule, TheNumberIsNotThatOfAnotherModule) {
  numero("numModulo").enter("5");
  rifiuta("Attenzione! Il numero modulo risulta già presente.", "numModulo");
  numero("numModulo").enter("4");
  accetta();
  EXPECT_EQ(righeModuli().RecordCount(), 3U);
}

TEST_P(ModuleRule, TheModuleBeingEditedDoesNotCountAsAnother) {
  griglia().press(2, "NumeroModulo");
  EXPECT_EQ(numero("numModulo").value(), 5);
  importo(18).enter("1");
  accetta();
  numero("numModulo").enter("2");
  rifiuta("Attenzione! Il numero modulo risulta già presente.", "numModulo");
  numero("numModulo").enter("3");
  accetta();
}

TEST_P(ModuleRule, ADeletedModuleLeavesItsNumber) {
  griglia().press(2, "NumeroModulo");
  premi("cmdDelete");
  premi("cmdNew");
  numero("numModulo").enter("5");
  accetta();
}

TEST_P(ModuleRule, TheYearIsNotAboveThatOfTheRow) {
  const std::string anno = std::to_string(GetParam());
  numero("numAnno").enter(std::to_string(GetParam() + 1));
  rifiuta("Attenzione! L'anno non può essere superiore a " + anno + ".", "numAnno");
  numero("numAnno").enter(anno);
  accetta();
}

TEST_P(ModuleRule, TheYearIsNotBefore1870) {
  for (const char* anno : {"1869", "1"}) {
    numero("numAnno").enter(anno);
    rifiuta("Attenzione! L'anno non è valido.", "numAnno");
  }
  numero("numAnno").enter("1870");
  accetta();
}

TEST_P(ModuleRule, AYearOfZeroPassesAndIsStoredAsNull) {
  accetta();
  EXPECT_TRUE(righeModuli().Get("AnnoModulo").isNull());
  EXPECT_EQ(griglia().shown(*griglia().column("AnnoModulo"), righeModuli().Get("AnnoModulo")), "");
  premi("cmdNew");
  numero("numAnno").enter("0");
  accetta();
  EXPECT_TRUE(righeModuli().Get("AnnoModulo").isNull());
}

TEST_P(ModuleRule, SumsNotSubjectNeedACode) {
  importo(17).enter("0,01");
  rifiuta("Attenzione! Il Codice è obbligatorio se presente\r\nil campo Somme non soggette a ritenuta.",
          "cboCodicePerNonSoggettiAltri");
  c<ListBox>("cboCodicePerNonSoggettiAltri").setRecord(1);
  accetta();
}

TEST_P(ModuleRule, SumsOfZeroNeedNone) {
  importo(17).enter("0");
  accetta();
  premi("cmdNew");
  importo(17).enter("-1");  // the minus is rejected: it is 1
  EXPECT_EQ(importo(17).value(), 1);
}

TEST_P(ModuleRule, OnlyTheFirstBrokenOneIsTold) {
  numero("numModulo").enter("1");
  numero("numAnno").enter("9999");
  importo(17).enter("1");
  rifiuta("Attenzione! Il numero modulo deve essere superiore a 1.", "numModulo");
  numero("numModulo").enter("2");
  rifiuta("Attenzione! Il numero modulo risulta già presente.", "numModulo");
  numero("numModulo").enter("9");
  rifiuta("Attenzione! L'anno non può essere superiore a " + std::to_string(GetParam()) + ".", "numAnno");
  numero("numAnno").enter("1800");
  rifiuta("Attenzione! L'anno non è valido.", "numAnno");
  numero("numAnno").enter("2000");
  rifiuta("Attenzione! Il Codice è obbligatorio se presente\r\nil campo Somme non soggette a ritenuta.",
          "cboCodicePerNonSoggettiAltri");
}

INSTANTIATE_TEST_SUITE_P(Layouts, ModuleRule, testing::ValuesIn(kAnni),
                         [](const auto& anno) { return std::to_string(anno.param); });

struct ModuleWarning : testing::Test, CampiProva {};

TEST_F(ModuleWarning, IsSeenBeforeTheRuleThatBlocks) {
  for (const int anno : {2015, 2016}) {
    frontEnd.boxes.clear();
    apri(anno);
    c<NumberBox>("numModulo").enter("1");
    importo(75).enter("1");
    premi("cmdSave");
    EXPECT_THAT(frontEnd.boxTexts(),
                ElementsAre("Attenzione! Verificare la compilazione dei seguenti campi:\r\n\r\n- Sezione "
                            "\"REDDITI EROGATI DA ALTRI SOGGETTI\"\r\n\"Codice fiscale\" (campo 52): il "
                            "campo è obbligatorio in presenza di \"Ritenute sospese\" (campo 56)\r\n\r\nIn "
                            "presenza di tali segnalazioni il file potrebbe non essere accettato.",
                            "Attenzione! Il numero modulo deve essere superiore a 1."));
    EXPECT_EQ(righeModuli().RecordCount(), 0U);
  }
}

TEST_F(ModuleWarning, LooksAtTheModuleAndNotAtTheFirstPage) {
  moduli({modulo(7, 2)});
  apri(2016, {{"AltriSoggettiImponibile", amount("1")}});
  importo(18).enter("1");
  premi("cmdSave");
  EXPECT_THAT(frontEnd.boxes, IsEmpty());
}

}  // namespace
}  // namespace cu::test
