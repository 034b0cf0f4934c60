#include "wizard/frm_msg_link.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fake_session.h"
#include "support/memory_file_system.h"
#include "support/scripted_front_end.h"
#include "support/simple_utility.h"

namespace cu::test {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

class Notice : public testing::Test {
 protected:
  Notice() { testi.texts = {{1264, "Comunicazioni"}}; }
  void apri(const std::function<void(FrmMsgLink&)>& azione) {
    frontEnd.modals.push_back([&](Form& form) { azione(dynamic_cast<FrmMsgLink&>(form)); });
    avviso.showModal();
  }

  ScriptedFrontEnd frontEnd;
  SimpleUtility utilita{frontEnd};
  FakeTesti testi;
  MemoryFileSystem files;
  FrmMsgLink avviso{frontEnd, utilita, testi, files};
};

TEST_F(Notice, StoredTextsWordForWord) {
  EXPECT_EQ(avviso.name(), "frmMsgLink");
  EXPECT_EQ(avviso.lblUser.caption(),
            "Il file generato, che si chiama NomeFile, è stato creato correttamente nel seguente percorso:");
  EXPECT_EQ(avviso.lblLink.caption(), "percorso");
  EXPECT_EQ(avviso.Label1.caption(),
            "Il file così creato andrà trasmesso, tramite il servizio telematico Entratel o Internet "
            "(Fisconline), direttamente o tramite gli intermediari abilitati.");
  EXPECT_EQ(avviso.Command1.caption(), "OK");
}

TEST_F(Notice, TheOneButtonIsDefaultAndCancel) {
  EXPECT_EQ(avviso.defaultButton, &avviso.Command1);
  EXPECT_EQ(avviso.cancelButton, &avviso.Command1);
}

TEST_F(Notice, TheFolderOfTheCopyIsShownUntilAPathIsSet) {
  avviso.load();
  EXPECT_EQ(avviso.lblLink.caption(), "/documenti/Comunicazioni");
  EXPECT_THAT(utilita.prepared, ElementsAre("frmMsgLink"));
  avviso.setPath("/cu");
  EXPECT_EQ(avviso.lblLink.caption(), "/cu");
}

TEST_F(Notice, ThePathLoadsTheFormFirstAndStands) {
  avviso.setPath("/cu");
  EXPECT_THAT(utilita.prepared, ElementsAre("frmMsgLink"));
  apri([](FrmMsgLink& form) { EXPECT_EQ(form.lblLink.caption(), "/cu"); });
}

TEST_F(Notice, TheNameCanBeSetInOneSentence) {
  avviso.setNomeFile("CUR_1_2016.cur");
  EXPECT_EQ(avviso.lblUser.caption(),
            "\r\nIl file generato, che si chiama CUR_1_2016.cur, è stato creato correttamente nel seguente "
            "percorso:");
}

TEST_F(Notice, TheLinkOpensTheFolderAsOneArgument) {
  avviso.setPath("/cu/con uno spazio");
  apri([](FrmMsgLink& form) { form.lblLink.click(); });
  ASSERT_THAT(frontEnd.opened, SizeIs(1));
  EXPECT_EQ(frontEnd.opened[0].path, "/cu/con uno spazio");
  EXPECT_EQ(frontEnd.opened[0].folder, "/cu/con uno spazio");
}

TEST_F(Notice, ThePointerIsNormalMeanwhileAndThenAsItWas) {
  frontEnd.setPointer(11);
  int durante = -1;
  avviso.setPath("/cu");
  apri([&](FrmMsgLink& form) {
    durante = frontEnd.pointer();
    form.Command1.click();
    EXPECT_FALSE(form.isOpen());
  });
  EXPECT_EQ(durante, 0);
  EXPECT_EQ(frontEnd.pointer(), 11);
}

TEST_F(Notice, KeepsItsConnectionForAsLongAsItLives) {
  FakeConnection connessione;
  avviso.setConnection(&connessione);
  apri([&](FrmMsgLink& form) { EXPECT_EQ(form.connection(), &connessione); });
  EXPECT_EQ(avviso.connection(), nullptr);
}

}  // namespace
}  // namespace cu::test
