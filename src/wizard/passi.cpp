// The step machine: transitions with their checks, and the controls of each step in each mode.

#include "base/text.h"
#include "fornitura/carico.h"
#include "fornitura/selezione.h"
#include "host/testi_programma.h"
#include "wizard/frm_wizard.h"
#include "worklist/tabella_lavoro.h"

namespace cu {
namespace {

std::string fnEsitoMemorizzazione(std::size_t conti) {
  if (conti == 0) return "Nessun conto è cambiato: nessuna riga scelta era stata corretta.";
  if (conti == 1) return "Le correzioni sono state memorizzate in un conto.";
  return "Le correzioni sono state memorizzate in " + fromInteger(static_cast<std::int64_t>(conti)) +
         " conti.";
}

}  // namespace

void FrmWizard::sbVaiAlPasso(std::int16_t nPasso, Direzione nDirezione) {
  const int salto = modoCU() ? 1 : 2;
  int nuovo = nPasso;
  if (nDirezione == Direzione::Indietro) nuovo = nPassoCorrente - salto;
  if (nDirezione == Direzione::Avanti) nuovo = nPassoCorrente + salto;

  previsione_.reset();
  if (nuovo == 0 && !preparaPasso0(nDirezione)) return;
  if (nuovo == 1 && !preparaPasso1(nDirezione)) return;
  if (nuovo == 2 && !preparaPasso2()) return;

  Frame& vecchia = fraStep.at(static_cast<std::size_t>(nPassoCorrente));
  Frame& nuova = fraStep.at(static_cast<std::size_t>(nuovo));
  vecchia.setEnabled(false);
  nuova.setLeft(SideBand::kWidth);
  if (nuovo != nPassoCorrente) vecchia.setLeft(Frame::kOffStage);
  nuova.setEnabled(true);
  sbImpostaTitolo(static_cast<std::int16_t>(nuovo));
  sbImpostaPulsanti(static_cast<std::int16_t>(nuovo));
  // In the modes of two steps the last step is the band's second item.
  ctlWizardSideBand.select(modoCU() || nPassoCorrente == 0 ? nPassoCorrente + 1 : nPassoCorrente);
}

// Not on a button: the same key again would trigger the next step, or the run.
Control* FrmWizard::stageStart() {
  if (nPassoCorrente == 1) return &grdCompensi;
  if (nPassoCorrente == 2) return modoCU() ? static_cast<Control*>(&dtDataFirma) : &WizPrint;
  return nullptr;
}

// On the first step the question has been answered, and the next load replaces the rows; the prints have no
// rows.
std::string FrmWizard::unsavedWork() const {
  const std::size_t righe = compensi_.nonMemorizzate();
  if (!modoCU() || nPassoCorrente == 0 || righe == 0) return {};
  if (righe == 1) return "Un compenso corretto non è ancora stato memorizzato nei conti.";
  return fromInteger(static_cast<std::int64_t>(righe)) +
         " compensi corretti non sono ancora stati memorizzati nei conti.";
}

bool FrmWizard::preparaPasso0(Direzione nDirezione) {
  bAvviaAbilitato = false;
  sbImpostaTesti();
  if (!modoCU() || nDirezione != Direzione::Indietro) return true;
  const Answer risposta =
      ambiente_.frontEnd.messageBox({.text = "Attenzione! Si vogliono memorizzare le modifiche\r\n"
                                             "apportate ai compensi? Rispondere:\r\n"
                                             " - Si per memorizzare\r\n"
                                             " - No per non memorizzare\r\n"
                                             " - Annulla per non andare al passo precedente.",
                                     .title = globali_.gTitolo,
                                     .icon = BoxIcon::Question,
                                     .buttons = BoxButtons::YesNoCancel,
                                     .byDefault = Answer::Yes});
  if (risposta != Answer::Yes) return risposta != Answer::Cancel;
  const auto conti = fornitura::memorizza(compensi_);
  if (!accolto(conti)) return false;
  ambiente_.frontEnd.told(fnEsitoMemorizzazione(*conti));
  return true;
}

bool FrmWizard::preparaPasso1(Direzione nDirezione) {
  if (!fnControllaFiltri()) return false;
  if (optstType[0].value()) {
    sbImpostaPassoFinale();
    bAvviaAbilitato = true;
  } else if (optstType[1].value()) {
    if (nDirezione == Direzione::Avanti) {
      sbCreaFiltroStampa();
      vista_.sbFormattaGriglia(tipoComunicazione());
      sbCaricaCompensi();
    }
    bAvviaAbilitato = false;
  }
  return true;
}

bool FrmWizard::preparaPasso2() {
  if (modoCU() && !accolto(fornitura::controllaSelezione(compensi_, tipoComunicazione()))) return false;
  if (optstType[0].value()) {
    if (!fnControllaFiltri()) return false;
    sbCreaFiltroStampa();
  }
  sbPreparaStampa();
  sbImpostaPassoFinale();
  if (modoCU()) annotaCartella();
  bAvviaAbilitato = true;
  return true;
}

void FrmWizard::sbImpostaPulsanti(std::int16_t nPasso) {
  nPassoCorrente = nPasso;
  cmdNav[2].setEnabled(nPasso != 0);
  cmdNav[3].setEnabled(nPasso != 2);
  cmdNav[4].setEnabled(bAvviaAbilitato);
}

std::string FrmWizard::fnTestoPasso(std::int16_t nPasso) const {
  if (modoCU()) {
    if (nPasso == 0) return "Passo 1 di 3 - Inizio";
    return nPasso == 1 ? "Passo 2 di 3" : "Passo 3 di 3 - Fine";
  }
  return nPasso == 0 ? "Passo 1 di 2 - Inizio" : "Passo 2 di 2 - Fine";
}

void FrmWizard::sbImpostaTitolo(std::int16_t nPasso) {
  setCaption("Autocomposizione " + globali_.gSessione->title() + " - " + fnTestoPasso(nPasso));
}

void FrmWizard::impostaSpiegazioni() {
  if (modo() == ModoCorsa::ContiIndividuali) {
    lblStep0.setCaption(testoProgramma(101));
    lblStep5.setCaption(
        "Dopo aver definito il formato di stampa che si intende utilizzare, è qui possibile scegliere la "
        "tipologia con "
        "cui si vuole che la stampa venga effettuata.");
  } else if (modoCU()) {
    lblStep0.setCaption(
        "Questa procedura consente di creare il tracciato telematico della Certificazione Unica e di "
        "stampare il "
        "modello ministeriale per l’attestazione dei redditi di lavoro autonomo e diversi.");
    lblStep1.setCaption(testoProgramma(1003));
    lblStep5.setCaption(testoProgramma(1004));
  } else {
    lblStep0.setCaption(
        "Questa procedura consente di stampare la certificazione in forma libera dei compensi pagati.");
    lblStep5.setCaption(
        "Confermando l’avvio della procedura verrà stampata la certificazione in forma libera dei compensi "
        "pagati per "
        "l'anno selezionato.");
  }
}

void FrmWizard::sbImpostaTesti() {
  impostaSpiegazioni();
  fraStType.setCaption(testoProgramma(104));
  optstType[0].setCaption(testoProgramma(118));
  optstType[1].setCaption(testoProgramma(119));
  lblEsCont0.setCaption(testoProgramma(modo() == ModoCorsa::ContiIndividuali ? 105 : 122));
  lblEsCont1.setCaption(testoProgramma(115));
  lblPecDA.setCaption(testoProgramma(110));
  lblPercA.setCaption(testoProgramma(111));
  fraSelectOption.setCaption(testoProgramma(112));
  optCode.setCaption(testoProgramma(113));
  optName.setCaption(testoProgramma(114));
  lblCausContrbDa.setCaption(testoProgramma(116));
  lblCausContribA.setCaption(testoProgramma(117));
}

void FrmWizard::sbImpostaFasciaLaterale() {
  ctlWizardSideBand.clear();
  ctlWizardSideBand.add("- Passo iniziale", "Filtri di selezione");
  if (modoCU()) ctlWizardSideBand.add("- Passo 2", "Selezione dei compensi");
  ctlWizardSideBand.add("- Passo finale", "Completamento delle operazioni");
  ctlWizardSideBand.select(1);
}

void FrmWizard::sbImpostaPassoFinale() {
  const bool file = modoCU();
  chkIntermediari.setVisible(file);
  fraIntermediari.setVisible(file);
  fraFirma.setVisible(file);
  fraTipoStampa.setVisible(file);
  fraPercorso.setVisible(file);
}

bool FrmWizard::fnControllaFiltri() { return accolto(fornitura::controllaFiltri(modo(), filtri())); }

void FrmWizard::sbCaricaCompensi() {
  globali_.gTabellaLavoro = fnNomeTabellaLavoro(globali_.gSessione->IDUtente());
  if (!accolto(fornitura::carica(intorno(), compensi_, filtri()))) return;
  grdCompensi.setState(0);
  if (dtDataFirma.entered().empty()) dtDataFirma.setDate(ambiente_.clock.today());
}

void FrmWizard::sbPreparaStampa() {
  SessioneHost& sessione = *globali_.gSessione;
  const std::int32_t tipoOggetto = globali_.gIDFunzione;
  WizPrint.initialise({.connection = &sessione.database().connection(),
                       .idFiliale = sessione.IDFiliale(),
                       .report = {},
                       .idUtente = sessione.IDUtente(),
                       .objectType = tipoOggetto,
                       .defaultRow = fornitura::fnFilialePredefinita(intorno(), tipoOggetto),
                       .application = std::string(kNomeProgramma),
                       .window = 0});
  const bool file = modoCU();
  WizPrint.setChoice(!file);
  WizPrint.setOutput(file ? 6 : 1);
}

void FrmWizard::tipoScelto(int indice) {
  const bool file = indice == 1;
  globali_.gIDFunzione = file ? fnModoCU() : globali_.gSessione->processi().at(0).idFunzione;
  fraTipoComunicazione.setEnabled(file);
  for (Option& opzione : optTipoComunicazione) opzione.setEnabled(file);
  if (file) fraTipoComunicazione.setVisible(true);
  KRNCboEsCont0.setSource(fornitura::fnOrigineAnni(globali_.gSessione->IDAzienda(), file));
  sbImpostaFasciaLaterale();
  impostaSpiegazioni();
  sbImpostaTitolo(nPassoCorrente);
}

void FrmWizard::avvia() {
  const bool mostrata = previsione_.has_value();
  previsione_.reset();
  if (optstType[1].value()) {
    if (fnCreaFileCU(mostrata)) sbVaiAlPasso(0, Direzione::Salto);
    return;
  }
  stampaReport();
}

}  // namespace cu
