// The references for annulling or replacing, written to the selected rows.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "wizard/frm_protocollo.h"
#include "wizard/wizard_prova.h"

namespace cu::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class ReferencesButton : public testing::Test, public WizardProva {
 protected:
  void vai(std::size_t tipo) {
    righe({workRow(1, 1), workRow(2, 1, {{"Selezionato", whole(0)}})});
    avviaCU();
    form().optTipoComunicazione.at(tipo).click();
    premi(form().cmdNav[3]);
    dimentica();
  }
};

TEST_F(ReferencesButton, CannotBePressedForAnOrdinaryCommunication) {
  vai(0);
  EXPECT_FALSE(premi(form().cmdProtocollo));
}

TEST_F(ReferencesButton, WritesThePairOnTheSelectedRows) {
  vai(1);
  frontEnd.modals.push_back([](Form& form) {
    auto& dialogo = dynamic_cast<FrmProtocollo&>(form);
    dialogo.txtProtocollo.enter("12");
    dialogo.txtProgressivo.enter("3");
    dialogo.cmdOk.click();
  });
  EXPECT_TRUE(premi(form().cmdProtocollo));
  EXPECT_THAT(istruzioni(),
              ElementsAre("UPDATE tmpprequadrivio12 SET ProtocolloAnnSost = '12', ProgressivoAnnSost = '3',"
                          " Modificato = 1 WHERE Anno = 2016 AND IDAnagrafica = 1 AND IDAzienda = 1"
                          " AND IDCausalePagamento = 1"));
}

TEST_F(ReferencesButton, HandsOverWhetherPresentOnesAreReplaced) {
  vai(2);
  form().grdCompensi.rows()->Set("ProtocolloAnnSost", text("99"));
  form().grdCompensi.rows()->Update();
  frontEnd.modals.push_back([](Form& form) {
    auto& dialogo = dynamic_cast<FrmProtocollo&>(form);
    dialogo.txtProtocollo.enter("12");
    dialogo.chkSovrascrivi.click();
    dialogo.cmdOk.click();
  });
  premi(form().cmdProtocollo);
  EXPECT_THAT(istruzioni(), ElementsAre(StartsWith("UPDATE tmpprequadrivio12 SET ProtocolloAnnSost = '99',"
                                                   " ProgressivoAnnSost = '', Modificato = 1 ")));
}

TEST_F(ReferencesButton, TellsHowManyRowsHaveGotThePair) {
  vai(1);
  const auto scrivi = [&](const char* protocollo, bool sovrascrivi) {
    frontEnd.facts.clear();
    frontEnd.modals.push_back([&](Form& form) {
      auto& dialogo = dynamic_cast<FrmProtocollo&>(form);
      dialogo.txtProtocollo.enter(protocollo);
      if (!sovrascrivi) dialogo.chkSovrascrivi.click();
      dialogo.cmdOk.click();
    });
    premi(form().cmdProtocollo);
  };
  scrivi("12", true);
  EXPECT_THAT(frontEnd.facts, ElementsAre("I riferimenti sono stati scritti in una riga."));
  scrivi("13", false);
  EXPECT_THAT(frontEnd.facts,
              ElementsAre("Nessuna riga ha ricevuto i riferimenti: nessuna è scelta, o li avevano già."));
  premi(form().cmdSelect[0]);
  scrivi("14", true);
  EXPECT_THAT(frontEnd.facts, ElementsAre("I riferimenti sono stati scritti in 2 righe."));
}

TEST_F(ReferencesButton, ChangesNothingUnlessTheDialogIsConfirmed) {
  vai(1);
  frontEnd.modals.push_back([](Form& form) {
    auto& dialogo = dynamic_cast<FrmProtocollo&>(form);
    dialogo.txtProtocollo.enter("12");
    dialogo.cmdAnnulla.click();
  });
  premi(form().cmdProtocollo);
  EXPECT_THAT(istruzioni(), IsEmpty());
  EXPECT_EQ(form().grdCompensi.rows()->Get("ProtocolloAnnSost").toText(), "");
}

TEST_F(ReferencesButton, OpensAnEmptyDialogEachTime) {
  vai(1);
  for (int volta = 0; volta < 2; ++volta) {
    frontEnd.modals.push_back([](Form& form) {
      auto& dialogo = dynamic_cast<FrmProtocollo&>(form);
      EXPECT_EQ(dialogo.txtProtocollo.text(), "");
      EXPECT_TRUE(dialogo.chkSovrascrivi.value());
      dialogo.txtProtocollo.enter("12");
      dialogo.chkSovrascrivi.click();
      dialogo.cmdOk.click();
    });
    premi(form().cmdProtocollo);
  }
  EXPECT_TRUE(frontEnd.modals.empty());
}

}  // namespace
}  // namespace cu::test
