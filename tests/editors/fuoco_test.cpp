// The movement of the focus in an editor, the buttons pressed by keys, and what a press would discard.

#include <gtest/gtest.h>

#include "editors/campi_prova.h"

namespace cu::test {
namespace {

class EditorFocus : public testing::TestWithParam<int>, public CampiProva {
 protected:
  // The user presses a button of the form.
  void premiDaPersona(const char* nome) {
    Button& pulsante = c<Button>(nome);
    editor->perform(pulsante, [&] { pulsante.click(); });
  }
};

TEST_P(EditorFocus, EnterLeavesTheAmountBeforeItConfirms) {
  apri(GetParam(), {{"AmmontareLordo", amount("1")}, {"Imponibile", amount("1")}});
  frontEnd.modals.push_back([this](Form& form) {
    form.perform(importo(19), [&] { importo(19).enter("20000"); });
    form.keyDown(13, 0);
  });
  editor->showModal();
  EXPECT_TRUE(editor->OK());
  EXPECT_EQ(riga.Get("Imponibile").toText(), "20000");
  EXPECT_EQ(riga.Get("AmmontareLordo").toText(), "20000");
}

TEST_P(EditorFocus, ASavedModuleGivesItToTheGridAndNotToTheNextButton) {
  apri(GetParam());
  frontEnd.modals.push_back([this](Form& form) {
    if (GetParam() == 2014) {
      c<Tabs>("stbMain").select(2);
    } else {
      premiDaPersona("cmdAltriModuli");
    }
    form.perform(importo(18), [&] { importo(18).enter("5"); });
    premiDaPersona("cmdSave");
    EXPECT_EQ(form.focus(), &griglia());
    EXPECT_EQ(griglia().rowCount(), 1U);
    c<NumberBox>("numModulo").enter("1");
    premiDaPersona("cmdSave");
    EXPECT_EQ(form.focus(), &c<NumberBox>("numModulo")) << "a refused one gives it to the field";
  });
  editor->showModal();
}

TEST_P(EditorFocus, AConfirmationSaysWhichModuleItDrops) {
  moduli({modulo(7, 2, {{"ImponibileAnniPrec", amount("3.1415")}})});
  apri(GetParam());
  const Button& ok = c<Button>("cmdOk");
  EXPECT_EQ(ok.drops(), "");
  importo(18).enter("4");
  EXPECT_EQ(ok.drops(), "Il modulo n. 2 è stato modificato ma non salvato con il pulsante «Salva».");
  EXPECT_EQ(c<Button>("cmdNew").drops(), ok.drops());
  premi("cmdSave");
  EXPECT_EQ(ok.drops(), "");
  premi("cmdNew");
  EXPECT_EQ(ok.drops(), "") << "its number alone is no module";
  c<NumberBox>("numAnno").enter("2011");
  EXPECT_EQ(ok.drops(), "Il modulo n. 3 è stato scritto ma non salvato con il pulsante «Salva».");
}

TEST_P(EditorFocus, AnotherRowSaysWhichModuleItDrops) {
  moduli({modulo(7, 2), modulo(8, 3)});
  apri(GetParam());
  EXPECT_EQ(griglia().drops(2), "");
  importo(18).enter("4");
  EXPECT_NE(griglia().drops(2), "");
  EXPECT_EQ(griglia().drops(1), "") << "its own row keeps what is typed";
  premi("cmdNew");
  importo(18).enter("4");
  EXPECT_NE(griglia().drops(1), "");
}

TEST_P(EditorFocus, AFieldOfTheFirstPageIsNoModule) {
  apri(GetParam());
  importo(19).enter("4");
  if (GetParam() >= 2016) importo(50).enter("4");
  EXPECT_EQ(c<Button>("cmdOk").drops(), "");
}

INSTANTIATE_TEST_SUITE_P(Layouts, EditorFocus, testing::ValuesIn(kAnni),
                         [](const auto& anno) { return std::to_string(anno.param); });

struct OldestEditorFocus : testing::Test, CampiProva {};

TEST_F(OldestEditorFocus, AMissingReferenceIsBroughtIntoViewFromTheOtherPage) {
  apri(2014, {}, 3);
  frontEnd.modals.push_back([this](Form& form) {
    c<Tabs>("stbMain").select(2);
    form.perform(c<Button>("cmdOk"), [this] { c<Button>("cmdOk").click(); });
    EXPECT_EQ(c<Tabs>("stbMain").selected(), 1);
    EXPECT_EQ(form.focus(), &c<TextBox>("txtProtocollo"));
    c<TextBox>("txtProtocollo").enter("12345678901234567");
    c<Tabs>("stbMain").select(2);
    form.perform(c<Button>("cmdOk"), [this] { c<Button>("cmdOk").click(); });
    EXPECT_EQ(c<Tabs>("stbMain").selected(), 1);
    EXPECT_EQ(form.focus(), &c<TextBox>("txtProgressivo"));
  });
  editor->showModal();
  EXPECT_EQ(frontEnd.boxes.size(), 2U);
}

}  // namespace
}  // namespace cu::test
