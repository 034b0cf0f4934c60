// The selection filters of the first step: lists, selectors, the filter text, the rebuild of the accounts.

#include "base/text.h"
#include "fornitura/carico.h"
#include "wizard/frm_wizard.h"
#include "worklist/elenchi.h"

namespace cu {
namespace {

std::string fnEsitoRicostruzione(std::size_t cambiati) {
  if (cambiati == 0) return "La ricostruzione non ha cambiato nessun conto.";
  if (cambiati == 1) return "La ricostruzione ha cambiato un conto.";
  return "La ricostruzione ha cambiato " + fromInteger(static_cast<std::int64_t>(cambiati)) + " conti.";
}

}  // namespace

void FrmWizard::associaElenchi() {
  DatabaseHost& database = globali_.gSessione->database();
  for (ListBox* anni : {&KRNCboEsCont0, &KRNCboEsCont1}) {
    anni->setConnection(database.ownConnection());
    anni->setSource(fornitura::fnOrigineAnni(globali_.gSessione->IDAzienda(), modoCU()));
    anni->setDisplayField("Anno");
    anni->addColumn("Anno");
    anni->load();
  }
  for (Selector* percipiente : {&KrnCDPerc0, &KrnCDPerc1}) {
    percipiente->bind(database.ownConnection(),
                      {elencoPercipienti(globali_.gSessione->IDAzienda()), "Codice", "Percipiente", ""});
  }
  for (Selector* causale : {&KrnCDCausContrib0, &KrnCDCausContrib1}) {
    causale->bind(database.ownConnection(),
                  {elencoCausali(), "Codice causale", "Descrizione causale", "Causale pagamento"});
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

// Such a limit is compared as typed; by name it is ignored, or compared with an empty name.
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
  if (!chkRicostruzione.value()) return;
  const auto cambiati = fornitura::ricostruisci(intorno(), filtri());
  ambiente_.frontEnd.told(fnEsitoRicostruzione(*cambiati));
}

}  // namespace cu
