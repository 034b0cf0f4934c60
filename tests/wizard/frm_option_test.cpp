#include "wizard/frm_option.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fake_session.h"
#include "support/scripted_front_end.h"
#include "support/simple_utility.h"

namespace cu::test {
namespace {

using ::testing::ElementsAre;

class PrintOptions : public ::testing::Test {
 protected:
  void interlinea(Table tabella) {
    database.main.answer(
        "SELECT IDAzienda, InterlineaGiornale FROM ConfigurazioneContabile WHERE IDAzienda = 1",
        std::move(tabella));
  }
  static Table valore(Value interlinea) {
    return Table({"IDAzienda", "InterlineaGiornale"}, {{whole(1), std::move(interlinea)}});
  }
  ScriptedFrontEnd frontEnd;
  SimpleUtility utilita{frontEnd};
  FakeDatabase database;
  FakeSession sessione{database};
  FrmOption form{frontEnd, utilita, sessione};
};

TEST_F(PrintOptions, OpensWithCaptionsAndTheStoredSpacingLocked) {
  interlinea(valore(text("2")));
  form.load();
  EXPECT_EQ(form.name(), "frmOption");
  EXPECT_EQ(form.caption(), "Modalità di stampa");
  EXPECT_EQ(form.chkPrintInter.caption(), "Stampa Interlinea");
  EXPECT_EQ(form.ChkNewPage.caption(), "Salto Pagina");
  EXPECT_EQ(form.cmdOk.caption(), "OK");
  EXPECT_EQ(form.cmdCancel.caption(), "Cancel");
  EXPECT_FALSE(form.chkPrintInter.value());
  EXPECT_FALSE(form.ChkNewPage.value());
  EXPECT_EQ(form.txtInter.text(), "2");
  EXPECT_EQ(form.txtInter.maxLength(), 1U);
  EXPECT_TRUE(form.txtInter.locked());
  EXPECT_EQ(form.txtInter.background(), Background::Face);
  EXPECT_THAT(utilita.prepared, ElementsAre("frmOption"));
}

TEST_F(PrintOptions, OfALongerSpacingTheBoxShowsWhatItHolds) {
  interlinea(valore(text("12")));
  form.load();
  EXPECT_EQ(form.txtInter.text(), "1");
}

TEST_F(PrintOptions, EscAndEnterPressTheButtonsThatCloseIt) {
  form.show();
  form.keyDown(13, 0);
  EXPECT_FALSE(form.Cancel());
  form.show();
  form.keyDown(27, 0);
  EXPECT_TRUE(form.Cancel());
}

TEST_F(PrintOptions, ACompanyWithoutASpacingHasNone) {
  interlinea(Table({"IDAzienda", "InterlineaGiornale"}, {}));
  form.load();
  EXPECT_EQ(form.txtInter.text(), "");
}

TEST_F(PrintOptions, ANullSpacingIsEmpty) {
  interlinea(valore(null()));
  form.load();
  EXPECT_EQ(form.txtInter.text(), "");
}

TEST_F(PrintOptions, AnErrorInTheLookUpLeavesItEmpty) {
  database.main.refuseContaining("ConfigurazioneContabile");
  form.load();
  EXPECT_EQ(form.txtInter.text(), "");
  EXPECT_TRUE(form.txtInter.locked());
}

TEST_F(PrintOptions, TheCheckBoxUnlocksTheSpacing) {
  interlinea(valore(text("2")));
  form.load();
  form.chkPrintInter.click();
  EXPECT_FALSE(form.txtInter.locked());
  EXPECT_EQ(form.txtInter.background(), Background::Window);
  form.chkPrintInter.click();
  EXPECT_TRUE(form.txtInter.locked());
  EXPECT_EQ(form.txtInter.background(), Background::Face);
}

TEST_F(PrintOptions, OkReadsTheThreeValuesAndHides) {
  interlinea(valore(text("2")));
  form.load();
  form.show();
  form.chkPrintInter.click();
  form.txtInter.enter("7");
  form.cmdOk.click();
  EXPECT_FALSE(form.isOpen());
  EXPECT_FALSE(form.Cancel());
  EXPECT_TRUE(form.PrintInt());
  EXPECT_FALSE(form.PrintNewPage());
}

TEST_F(PrintOptions, InterLineIsTheNewPageAndNotTheSpacing) {
  interlinea(valore(text("2")));
  form.show();
  form.ChkNewPage.click();
  form.cmdOk.click();
  EXPECT_TRUE(form.PrintNewPage());
  EXPECT_TRUE(form.InterLine());
  EXPECT_FALSE(form.PrintInt());
}

TEST_F(PrintOptions, CancelReadsTheValuesTooAndHides) {
  interlinea(valore(text("2")));
  form.show();
  form.chkPrintInter.click();
  form.cmdCancel.click();
  EXPECT_FALSE(form.isOpen());
  EXPECT_TRUE(form.Cancel());
  EXPECT_TRUE(form.PrintInt());
}

TEST_F(PrintOptions, TheCloseBoxIsRefused) {
  interlinea(valore(text("2")));
  form.show();
  form.close();
  EXPECT_TRUE(form.isOpen());
  form.cmdOk.click();
  EXPECT_FALSE(form.isOpen());
}

}  // namespace
}  // namespace cu::test
