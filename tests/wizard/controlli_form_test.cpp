#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "wizard/wizard_prova.h"

namespace cu::test {
namespace {

struct Atteso {
  const char* nome;
  const char* cornice;     // its frame; "" for the form itself
  const char* didascalia;  // as shown in the mode of the certificate; null where the texts differ
};

constexpr Atteso kControlli[] = {
    {"ctlWizardSideBand", "", ""},
    {"BarMenuWzr", "", ""},
    {"fraStep(0)", "", ""},
    {"lblStep(0)", "fraStep(0)", nullptr},
    {"fraStType", "fraStep(0)", "Tipo di stampa"},
    {"optstType(0)", "fraStType", "Stampa certificazione dei compensi"},
    {"optstType(1)", "fraStType", "Creazione tracciato ministeriale e stampa moduli"},
    {"fraTipoComunicazione", "fraStep(0)", "Tipo comunicazione"},
    {"optTipoComunicazione(0)", "fraTipoComunicazione", "Comunicazione"},
    {"optTipoComunicazione(1)", "fraTipoComunicazione", "Annullamento"},
    {"optTipoComunicazione(2)", "fraTipoComunicazione", "Sostituzione"},
    {"lblEsCont(0)", "fraStep(0)", "Anno pagamento compensi"},
    {"KRNCboEsCont(0)", "fraStep(0)", ""},
    {"lblEsCont(1)", "fraStep(0)", "Ad anno"},
    {"KRNCboEsCont(1)", "fraStep(0)", ""},
    {"cmdOpzioni", "fraStep(0)", "Opzioni di stampa..."},
    {"chkRicostruzione", "fraStep(0)", "Ricostruzione conti individuali"},
    {"Frame1", "fraStep(0)", "Selezione percipienti"},
    {"fraSelectOption", "Frame1", "Opzione selezione"},
    {"optCode", "fraSelectOption", "Per codice"},
    {"optName", "fraSelectOption", "Per nominativo"},
    {"lblPecDA", "Frame1", "Da percipiente"},
    {"KrnCDPerc(0)", "Frame1", ""},
    {"lblName(0)", "Frame1", ""},
    {"lblPercA", "Frame1", "A percipiente"},
    {"KrnCDPerc(1)", "Frame1", ""},
    {"lblName(1)", "Frame1", ""},
    {"lblCausContrbDa", "Frame1", "Da causale pagamento"},
    {"KrnCDCausContrib(0)", "Frame1", ""},
    {"lblCausContribA", "Frame1", "A causale pagamento"},
    {"KrnCDCausContrib(1)", "Frame1", ""},
    {"fraStep(1)", "", ""},
    {"lblStep(1)", "fraStep(1)", nullptr},
    {"grdCompensi", "fraStep(1)", ""},
    {"cmdSelect(0)", "fraStep(1)", "Seleziona &tutto"},
    {"cmdSelect(1)", "fraStep(1)", "Deseleziona t&utto"},
    {"cmdProtocollo", "fraStep(1)", "&Protocollo ann./sost."},
    {"fraStep(2)", "", ""},
    {"lblStep(5)", "fraStep(2)", nullptr},
    {"fraPercorso", "fraStep(2)", "Percorso per la creazione della Certificazione Unica"},
    {"txtPercorsoCU", "fraPercorso", ""},
    {"cmdSfoglia", "fraPercorso", "Sfoglia"},
    {"fraTipoStampa", "fraStep(2)", "Tipo di stampa"},
    {"optStampaTracciato(0)", "fraTipoStampa", "Stampa per ogni percipiente"},
    {"optStampaTracciato(1)", "fraTipoStampa", "Stampa cumulativa"},
    {"fraFirma", "fraStep(2)", "Data della firma"},
    {"dtDataFirma", "fraFirma", ""},
    {"chkIntermediari", "fraStep(2)", "Uso di intermediari"},
    {"fraIntermediari", "fraStep(2)", ""},
    {"lblCodiceFiscale", "fraIntermediari", "Codice fiscale dell'intermediario"},
    {"txtCodiceFiscale", "fraIntermediari", ""},
    {"lblTipoComunicazione", "fraIntermediari", "Impegno a trasmettere in via telematica la comunicazione"},
    {"cboxTipoComunicazione", "fraIntermediari", ""},
    {"lblDataImpegno", "fraIntermediari", "Data dell'impegno"},
    {"dtDataImpegno", "fraIntermediari", ""},
    {"Frame5", "fraStep(2)", ""},
    {"WizPrint", "Frame5", ""},
    {"picNav", "", ""},
    {"cmdNav(0)", "picNav", "I&nformazioni"},
    {"cmdNav(1)", "picNav", "Annulla"},
    {"cmdNav(2)", "picNav", "< &Indietro"},
    {"cmdNav(3)", "picNav", "&Avanti >"},
    {"cmdNav(4)", "picNav", "A&vvia"},
};

class WizardControls : public testing::Test, public WizardProva {};

TEST_F(WizardControls, StandInTheirFramesUnderTheirCaptions) {
  avvia(247);
  for (const Atteso& atteso : kControlli) {
    SCOPED_TRACE(atteso.nome);
    const Control* controllo = form().find(atteso.nome);
    ASSERT_NE(controllo, nullptr);
    EXPECT_EQ(controllo->frame() == nullptr ? "" : controllo->frame()->name(), atteso.cornice);
    if (atteso.didascalia != nullptr) {
      EXPECT_EQ(controllo->caption(), atteso.didascalia);
    }
  }
  EXPECT_EQ(form().controls().size(), std::size(kControlli));
}

TEST_F(WizardControls, OptionsThatAreOnByDefault) {
  avvia(247);
  EXPECT_TRUE(form().optstType[0].value());
  EXPECT_FALSE(form().optstType[1].value());
  EXPECT_TRUE(form().optTipoComunicazione[0].value());
  EXPECT_FALSE(form().optTipoComunicazione[1].value());
  EXPECT_FALSE(form().optTipoComunicazione[2].value());
  EXPECT_FALSE(form().optCode.value());
  EXPECT_TRUE(form().optName.value());
  EXPECT_TRUE(form().optStampaTracciato[0].value());
  EXPECT_FALSE(form().optStampaTracciato[1].value());
  EXPECT_FALSE(form().chkRicostruzione.value());
  EXPECT_FALSE(form().chkIntermediari.value());
}

TEST_F(WizardControls, WithTheCertificatesPrintChosenThereIsNoKindOfCommunicationToChoose) {
  avvia(247);
  EXPECT_FALSE(form().fraTipoComunicazione.enabled());
  for (const Option& opzione : form().optTipoComunicazione) EXPECT_FALSE(opzione.enabled());
  EXPECT_FALSE(form().cmdProtocollo.enabled());
}

TEST_F(WizardControls, IntermediaryIsDisabledAtTheStart) {
  avvia(247);
  for (const char* nome : {"fraIntermediari", "lblCodiceFiscale", "txtCodiceFiscale", "lblTipoComunicazione",
                           "cboxTipoComunicazione", "lblDataImpegno", "dtDataImpegno"}) {
    EXPECT_FALSE(form().find(nome)->enabled()) << nome;
  }
  EXPECT_EQ(form().txtCodiceFiscale.text(), "");
  EXPECT_EQ(form().cboxTipoComunicazione.index(), -1);
  EXPECT_EQ(form().dtDataImpegno.text(), "");
  EXPECT_EQ(form().dtDataFirma.text(), "");
}

}  // namespace
}  // namespace cu::test
