#include "wizard/frm_wizard.h"

#include "base/text.h"
#include "fornitura/carico.h"
#include "host/testi_programma.h"
#include "telematic/intermediario.h"

namespace cu {

FrmWizard::FrmWizard(const Ambiente& ambiente, Globali& globali)
    : Form(ambiente.frontEnd, "frmWizard"),
      ctlWizardSideBand(*this, "ctlWizardSideBand", nullptr),
      BarMenuWzr(*this, "BarMenuWzr", nullptr),
      fraStep{
          {{*this, "fraStep(0)", nullptr}, {*this, "fraStep(1)", nullptr}, {*this, "fraStep(2)", nullptr}}},
      lblStep0(*this, "lblStep(0)", &fraStep[0]),
      fraStType(*this, "fraStType", &fraStep[0]),
      optstType{{{*this, "optstType(0)", &fraStType, testoProgramma(118), true},
                 {*this, "optstType(1)", &fraStType, testoProgramma(119)}}},
      fraTipoComunicazione(*this, "fraTipoComunicazione", &fraStep[0], "Tipo comunicazione"),
      optTipoComunicazione{{{*this, "optTipoComunicazione(0)", &fraTipoComunicazione, "Comunicazione", true},
                            {*this, "optTipoComunicazione(1)", &fraTipoComunicazione, "Annullamento"},
                            {*this, "optTipoComunicazione(2)", &fraTipoComunicazione, "Sostituzione"}}},
      lblEsCont0(*this, "lblEsCont(0)", &fraStep[0]),
      KRNCboEsCont0(*this, "KRNCboEsCont(0)", &fraStep[0]),
      lblEsCont1(*this, "lblEsCont(1)", &fraStep[0]),
      KRNCboEsCont1(*this, "KRNCboEsCont(1)", &fraStep[0]),
      cmdOpzioni(*this, "cmdOpzioni", &fraStep[0], "Opzioni di stampa..."),
      chkRicostruzione(*this, "chkRicostruzione", &fraStep[0], "Ricostruzione conti individuali"),
      Frame1(*this, "Frame1", &fraStep[0], "Selezione percipienti"),
      fraSelectOption(*this, "fraSelectOption", &Frame1),
      optCode(*this, "optCode", &fraSelectOption, testoProgramma(113)),
      optName(*this, "optName", &fraSelectOption, testoProgramma(114), true),
      lblPecDA(*this, "lblPecDA", &Frame1),
      KrnCDPerc0(*this, "KrnCDPerc(0)", &Frame1),
      lblName0(*this, "lblName(0)", &Frame1),
      lblPercA(*this, "lblPercA", &Frame1),
      KrnCDPerc1(*this, "KrnCDPerc(1)", &Frame1),
      lblName1(*this, "lblName(1)", &Frame1),
      lblCausContrbDa(*this, "lblCausContrbDa", &Frame1),
      KrnCDCausContrib0(*this, "KrnCDCausContrib(0)", &Frame1),
      lblCausContribA(*this, "lblCausContribA", &Frame1),
      KrnCDCausContrib1(*this, "KrnCDCausContrib(1)", &Frame1),
      lblStep1(*this, "lblStep(1)", &fraStep[1]),
      grdCompensi(*this, "grdCompensi", &fraStep[1]),
      cmdSelect{{{*this, "cmdSelect(0)", &fraStep[1], "Seleziona &tutto"},
                 {*this, "cmdSelect(1)", &fraStep[1], "Deseleziona t&utto"}}},
      cmdProtocollo(*this, "cmdProtocollo", &fraStep[1], "&Protocollo ann./sost."),
      lblStep5(*this, "lblStep(5)", &fraStep[2]),
      fraPercorso(*this, "fraPercorso", &fraStep[2], "Percorso per la creazione della Certificazione Unica"),
      txtPercorsoCU(*this, "txtPercorsoCU", &fraPercorso),
      cmdSfoglia(*this, "cmdSfoglia", &fraPercorso, "Sfoglia"),
      fraTipoStampa(*this, "fraTipoStampa", &fraStep[2], "Tipo di stampa"),
      optStampaTracciato{
          {{*this, "optStampaTracciato(0)", &fraTipoStampa, "Stampa per ogni percipiente", true},
           {*this, "optStampaTracciato(1)", &fraTipoStampa, "Stampa cumulativa"}}},
      fraFirma(*this, "fraFirma", &fraStep[2], "Data della firma"),
      dtDataFirma(*this, "dtDataFirma", &fraFirma),
      chkIntermediari(*this, "chkIntermediari", &fraStep[2], "Uso di intermediari"),
      fraIntermediari(*this, "fraIntermediari", &fraStep[2]),
      lblCodiceFiscale(*this, "lblCodiceFiscale", &fraIntermediari, "Codice fiscale dell'intermediario"),
      txtCodiceFiscale(*this, "txtCodiceFiscale", &fraIntermediari),
      lblTipoComunicazione(*this, "lblTipoComunicazione", &fraIntermediari,
                           "Impegno a trasmettere in via telematica la comunicazione"),
      cboxTipoComunicazione(*this, "cboxTipoComunicazione", &fraIntermediari),
      lblDataImpegno(*this, "lblDataImpegno", &fraIntermediari, "Data dell'impegno"),
      dtDataImpegno(*this, "dtDataImpegno", &fraIntermediari),
      Frame5(*this, "Frame5", &fraStep[2]),
      WizPrint(*this, "WizPrint", &Frame5),
      picNav(*this, "picNav", nullptr),
      cmdNav{{{*this, "cmdNav(0)", &picNav, "I&nformazioni"},
              {*this, "cmdNav(1)", &picNav, "Annulla"},
              {*this, "cmdNav(2)", &picNav, "< &Indietro"},
              {*this, "cmdNav(3)", &picNav, "&Avanti >"},
              {*this, "cmdNav(4)", &picNav, "A&vvia"}}},
      ambiente_(ambiente),
      globali_(globali),
      compensi_(ambiente_.utilita, ambiente_.frontEnd),
      vista_(grdCompensi) {
  compensi_.setVista(vista_);
  // While the certificate's print is chosen, the kind of communication cannot be.
  fraTipoComunicazione.setEnabled(false);
  for (Option& opzione : optTipoComunicazione) opzione.setEnabled(false);
  cmdProtocollo.setEnabled(false);
  fraIntermediari.setEnabled(false);
  for (Control* controllo :
       {static_cast<Control*>(&lblCodiceFiscale), static_cast<Control*>(&lblTipoComunicazione),
        static_cast<Control*>(&lblDataImpegno), static_cast<Control*>(&txtCodiceFiscale),
        static_cast<Control*>(&cboxTipoComunicazione), static_cast<Control*>(&dtDataImpegno)}) {
    controllo->setEnabled(false);
  }
  txtCodiceFiscale.setBackground(Background::Face);
  cboxTipoComunicazione.setBackground(Background::Face);
  dtDataImpegno.setBackground(Background::Face);
  txtCodiceFiscale.setMaxLength(kMassimoCodiceIntermediario);
  txtPercorsoCU.setLocked(true);
  chkRicostruzione.setHint(
      "Ricalcola dai pagamenti i conti scelti, a ogni Avanti: le correzioni memorizzate nei conti vanno "
      "perse.");
  cmdOpzioni.setHint("Interlinea e salto pagina: nessuna stampa di questa procedura li usa.");
  WizPrint.setCatalogue(ambiente_.reports);
  collegaEventi();
}

void FrmWizard::sbInitWizard() {
  globali_.gIDFunzione = globali_.gSessione->processi().at(0).idFunzione;
  sbVaiAlPasso(0, Direzione::Salto);
  if (modo() == ModoCorsa::Certificazione) {
    lblEsCont1.setVisible(false);
    KRNCboEsCont1.setVisible(false);
  }
  if (modo() == ModoCorsa::ContiIndividuali) {
    optstType[0].setVisible(false);
    optstType[1].setVisible(false);
    fraTipoComunicazione.setVisible(false);
    fraFirma.setVisible(false);
    fraIntermediari.setVisible(false);
    chkIntermediari.setVisible(false);
    fraTipoStampa.setVisible(false);
    fraPercorso.setVisible(false);
  }
  associaElenchi();
  cboxTipoComunicazione.clear();
  for (const std::string_view impegno : kImpegni) cboxTipoComunicazione.add(std::string(impegno));
  sPercorsoCU = ambiente_.settings.get(globali_.gChiaveImpostazioni, kMenuSettings, "CU_Path",
                                       ambiente_.utilita.defaultFolder());
  txtPercorsoCU.setText(sPercorsoCU);
}

void FrmWizard::collegaEventi() {
  for (int i = 0; i < 2; ++i) {
    optstType[static_cast<std::size_t>(i)].onClick = [this, i] { tipoScelto(i); };
  }
  KRNCboEsCont0.onChange = [this] {
    // The hidden second list follows the first one when a file is made.
    if (optstType[1].value()) KRNCboEsCont1.setIndex(KRNCboEsCont0.index());
  };
  KrnCDPerc0.onChange = [this] { lblName0.setCaption(fornitura::FindName(intorno(), KrnCDPerc0.record())); };
  KrnCDPerc1.onChange = [this] { lblName1.setCaption(fornitura::FindName(intorno(), KrnCDPerc1.record())); };
  cmdOpzioni.onClick = [this] { opzioniStampa(); };
  collegaGriglia();
  collegaImpostazioni();
  cmdNav[0].onClick = [this] { aiuto(globali_.gSessione->helpContext()); };
  cmdNav[1].onClick = [this] { abbandona(); };
  cmdNav[2].onClick = [this] { sbVaiAlPasso(0, Direzione::Indietro); };
  cmdNav[3].onClick = [this] { sbVaiAlPasso(0, Direzione::Avanti); };
  cmdNav[4].onClick = [this] { avvia(); };
  BarMenuWzr.onToolClick = [this](const std::string& sTool) { sbExecuteMenuCommandWiz(sTool); };
  onKeyDown = [this](std::int16_t& KeyCode, std::int16_t& Shift) { sbGestShortCut(KeyCode, Shift); };
}

ModoCorsa FrmWizard::modo() const { return modoCorsa(globali_.gIDFunzione); }

fornitura::Intorno FrmWizard::intorno() const {
  return {.ambito = ambitoDi(*globali_.gSessione),
          .factory = ambiente_.factory,
          .utilita = ambiente_.utilita,
          .files = ambiente_.files,
          .clock = ambiente_.clock,
          .avanzamento = ambiente_.frontEnd,
          .visore = ambiente_.frontEnd,
          .modello = ambiente_.modello};
}

void FrmWizard::mostraRifiuto(const Finding& rifiuto) {
  ambiente_.utilita.message(rifiuto.text, globali_.gTitolo);
  if (Control* const posto = find(rifiuto.place)) ambiente_.frontEnd.missing(*posto);
}

void FrmWizard::aiuto(int contesto) {
  constexpr int kAiutoPerContesto = 15;
  ambiente_.frontEnd.help(globali_.helpFile, kAiutoPerContesto, contesto);
}

void FrmWizard::abbandona() {
  const std::string domanda =
      modo() == ModoCorsa::ContiIndividuali
          ? "Confermare l'abbandono dell'autocomposizione stampa conti individuali?"
          : " Confermare l'abbandono dell'autocomposizione stampa certificazione compensi?";
  if (ambiente_.utilita.question(domanda, globali_.gTitolo) == UtilitaSuite::kYes) unload();
}

void FrmWizard::formLoad() {
  ambiente_.utilita.prepareForm(*this);
  // A stored text that is not a small number means the plain style; it is required not to prevent the start
  // of the program.
  constexpr std::int64_t kStileMassimo = 99;
  const std::int64_t stile =
      leadingInteger(ambiente_.settings.get(globali_.gChiaveImpostazioni, kMenuSettings, "View2", "2"));
  BarMenuWzr.setStyle(stile < 0 || stile > kStileMassimo ? 0 : static_cast<int>(stile));
  creaMenu();
  for (Frame& cornice : fraStep) cornice.setLeft(Frame::kOffStage);
  sbImpostaFasciaLaterale();
}

// Any error here ends the clean-up silently; the remaining steps are skipped.
void FrmWizard::formUnload() {
  try {
    fornitura::svuotaRicorsione(intorno());
    ambiente_.settings.set(globali_.gChiaveImpostazioni, kMenuSettings, "CU_Path", txtPercorsoCU.text());
    ambiente_.settings.deleteSection(globali_.gChiaveImpostazioni, globali_.gSessione->settingsSection());
  } catch (const std::exception&) {
    return;
  }
}

}  // namespace cu
