// A confirmed editor whose row cannot be stored in the work table.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "controls/numericbox.h"
#include "editors/editor.h"
#include "wizard/wizard_prova.h"

namespace cu::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;
using testing::StartsWith;

class FailingSave : public testing::Test, public WizardProva {
 protected:
  void vai(int anno, std::size_t tipo = 0) {
    database.own.answerContaining("SELECT DISTINCT ContoIndividuale.Anno", Table({"Anno"}, {{whole(anno)}}));
    righe({workRow(1, 1, {{"Anno", whole(anno)}}), workRow(2, 1, {{"Anno", whole(anno)}})});
    avviaCU();
    form().optTipoComunicazione.at(tipo).click();
    premi(form().cmdNav[3]);
    dimentica();
    frontEnd.shown.clear();
  }
};

TEST_F(FailingSave, LeavesTheEditorOpenWithWhatWasTypedAndTheRowAsItWas) {
  vai(2016);
  database.internal.refuseContaining("SET ProtocolloAnnSost", DatabaseErrorKind::Other,
                                     "Testo troppo lungo.");
  frontEnd.modals.push_back([&](Form& editor) {
    auto& importo = dynamic_cast<AmountBox&>(*editor.find("curField(20)"));
    auto& ok = dynamic_cast<Button&>(*editor.find("cmdOk"));
    editor.setFocus(&importo);
    importo.enter("5");
    premi(ok);
    EXPECT_TRUE(editor.isOpen());
    EXPECT_EQ(importo.text(), "5,00");
    const Recordset& riga = dynamic_cast<Editor&>(editor).Recordset();
    EXPECT_EQ(riga.Get("RitenuteAcconto").toText(), "0");
    EXPECT_EQ(riga.Get("Modificato").toText(), "0");
    ASSERT_THAT(frontEnd.errors, SizeIs(1));
    database.internal.answerContaining("SET ProtocolloAnnSost", Table());
    premi(ok);
    EXPECT_FALSE(editor.isOpen());
  });
  frontEnd.runEvent([&] { form().grdCompensi.doubleClick(2); });
  EXPECT_THAT(frontEnd.errors, SizeIs(1));
  EXPECT_EQ(form().grdCompensi.rows()->Get("RitenuteAcconto").toText(), "5");
  EXPECT_THAT(istruzioni(), SizeIs(2));
  EXPECT_THAT(istruzioni().back(), HasSubstr(" RitenuteAcconto = 5,"));
}

TEST_F(FailingSave, HasThePointerBackBeforeItsErrorIsShown) {
  vai(2016);
  database.internal.refuseContaining("SET ProtocolloAnnSost", DatabaseErrorKind::Locked, "Occupato.");
  frontEnd.modals.push_back([&](Form& editor) {
    auto& ok = dynamic_cast<Button&>(*editor.find("cmdOk"));
    frontEnd.seen.clear();
    premi(ok);
    ASSERT_THAT(frontEnd.errors, SizeIs(1));
    EXPECT_EQ(frontEnd.pointer(), kPointerDefault);
    database.internal.answerContaining("SET ProtocolloAnnSost", Table());
    premi(ok);
    EXPECT_EQ(frontEnd.pointer(), kPointerDefault);
    EXPECT_THAT(frontEnd.seen, ElementsAre("Memorizzazione della riga 11"));
  });
  frontEnd.runEvent([&] { form().grdCompensi.doubleClick(2); });
}

TEST_F(FailingSave, ThatIsGivenUpLeavesTheRowAsItWas) {
  vai(2016);
  database.internal.touchContaining("SET ProtocolloAnnSost", 0);
  frontEnd.modals.push_back([&](Form& editor) {
    dynamic_cast<AmountBox&>(*editor.find("curField(20)")).enter("5");
    premi(dynamic_cast<Button&>(*editor.find("cmdOk")));
    premi(dynamic_cast<Button&>(*editor.find("cmdAnnulla")));
  });
  frontEnd.runEvent([&] { form().grdCompensi.doubleClick(2); });
  ASSERT_THAT(frontEnd.errors, SizeIs(1));
  EXPECT_THAT(frontEnd.errors[0].text, StartsWith("La tabella di lavoro non contiene più questa riga: "));
  EXPECT_EQ(form().grdCompensi.rows()->Get("RitenuteAcconto").toText(), "0");
  EXPECT_EQ(form().grdCompensi.rowCount(), 2U);
}

// The modules already written to the database are kept: they are not written a second time.
TEST_F(FailingSave, LeavesThePageOfModulesAsItWas) {
  for (const bool cambiato : {true, false}) {
    database.internal.answerContaining(
        "FROM ModuloXContoIndividuale WHERE Anno = ",
        moduleTable({{{"IDModuloXContoIndividuale", whole(7)}, {"NumeroModulo", whole(2)}},
                     {{"IDModuloXContoIndividuale", whole(8)}, {"NumeroModulo", whole(3)}}}));
    vai(2016);
    frontEnd.errors.clear();
    database.internal.touchContaining("SET ProtocolloAnnSost", 0);
    frontEnd.modals.push_back([&](Form& editor) {
      const auto& griglia = dynamic_cast<const Grid&>(*editor.find("grdAltriModuli"));
      auto& ok = dynamic_cast<Button&>(*editor.find("cmdOk"));
      const Control& pagina = *editor.find("cmdAltriModuli");
      premi(dynamic_cast<Button&>(*editor.find("cmdAltriModuli")));
      dynamic_cast<Grid&>(*editor.find("grdAltriModuli")).selectRow(2);
      if (cambiato) {
        dynamic_cast<AmountBox&>(*editor.find("curField(18)")).enter("9");
        premi(dynamic_cast<Button&>(*editor.find("cmdSave")));
      }
      premi(ok);
      EXPECT_THAT(frontEnd.errors, SizeIs(1));
      ASSERT_TRUE(editor.isOpen());
      EXPECT_EQ(griglia.rowCount(), 2U);
      EXPECT_EQ(griglia.row(), 2U);
      EXPECT_EQ(pagina.caption(), "&Altri moduli (2)");
      const std::size_t inviate = database.main.sent.size();
      database.internal.touchContaining("SET ProtocolloAnnSost", 1);
      premi(ok);
      EXPECT_FALSE(editor.isOpen());
      EXPECT_EQ(database.main.sent.size(), inviate);
    });
    frontEnd.runEvent([&] { form().grdCompensi.doubleClick(2); });
    EXPECT_THAT(frontEnd.errors, SizeIs(1));
  }
}

TEST_F(FailingSave, OfAnAnnulmentBringsItsDialogBackWithWhatWasTyped) {
  vai(2016, 1);
  database.internal.refuseContaining("SET ProtocolloAnnSost", DatabaseErrorKind::Locked, "Occupato.");
  const auto scritto = [](Form& dialogo) -> TextBox& {
    return dynamic_cast<TextBox&>(*dialogo.find("txtProtocollo"));
  };
  frontEnd.modals.push_back([&](Form& dialogo) {
    scritto(dialogo).enter("123");
    dynamic_cast<TextBox&>(*dialogo.find("txtProgressivo")).enter("4");
    premi(dynamic_cast<Button&>(*dialogo.find("cmdOk")));
  });
  frontEnd.modals.push_back([&](Form& dialogo) {
    EXPECT_THAT(frontEnd.errors, SizeIs(1));
    EXPECT_EQ(scritto(dialogo).text(), "123");
    premi(dynamic_cast<Button&>(*dialogo.find("cmdAnnulla")));
  });
  frontEnd.runEvent([&] { form().grdCompensi.doubleClick(1); });
  EXPECT_THAT(frontEnd.shown, ElementsAre("frmDatiAggiuntivi", "frmDatiAggiuntivi"));
  EXPECT_THAT(frontEnd.errors, SizeIs(1));
  EXPECT_EQ(form().grdCompensi.rowCount(), 2U);
}

}  // namespace
}  // namespace cu::test
