// The dialog of the additional data alone.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editors/campi_prova.h"
#include "editors/frm_dati_aggiuntivi.h"

namespace cu::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class AdditionalData : public testing::Test, public CampiProva {
 protected:
  FrmDatiAggiuntivi dialogo{AmbienteEditor{frontEnd, globali, utilita, settings}};

  void riempi(std::int32_t tipo, DatiAggiuntivi dati) {
    dialogo.IDAnagrafica = 1;
    dialogo.IDCausalePagamento = 1;
    dialogo.Nome = "Mario";
    dialogo.dati = std::move(dati);
    dialogo.setTipoComunicazione(static_cast<Comunicazione>(tipo));
    dialogo.sbFill();
  }
  static DatiAggiuntivi completi() {
    return {.Protocollo = "123",
            .Progressivo = "7",
            .IDComuneResidenzaAnnoPrec = 58,
            .IDComuneResidenzaAnnoCorr = 59,
            .ComuneResidenzaAnnoPrec = "Roma",
            .ComuneResidenzaAnnoCorr = "Milano",
            .FusioneComuni = "fusione",
            .FusioneComuniAnnoPrec = "precedente"};
  }
  static DatiAggiuntivi riferimenti(std::string protocollo, std::string progressivo) {
    DatiAggiuntivi dati;
    dati.Protocollo = std::move(protocollo);
    dati.Progressivo = std::move(progressivo);
    return dati;
  }
  TextBox& protocollo() { return dialogo.riferimenti.txtProtocollo; }
  TextBox& progressivo() { return dialogo.riferimenti.txtProgressivo; }
  void premiOk() {
    frontEnd.runEvent([&] { dialogo.cmdOk.click(); });
  }
  bool chiuso() const { return !utilita.released.empty(); }
};

TEST_F(AdditionalData, HasItsWords) {
  EXPECT_EQ(dialogo.name(), "frmDatiAggiuntivi");
  EXPECT_EQ(dialogo.caption(), "Certificazione compensi - Dati aggiuntivi");
  const std::pair<const char*, const char*> attese[] = {
      {"fraTab0", "Altri dati"},
      {"fraRiferimenti", "Riferimenti per annullamento/sostituzione"},
      {"lblProtocollo", "Protocollo"},
      {"lblProgressivo", "Progressivo"},
      {"Frame1", "Dati del percipiente"},
      {"txtNome", "Nome"},
      {"fraMain", "Altri dati"},
      {"Frame2", "Comune di residenza anno precedente"},
      {"Frame3", "Comune di residenza anno corrente"},
      {"lblFusioneComuniAnnoPrec", "Fusione comuni"},
      {"lblFusioneComuni", "Fusione comuni"},
      {"cmdOk", "OK"},
      {"cmdAnnulla", "Annulla"}};
  for (const auto& [nome, testo] : attese) EXPECT_EQ(dialogo.find(nome)->caption(), testo) << nome;
  const std::pair<const char*, const char*> riquadri[] = {{"fraRiferimenti", "fraTab0"},
                                                          {"txtProtocollo", "fraRiferimenti"},
                                                          {"txtProgressivo", "fraRiferimenti"},
                                                          {"Frame1", "fraTab0"},
                                                          {"cdPercipiente", "Frame1"},
                                                          {"cdPagamento", "Frame1"},
                                                          {"txtNome", "Frame1"},
                                                          {"Frame2", "fraMain"},
                                                          {"Frame3", "fraMain"},
                                                          {"TownComuneResidenzaAnnoPrec", "Frame2"},
                                                          {"txtFusioneComuniAnnoPrec", "Frame2"},
                                                          {"TownComuneResidenzaAnnoCorr", "Frame3"},
                                                          {"txtFusioneComuni", "Frame3"}};
  for (const auto& [nome, riquadro] : riquadri) {
    EXPECT_EQ(dialogo.find(nome)->frame()->name(), riquadro) << nome;
  }
}

TEST_F(AdditionalData, FillsTheControlsFromItsMembers) {
  riempi(3, completi());
  EXPECT_EQ(dialogo.percipiente.cdPercipiente.record(), 1);
  EXPECT_EQ(dialogo.percipiente.cdPagamento.record(), 1);
  EXPECT_EQ(dialogo.percipiente.txtNome.text(), "Mario");
  EXPECT_FALSE(dialogo.percipiente.cdPercipiente.enabled());
  EXPECT_FALSE(dialogo.percipiente.cdPagamento.enabled());
  EXPECT_FALSE(dialogo.percipiente.txtNome.enabled());
  EXPECT_EQ(protocollo().text(), "123");
  EXPECT_EQ(progressivo().text(), "7");
  EXPECT_EQ(dialogo.TownComuneResidenzaAnnoPrec.record(), 58);
  EXPECT_EQ(dialogo.TownComuneResidenzaAnnoPrec.text(), "Roma");
  EXPECT_EQ(dialogo.TownComuneResidenzaAnnoCorr.record(), 59);
  EXPECT_EQ(dialogo.TownComuneResidenzaAnnoCorr.text(), "Milano");
  EXPECT_EQ(dialogo.txtFusioneComuni.text(), "fusione");
  EXPECT_EQ(dialogo.txtFusioneComuniAnnoPrec.text(), "precedente");
}

TEST_F(AdditionalData, GivesThePickersTitleAndContextOfTheRun) {
  riempi(1, {});
  for (const Picker* comune : {&dialogo.TownComuneResidenzaAnnoPrec, &dialogo.TownComuneResidenzaAnnoCorr}) {
    EXPECT_EQ(comune->title(), "Quadrivio");
    EXPECT_EQ(comune->helpContext(), 100);
    EXPECT_EQ(comune->connection(), &database.own);
  }
}

TEST_F(AdditionalData, AnOrdinaryCommunicationNeedsNoReferencesAndClosesTheirBoxes) {
  for (const int tipo : {1, 0, 4}) {
    dialogo.setTipoComunicazione(static_cast<Comunicazione>(tipo));
    EXPECT_EQ(dialogo.riferimenti.fraRiferimenti.caption(), "Riferimenti per sost./ann.");
    for (const char* nome :
         {"fraRiferimenti", "txtProtocollo", "txtProgressivo", "lblProtocollo", "lblProgressivo"}) {
      EXPECT_FALSE(dialogo.find(nome)->enabled()) << nome;
    }
    EXPECT_EQ(protocollo().background(), Background::Face);
    EXPECT_EQ(progressivo().background(), Background::Face);
    EXPECT_TRUE(dialogo.fraMain.visible());
    EXPECT_FALSE(dialogo.shrunk());
  }
  riempi(1, {});
  EXPECT_FALSE(protocollo().available());
  premiOk();
  EXPECT_TRUE(dialogo.OK());
  EXPECT_TRUE(chiuso());
  EXPECT_THAT(frontEnd.boxes, IsEmpty());
}

void aperto(FrmDatiAggiuntivi& dialogo) {
  for (const char* nome :
       {"fraRiferimenti", "txtProtocollo", "txtProgressivo", "lblProtocollo", "lblProgressivo"}) {
    EXPECT_TRUE(dialogo.find(nome)->enabled()) << nome;
  }
  EXPECT_EQ(dialogo.riferimenti.txtProtocollo.background(), Background::Window);
  EXPECT_EQ(dialogo.riferimenti.txtProgressivo.background(), Background::Window);
}

TEST_F(AdditionalData, AnAnnulmentShowsOnlyTheReferences) {
  dialogo.setTipoComunicazione(Comunicazione::Ordinaria);
  dialogo.setTipoComunicazione(Comunicazione::Annullamento);
  EXPECT_EQ(dialogo.riferimenti.fraRiferimenti.caption(), "Riferimenti per annullamento");
  aperto(dialogo);
  EXPECT_FALSE(dialogo.fraMain.visible());
  EXPECT_TRUE(dialogo.shrunk());
}

TEST_F(AdditionalData, AReplacementShowsAll) {
  dialogo.setTipoComunicazione(Comunicazione::Annullamento);
  dialogo.setTipoComunicazione(Comunicazione::Sostituzione);
  EXPECT_EQ(dialogo.riferimenti.fraRiferimenti.caption(), "Riferimenti per sostituzione");
  aperto(dialogo);
  EXPECT_TRUE(dialogo.fraMain.visible());
  EXPECT_FALSE(dialogo.shrunk());
}

TEST_F(AdditionalData, TheReferencesTakeDigitsAndTheFewOtherCodesOfTheFilter) {
  dialogo.setTipoComunicazione(Comunicazione::Sostituzione);
  for (TextBox* casella : {&protocollo(), &progressivo()}) {
    for (char32_t tasto = 1; tasto < 256; ++tasto) {
      const bool ammesso = (tasto >= 48 && tasto <= 57) || tasto == 8 || tasto == 9 || tasto == 12 ||
                           (tasto >= 37 && tasto <= 40) || tasto == 46;
      const int suoni = frontEnd.beeps;
      EXPECT_EQ(casella->type(tasto), ammesso) << static_cast<unsigned>(tasto);
      EXPECT_EQ(frontEnd.beeps, ammesso ? suoni : suoni + 1) << static_cast<unsigned>(tasto);
    }
  }
}

TEST_F(AdditionalData, OkTakesWhatTheControlsHold) {
  riempi(3, {});
  protocollo().enter("99");
  progressivo().enter("3");
  dialogo.TownComuneResidenzaAnnoPrec.setRecord(59);
  dialogo.TownComuneResidenzaAnnoCorr.setRecord(58);
  dialogo.txtFusioneComuni.enter("ora");
  dialogo.txtFusioneComuniAnnoPrec.enter("prima");
  premiOk();
  EXPECT_TRUE(dialogo.OK());
  EXPECT_TRUE(chiuso());
  EXPECT_EQ(dialogo.dati.Protocollo, "99");
  EXPECT_EQ(dialogo.dati.Progressivo, "3");
  EXPECT_EQ(dialogo.dati.IDComuneResidenzaAnnoPrec, 59);
  EXPECT_EQ(dialogo.dati.IDComuneResidenzaAnnoCorr, 58);
  EXPECT_EQ(dialogo.dati.ComuneResidenzaAnnoPrec, "Milano");
  EXPECT_EQ(dialogo.dati.ComuneResidenzaAnnoCorr, "Roma");
  EXPECT_EQ(dialogo.dati.FusioneComuni, "ora");
  EXPECT_EQ(dialogo.dati.FusioneComuniAnnoPrec, "prima");
}

TEST_F(AdditionalData, AnEmptyPickerGivesZeroAndAnEmptyName) {
  riempi(1, completi());
  dialogo.TownComuneResidenzaAnnoPrec.setRecord(0);
  dialogo.TownComuneResidenzaAnnoCorr.setRecord(0);
  premiOk();
  EXPECT_EQ(dialogo.dati.IDComuneResidenzaAnnoPrec, 0);
  EXPECT_EQ(dialogo.dati.ComuneResidenzaAnnoPrec, "");
  EXPECT_EQ(dialogo.dati.IDComuneResidenzaAnnoCorr, 0);
  EXPECT_EQ(dialogo.dati.ComuneResidenzaAnnoCorr, "");
}

TEST_F(AdditionalData, TheTextsHoldAsMuchAsTheirColumns) {
  riempi(3, {});
  const std::string lungo(300, '7');
  for (TextBox* casella :
       {&protocollo(), &progressivo(), &dialogo.txtFusioneComuni, &dialogo.txtFusioneComuniAnnoPrec}) {
    casella->enter(lungo);
    EXPECT_EQ(casella->text(), lungo.substr(0, 255)) << casella->name();
    casella->paste(lungo);
    EXPECT_EQ(casella->text(), lungo.substr(0, 255)) << casella->name();
  }
}

TEST_F(AdditionalData, ALongerStoredTextThatNobodyTouchesStays) {
  DatiAggiuntivi dati = completi();
  dati.FusioneComuni = dati.FusioneComuniAnnoPrec = dati.Protocollo = std::string(300, '7');
  riempi(3, dati);
  dialogo.txtFusioneComuniAnnoPrec.enter("ora");
  premiOk();
  EXPECT_EQ(dialogo.dati.FusioneComuni, dati.FusioneComuni);
  EXPECT_EQ(dialogo.dati.FusioneComuniAnnoPrec, "ora");
  EXPECT_EQ(dialogo.dati.Protocollo, dati.Protocollo);
}

TEST_F(AdditionalData, AMunicipalityThatNoRowHasIsKept) {
  database.own.answer("SELECT Comune FROM Comune WHERE IDComune = 7", Table({"Comune"}, {}));
  DatiAggiuntivi dati = completi();
  dati.IDComuneResidenzaAnnoPrec = 7;
  riempi(1, dati);
  EXPECT_EQ(dialogo.TownComuneResidenzaAnnoPrec.record(), 0);
  premiOk();
  EXPECT_EQ(dialogo.dati.IDComuneResidenzaAnnoPrec, 7);
}

TEST_F(AdditionalData, CancelLeavesItsMembersAsTheyWere) {
  riempi(3, completi());
  protocollo().enter("99");
  dialogo.TownComuneResidenzaAnnoPrec.setRecord(59);
  dialogo.cmdAnnulla.click();
  EXPECT_FALSE(dialogo.OK());
  EXPECT_TRUE(chiuso());
  EXPECT_EQ(dialogo.dati.Protocollo, "123");
  EXPECT_EQ(dialogo.dati.IDComuneResidenzaAnnoPrec, 58);
}

TEST_F(AdditionalData, AnnulmentAndReplacementNeedBothReferences) {
  for (const int tipo : {2, 3}) {
    frontEnd.boxes.clear();
    utilita.released.clear();
    riempi(tipo, {});
    frontEnd.modals.push_back([&](Form&) {
      premiOk();
      EXPECT_EQ(dialogo.focus(), &protocollo());
      EXPECT_FALSE(chiuso());
      protocollo().enter("1");
      premiOk();
      EXPECT_EQ(dialogo.focus(), &progressivo());
      EXPECT_FALSE(chiuso());
      progressivo().enter("2");
      premiOk();
      EXPECT_TRUE(chiuso());
    });
    dialogo.showModal();
    EXPECT_TRUE(dialogo.OK());
    EXPECT_THAT(frontEnd.boxTexts(), ElementsAre("Attenzione! Il protocollo è un campo obbligatorio.",
                                                 "Attenzione! Il progressivo è un campo obbligatorio."));
    for (const MessageBox& box : frontEnd.boxes) {
      EXPECT_EQ(box.title, "Quadrivio");
      EXPECT_EQ(box.icon, BoxIcon::Warning);
      EXPECT_EQ(box.buttons, BoxButtons::Ok);
    }
  }
}

TEST_F(AdditionalData, StoredSpacesCountAsEmpty) {
  riempi(3, riferimenti("   ", "1"));
  premiOk();
  EXPECT_THAT(frontEnd.boxTexts(), ElementsAre("Attenzione! Il protocollo è un campo obbligatorio."));
  EXPECT_FALSE(chiuso());
  frontEnd.boxes.clear();
  riempi(3, riferimenti("1", "  "));
  premiOk();
  EXPECT_THAT(frontEnd.boxTexts(), ElementsAre("Attenzione! Il progressivo è un campo obbligatorio."));
}

TEST_F(AdditionalData, AFailedCheckAndThenCancelLeavesWhatWasTypedInTheMembers) {
  riempi(3, completi());
  protocollo().enter("");
  progressivo().enter("8");
  dialogo.txtFusioneComuni.enter("altra");
  premiOk();
  EXPECT_TRUE(dialogo.OK());  // set before the check
  dialogo.cmdAnnulla.click();
  EXPECT_FALSE(dialogo.OK());
  EXPECT_EQ(dialogo.dati.Protocollo, "");
  EXPECT_EQ(dialogo.dati.Progressivo, "8");
  EXPECT_EQ(dialogo.dati.FusioneComuni, "altra");
}

TEST_F(AdditionalData, AFailedCheckAndThenTheCloseBoxGivesUpToo) {
  riempi(3, {});
  premiOk();
  dialogo.close();
  EXPECT_FALSE(dialogo.OK());
  EXPECT_TRUE(chiuso());
}

TEST_F(AdditionalData, WritesNothing) {
  riempi(3, completi());
  premiOk();
  for (FakeConnection* connessione : {&database.main, &database.internal, &database.own}) {
    EXPECT_THAT(connessione->texts(FakeConnection::Kind::Execute), IsEmpty());
  }
  EXPECT_THAT(utilita.prepared, ElementsAre("frmDatiAggiuntivi"));
  EXPECT_THAT(utilita.released, ElementsAre("frmDatiAggiuntivi"));
}

}  // namespace
}  // namespace cu::test
