// The selection filters of the first step: lists, selectors, the filter text, the rebuild of the accounts.

#include "base/text.h"
#include "context/testi_programma.h"
#include "modello/modello.h"
#include "wizard/frm_wizard.h"

namespace cu {
namespace {

std::string fnEsitoRicostruzione(std::size_t cambiati) {
  if (cambiati == 0) return "La ricostruzione non ha cambiato nessun conto.";
  if (cambiati == 1) return "La ricostruzione ha cambiato un conto.";
  return "La ricostruzione ha cambiato " + fromInteger(static_cast<std::int64_t>(cambiati)) + " conti.";
}

}  // namespace

void FrmWizard::sbInitWizard() {
  globali_.gIDFunzione = globali_.gSessione->processi().at(0).idFunzione;
  sbVaiAlPasso(0, Direzione::Salto);
  if (globali_.gIDFunzione == fnModoCertificazione()) {
    lblEsCont1.setVisible(false);
    KRNCboEsCont1.setVisible(false);
  }
  if (globali_.gIDFunzione == fnModoContiIndividuali()) {
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
  cboxTipoComunicazione.add("Comunicazione predisposta dal contribuente");
  cboxTipoComunicazione.add("Comunicazione predisposta da chi effettua l'invio");
  sPercorsoCU = ambiente_.settings.get(globali_.gChiaveImpostazioni, kMenuSettings, "CU_Path",
                                       ambiente_.utilita.defaultFolder());
  txtPercorsoCU.setText(sPercorsoCU);
}

// The years of the accounts, or of those alone that have a form of their own or a newer one.
std::string FrmWizard::fnOrigineAnni(bool conModulo) const {
  return "SELECT DISTINCT ContoIndividuale.Anno From ContoIndividuale WHERE IDAzienda = " +
         fromInteger(globali_.gSessione->IDAzienda()) +
         (conModulo ? " AND Anno >= " + fromInteger(modello::kModello.noti.primo) : std::string()) +
         " ORDER BY Anno DESC";
}

void FrmWizard::associaElenchi() {
  DatabaseHost& database = globali_.gSessione->database();
  for (ListBox* anni : {&KRNCboEsCont0, &KRNCboEsCont1}) {
    anni->setConnection(database.ownConnection());
    anni->setSource(fnOrigineAnni(modoCU()));
    anni->setDisplayField("Anno");
    anni->addColumn("Anno");
    anni->load();
  }
  for (Selector* percipiente : {&KrnCDPerc0, &KrnCDPerc1}) {
    percipiente->bind(database.ownConnection(),
                      {.table = "RepPercipienteCD",
                       .codeField = "Codice",
                       .descriptionField = "Anagrafica",
                       .idField = "IDAnagrafica",
                       .codeCaption = "Codice",
                       .descriptionCaption = "Percipiente",
                       .filter = "IDAzienda = " + fromInteger(globali_.gSessione->IDAzienda()),
                       .title = {},
                       .manage = false,
                       .search = true});
  }
  for (Selector* causale : {&KrnCDCausContrib0, &KrnCDCausContrib1}) {
    causale->bind(database.ownConnection(), {.table = "CausalePagamento",
                                             .codeField = "Codice",
                                             .descriptionField = "CausalePagamento",
                                             .idField = "IDCausalePagamento",
                                             .codeCaption = "Codice causale",
                                             .descriptionCaption = "Descrizione causale",
                                             .filter = {},
                                             .title = "Causale pagamento",
                                             .manage = false,
                                             .search = true});
  }
}

std::string FrmWizard::FindName(std::int64_t nID) {
  try {
    const auto ricerca = globali_.gSessione->database().CreateRowset();
    ricerca->addField("IDAnagrafica");
    ricerca->addField("Nome");
    ricerca->setTable("Anagrafica");
    ricerca->setFilter("IDAnagrafica = " + fromInteger(nID));
    ricerca->open();
    return ricerca->eof() ? std::string() : ambiente_.utilita.toText(ricerca->value("Nome").view());
  } catch (const std::exception&) {
    return {};
  }
}

Filtri FrmWizard::filtri() const {
  return {.anno = KRNCboEsCont0.text(),
          .adAnno = KRNCboEsCont1.text(),
          .perCodice = optCode.value(),
          .perNome = optName.value(),
          .codiceDa = KrnCDPerc0.code(),
          .codiceA = KrnCDPerc1.code(),
          .descrizioneDa = KrnCDPerc0.description(),
          .descrizioneA = KrnCDPerc1.description(),
          .causaleDa = KrnCDCausContrib0.code(),
          .causaleA = KrnCDCausContrib1.code()};
}

// Such a bound is compared as it was typed, by name not at all or against an empty name.
void FrmWizard::segnalaEstremi() {
  const auto segnala = [&](const Label& didascalia, const Selector& estremo) {
    if (estremo.record() != 0) return;
    if (!trim(estremo.code()).empty()) {
      ambiente_.frontEnd.told(didascalia.caption() + ": il codice \"" + std::string(trim(estremo.code())) +
                              "\" non esiste, l'intervallo può non valere come è scritto.");
    } else if (!trim(estremo.description()).empty()) {
      ambiente_.frontEnd.told(didascalia.caption() + ": senza il codice la descrizione non limita nulla.");
    }
  };
  segnala(lblPecDA, KrnCDPerc0);
  segnala(lblPercA, KrnCDPerc1);
  segnala(lblCausContrbDa, KrnCDCausContrib0);
  segnala(lblCausContribA, KrnCDCausContrib1);
}

void FrmWizard::sbCreaFiltroStampa() {
  segnalaEstremi();
  const UtilitaSuite& utilita = ambiente_.utilita;
  const Filtri scelti = filtri();
  const auto dato = [](const std::string& codice) { return !trim(codice).empty(); };
  sFiltro.clear();
  if (scelti.perCodice) {
    if (dato(scelti.codiceDa)) sFiltro += " AND CodicePercipiente >= " + utilita.literal(scelti.codiceDa);
    if (dato(scelti.codiceA)) sFiltro += " AND CodicePercipiente <= " + utilita.literal(scelti.codiceA);
  } else if (scelti.perNome) {
    // The bound is set by its code, though the value compared is the name.
    if (dato(scelti.codiceDa)) sFiltro += " AND Anagrafica >= " + utilita.literal(scelti.descrizioneDa);
    if (dato(scelti.codiceA)) sFiltro += " AND Anagrafica <= " + utilita.literal(scelti.descrizioneA);
  }
  if (dato(scelti.causaleDa))
    sFiltro += " AND CodiceCausalePagamento >= " + utilita.literal(scelti.causaleDa);
  if (dato(scelti.causaleA)) sFiltro += " AND CodiceCausalePagamento <= " + utilita.literal(scelti.causaleA);
  if (chkRicostruzione.value()) ricostruisciConti(scelti);
}

void FrmWizard::ricostruisciConti(const Filtri& scelti) {
  FrontEnd& schermo = ambiente_.frontEnd;
  schermo.setPointer(kPointerHourglass);
  schermo.progress("Ricostruzione dei conti individuali", 0, 0);
  oRic = ambiente_.factory.createRicostruzione();
  oRic->setDatabase(globali_.gSessione->database());
  oRic->setAzienda(globali_.gSessione->IDAzienda());
  oRic->setFlag(true);
  oRic->setFiltro(sFiltro);
  oRic->ricostruisci(static_cast<std::int16_t>(leadingInteger(trim(scelti.anno))));
  const std::size_t cambiati = oRic->contiCambiati();
  oRic.reset();
  schermo.setPointer(kPointerDefault);
  schermo.told(fnEsitoRicostruzione(cambiati));
}

}  // namespace cu
