// The dialog of the additional data, opened by the editor: its input, its result, and the annulment.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editors/campi_prova.h"
#include "editors/frm_dati_aggiuntivi.h"

namespace cu::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FromTheEditor : public testing::TestWithParam<int>, public CampiProva {
 protected:
  using Dialogo = FrmDatiAggiuntivi;
  void scrivi(const std::function<void(Dialogo&)>& gesti) {
    frontEnd.modals.push_back([gesti](Form& form) { gesti(dynamic_cast<Dialogo&>(form)); });
  }
  static void ok(Dialogo& dialogo) { dialogo.cmdOk.click(); }
  static void tutto(Dialogo& dialogo) {
    dialogo.riferimenti.txtProtocollo.setText("99");
    dialogo.riferimenti.txtProgressivo.setText("3");
    dialogo.TownComuneResidenzaAnnoPrec.setRecord(59);
    dialogo.TownComuneResidenzaAnnoCorr.setRecord(58);
    dialogo.txtFusioneComuni.enter("ora");
    dialogo.txtFusioneComuniAnnoPrec.enter("prima");
  }
  Righe confermata() {
    const Righe prima = fotografia(riga);
    importo(20).enter("5");
    premi("cmdOk");
    Righe diverse = differenze(prima, fotografia(riga));
    diverse.erase("RitenuteAcconto");
    diverse.erase("Modificato");
    return diverse;
  }
  bool fusioni() const { return GetParam() != 2015; }
};

TEST_P(FromTheEditor, TheRowsDataGoIn) {
  apri(GetParam(), rigaPiena(), 3);
  const std::string nome = riga.Get("Nome").toText();
  const Righe colonne = fotografia(riga);
  bool aperto = false;
  scrivi([&](Dialogo& dialogo) {
    aperto = true;
    EXPECT_EQ(dialogo.IDAnagrafica, 1);
    EXPECT_EQ(dialogo.IDCausalePagamento, 1);
    EXPECT_EQ(dialogo.Nome, nome);
    EXPECT_EQ(dialogo.riferimenti.fraRiferimenti.caption(), "Riferimenti per sostituzione");
    EXPECT_EQ(dialogo.riferimenti.txtProtocollo.text(), colonne.at("ProtocolloAnnSost"));
    EXPECT_EQ(dialogo.riferimenti.txtProgressivo.text(), colonne.at("ProgressivoAnnSost"));
    EXPECT_EQ(dialogo.TownComuneResidenzaAnnoPrec.record(), 58);
    EXPECT_EQ(dialogo.TownComuneResidenzaAnnoCorr.record(), 59);
    EXPECT_EQ(dialogo.dati.ComuneResidenzaAnnoPrec, "Roma");
    EXPECT_EQ(dialogo.dati.ComuneResidenzaAnnoCorr, "Milano");
    EXPECT_EQ(dialogo.txtFusioneComuni.text(), fusioni() ? colonne.at("FusioneComuni") : "");
    EXPECT_EQ(dialogo.txtFusioneComuniAnnoPrec.text(), fusioni() ? colonne.at("FusioneComuniAnnoPrec") : "");
  });
  premi("cmdDatiAggiuntivi");
  EXPECT_TRUE(aperto);
  EXPECT_THAT(frontEnd.shown, ElementsAre("frmDatiAggiuntivi"));
}

TEST_P(FromTheEditor, WhatWasConfirmedReachesTheRowWithAnotherChange) {
  apri(GetParam(), rigaPiena());
  scrivi([](Dialogo& dialogo) {
    tutto(dialogo);
    ok(dialogo);
  });
  premi("cmdDatiAggiuntivi");
  Righe attese = {{"ProtocolloAnnSost", "99"},           {"ProgressivoAnnSost", "3"},
                  {"IDComuneResidenzaAnnoPrec", "59"},   {"IDComuneResidenzaAnnoCorr", "58"},
                  {"ComuneResidenzaAnnoPrec", "Milano"}, {"ComuneResidenzaAnnoCorr", "Roma"},
                  {"SiglaProvResidenzaAnnoPrec", "MI"},  {"SiglaProvResidenzaAnnoCorr", "RM"},
                  {"CodiceComuneDiNascitaPrec", "F205"}, {"CodiceComuneDiNascitaCorr", "H501"}};
  if (fusioni()) {
    attese["FusioneComuni"] = "ora";
    attese["FusioneComuniAnnoPrec"] = "prima";
  }
  EXPECT_EQ(confermata(), attese);
}

TEST_P(FromTheEditor, WhatWasConfirmedDoesNotMarkTheRow) {
  apri(GetParam(), rigaPiena());
  const Righe prima = fotografia(riga);
  scrivi([](Dialogo& dialogo) {
    tutto(dialogo);
    ok(dialogo);
  });
  premi("cmdDatiAggiuntivi");
  premi("cmdOk");
  EXPECT_TRUE(editor->OK());
  EXPECT_TRUE(differenze(prima, fotografia(riga)).empty());
}

TEST_P(FromTheEditor, WhatWasCancelledIsForgotten) {
  apri(GetParam(), rigaPiena());
  scrivi([](Dialogo& dialogo) {
    tutto(dialogo);
    dialogo.cmdAnnulla.click();
  });
  premi("cmdDatiAggiuntivi");
  EXPECT_THAT(confermata(), IsEmpty());
}

TEST_P(FromTheEditor, WhatAFailedCheckLeftBehindIsReadBackThoughCancelled) {
  apri(GetParam(), rigaPiena(), 3);
  scrivi([](Dialogo& dialogo) {
    dialogo.riferimenti.txtProtocollo.setText(" ");
    dialogo.riferimenti.txtProgressivo.setText("8");
    ok(dialogo);
    dialogo.cmdAnnulla.click();
  });
  premi("cmdDatiAggiuntivi");
  EXPECT_EQ(confermata(), (Righe{{"ProtocolloAnnSost", " "}, {"ProgressivoAnnSost", "8"}}));
}

TEST_P(FromTheEditor, TheNextOpeningShowsWhatTheLastOneGave) {
  apri(GetParam(), rigaPiena());
  scrivi([](Dialogo& dialogo) {
    tutto(dialogo);
    ok(dialogo);
  });
  premi("cmdDatiAggiuntivi");
  std::vector<std::string> testi;
  scrivi([&](Dialogo& dialogo) {
    testi = {dialogo.riferimenti.txtProtocollo.text(), dialogo.TownComuneResidenzaAnnoPrec.text(),
             dialogo.txtFusioneComuni.text()};
  });
  premi("cmdDatiAggiuntivi");
  EXPECT_THAT(testi, ElementsAre("99", "Milano", fusioni() ? "ora" : ""));
}

TEST_P(FromTheEditor, TheButtonNeverFinishesTheEditor) {
  for (const int tipo : {1, 2, 3}) {
    apri(GetParam(), {}, tipo);
    utilita.released.clear();
    scrivi([](Dialogo& dialogo) { dialogo.cmdAnnulla.click(); });
    premi("cmdDatiAggiuntivi");
    EXPECT_THAT(utilita.released, ElementsAre("frmDatiAggiuntivi")) << tipo;
  }
}

TEST_P(FromTheEditor, AnAnnulmentConfirmedInTheDialogConfirmsTheEditorUnseen) {
  moduli({modulo(7, 2)});
  apri(GetParam(), {}, 2);
  const Righe prima = fotografia(riga);
  scrivi([](Dialogo& dialogo) {
    EXPECT_TRUE(dialogo.shrunk());
    tutto(dialogo);
    ok(dialogo);
  });
  editor->ApriDatiAggiuntivi();
  EXPECT_TRUE(editor->OK());
  EXPECT_THAT(frontEnd.shown, ElementsAre("frmDatiAggiuntivi"));
  EXPECT_THAT(utilita.released, ElementsAre("frmDatiAggiuntivi", editor->name()));
  EXPECT_TRUE(differenze(prima, fotografia(riga)).empty());  // nothing marked the row
}

TEST_P(FromTheEditor, AnAnnulmentCancelledInTheDialogClosesAll) {
  apri(GetParam(), {}, 2);
  scrivi([](Dialogo& dialogo) { dialogo.cmdAnnulla.click(); });
  editor->ApriDatiAggiuntivi();
  EXPECT_FALSE(editor->OK());
  EXPECT_THAT(frontEnd.shown, ElementsAre("frmDatiAggiuntivi"));
  EXPECT_THAT(utilita.released, ElementsAre("frmDatiAggiuntivi", editor->name()));
}

TEST_P(FromTheEditor, AnAnnulmentWhoseWarningIsRefusedIsNotConfirmed) {
  apri(GetParam(), {{"SommeCorrispostePreFallimento", amount("1")}}, 2);
  scrivi([](Dialogo& dialogo) {
    tutto(dialogo);
    ok(dialogo);
  });
  frontEnd.answers = {Answer::Cancel};
  editor->ApriDatiAggiuntivi();
  EXPECT_FALSE(editor->OK());
  EXPECT_EQ(frontEnd.boxes.size(), 1U);
  apri(GetParam(), {{"SommeCorrispostePreFallimento", amount("1")}}, 2);
  scrivi([](Dialogo& dialogo) {
    tutto(dialogo);
    ok(dialogo);
  });
  frontEnd.answers = {Answer::Ok};
  editor->ApriDatiAggiuntivi();
  EXPECT_TRUE(editor->OK());
}

TEST_P(FromTheEditor, AnotherKindIsNotFinishedByIt) {
  for (const int tipo : {1, 3}) {
    apri(GetParam(), {}, tipo);
    utilita.released.clear();
    scrivi([](Dialogo& dialogo) {
      tutto(dialogo);
      ok(dialogo);
    });
    editor->ApriDatiAggiuntivi();
    EXPECT_FALSE(editor->OK());
    EXPECT_THAT(utilita.released, ElementsAre("frmDatiAggiuntivi"));
  }
}

INSTANTIATE_TEST_SUITE_P(Layouts, FromTheEditor, testing::Values(2015, 2016, 2018),
                         [](const auto& anno) { return std::to_string(anno.param); });

}  // namespace
}  // namespace cu::test
