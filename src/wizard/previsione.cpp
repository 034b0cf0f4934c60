// The overview for the user: what the run concerns, and what it will do.

#include <exception>
#include <utility>

#include "base/text.h"
#include "fornitura/carico.h"
#include "telematic/controlli.h"
#include "wizard/frm_wizard.h"

namespace cu {
namespace {

using Fatti = std::vector<Form::Fact>;

using fornitura::numeroItaliano;

std::string conta(std::size_t quanti, const char* uno, const char* molti) {
  return numeroItaliano(quanti) + " " + (quanti == 1 ? uno : molti);
}

const char* nomeComunicazione(Comunicazione tipo) {
  switch (tipo) {
    case Comunicazione::Annullamento:
      return "Certificazione Unica, annullamento";
    case Comunicazione::Sostituzione:
      return "Certificazione Unica, sostituzione";
    case Comunicazione::Ordinaria:
    case Comunicazione::Nessuna:
      break;
  }
  return "Certificazione Unica, ordinaria";
}

const char* nomeUscita(int uscita) {
  switch (static_cast<Uscita>(uscita)) {
    case Uscita::Anteprima:
      return "in anteprima, sullo schermo";
    case Uscita::Stampante:
      return "sulla stampante che si sceglie";
    case Uscita::Pdf:
      return "in un file PDF con il nome che si sceglie";
    case Uscita::Foglio:
      return "in una tabella con il nome che si sceglie";
    case Uscita::Posta:
      return "in un PDF nella cartella dei documenti";
    case Uscita::File:
      return "in un file";
  }
  return "";
}

std::string intervallo(const std::string& da, const std::string& a, const char* tutto) {
  if (da.empty() && a.empty()) return tutto;
  if (da.empty()) return "fino a " + a;
  return a.empty() ? "da " + da : da == a ? da : "da " + da + " a " + a;
}

}  // namespace

// An error is reported where the company matters; here it leaves the name empty.
const fornitura::DatiPrevisti& FrmWizard::azienda() {
  if (!azienda_) {
    try {
      azienda_ = fornitura::prevedi(intorno(), {});
    } catch (const std::exception&) {
      azienda_.emplace();
    }
  }
  return *azienda_;
}

std::string FrmWizard::anniScelti() const {
  std::string da = KRNCboEsCont0.text();
  std::string a = KRNCboEsCont1.text();
  if (modo() != ModoCorsa::ContiIndividuali || da == a) return da;
  if (a.empty()) return "dal " + da;
  if (da.empty()) return "fino al " + a;
  // The print takes them in either order.
  if (a < da) std::swap(da, a);
  return da + " - " + a;
}

std::vector<Form::Fact> FrmWizard::whereabouts() {
  if (globali_.gSessione == nullptr || globali_.gIDFunzione == 0) return {};
  const fornitura::DatiPrevisti& sua = azienda();
  Fatti fatti;
  if (!sua.azienda.empty()) {
    fatti.push_back({"Azienda", sua.azienda + (sua.sCodFisc.empty() ? "" : " (" + sua.sCodFisc + ")")});
  }
  if (const std::string anni = anniScelti(); !anni.empty()) fatti.push_back({"Anno", anni});
  switch (modo()) {
    case ModoCorsa::CU:
      fatti.push_back({"Comunicazione", nomeComunicazione(tipoComunicazione())});
      break;
    case ModoCorsa::Certificazione:
      fatti.push_back({"Stampa", "Certificazione in forma libera"});
      break;
    case ModoCorsa::ContiIndividuali:
      fatti.push_back({"Stampa", "Conti individuali"});
      break;
    case ModoCorsa::Altro:
      break;
  }
  return fatti;
}

void FrmWizard::aggiornaPrevisione() {
  if (previsione_) return;
  previsione_.emplace();
  previsione_->riepilogo = fornitura::riepiloga(compensi_);
  // A database that does not answer now is not asked again after each event.
  try {
    previsione_->dati = fornitura::prevedi(intorno(), compensi_.tabella(), tipoComunicazione());
  } catch (const std::exception&) {
    previsione_->dati.sCodFisc = azienda().sCodFisc;
    previsione_->illeggibile = true;
  }
}

DatiControllo FrmWizard::datiControllo() const {
  return {.dataFirma = dtDataFirma.entered(),
          .usoIntermediari = chkIntermediari.value(),
          .codiceFiscaleIntermediario = txtCodiceFiscale.text(),
          .dataImpegno = dtDataImpegno.entered(),
          .tipo = tipoComunicazione()};
}

Form::Fact FrmWizard::rilieviPrevisti() const {
  std::vector<DatoMancante> mancanti = Controlli::mancantiSulloSchermo(datiControllo());
  mancanti.insert(mancanti.end(), previsione_->dati.mancanti.begin(), previsione_->dati.mancanti.end());
  std::string testo;
  if (!mancanti.empty()) {
    const bool ci = fornitura::soloNonAttestati(mancanti);
    testo = (ci ? conta(mancanti.size(), "dato non è del modello dell'anno",
                        "dati non sono del modello dell'anno")
                : conta(mancanti.size(), "dato manca", "dati mancano")) +
            (mancanti.size() == 1 ? ": Avvia lo segnala e non crea il file. "
                                  : ": Avvia li elenca e non crea il file. Il primo: ") +
            mancanti.front().messaggio;
    const std::string& chi = mancanti.front().denominazione;
    testo += chi.empty() ? "." : " (" + std::string(trim(chi)) + ").";
  }
  if (const std::size_t quanti = previsione_->dati.conCaselleVuote; mancanti.empty() && quanti > 0) {
    testo = conta(quanti, "percipiente non residente ha", "percipienti non residenti hanno") +
            " caselle il cui contenuto non è attestato: Avvia chiede conferma e le lascia vuote.";
  }
  const auto date = fornitura::controllaDate(
      {dtDataFirma.date(), dtDataImpegno.enabled() ? dtDataImpegno.date() : std::nullopt},
      ambiente_.clock.today());
  for (const Finding& avviso : date.warnings) {
    testo += testo.empty() ? "" : " ";
    testo += avviso.place == "dtDataFirma" ? "La data della firma è futura: Avvia chiede conferma."
                                           : "La data dell'impegno è dubbia: Avvia chiede conferma.";
  }
  if (testo.empty() && previsione_->illeggibile)
    return {"Controllo dei dati", "ora non si possono leggere", true};
  if (testo.empty()) return {"Controllo dei dati", "nessun dato manca"};
  return {"Controllo dei dati", testo, true};
}

std::vector<Form::Fact> FrmWizard::previsioneCU() {
  aggiornaPrevisione();
  const fornitura::Riepilogo& suo = previsione_->riepilogo;
  const bool importi = tipoComunicazione() != Comunicazione::Annullamento;
  Fatti fatti;
  fatti.push_back(
      {"Righe", conta(suo.righe, "riga scelta", "righe scelte") + " su " + numeroItaliano(suo.caricate)});
  fatti.push_back({"Percipienti", numeroItaliano(suo.percipienti)});
  if (importi) {
    fatti.push_back({"Ammontare lordo", fornitura::importoItaliano(suo.lordo)});
    fatti.push_back({"Ritenute", fornitura::importoItaliano(suo.ritenute)});
  }
  fatti.push_back({"File", fornitura::fnNomeFile(previsione_->dati.sCodFisc, KRNCboEsCont0.text())});
  fatti.push_back({"Cartella", sPercorsoCU});
  if (!txtPercorsoCU.note().empty()) fatti.push_back({"Attenzione", txtPercorsoCU.note(), true});
  fatti.push_back({"Moduli", optStampaTracciato[1].value() ? std::string("un file PDF per tutte le righe")
                                                           : conta(suo.righe, "file PDF", "file PDF")});
  std::string correzioni = suo.daMemorizzare == 0 ? "nessuna da memorizzare"
                                                  : conta(suo.daMemorizzare, "da memorizzare nel suo conto",
                                                          "da memorizzare nei loro conti");
  if (suo.nonMemorizzate > 0) {
    correzioni += "; " + conta(suo.nonMemorizzate, "resta fuori: la sua riga non è scelta",
                               "restano fuori: le loro righe non sono scelte");
  }
  if (suo.senzaSpese > 0) {
    correzioni += "; " + conta(suo.senzaSpese, "riga M o O perde nei conti le spese rimborsate",
                               "righe M e O perdono nei conti le spese rimborsate");
  }
  fatti.push_back({"Correzioni", correzioni, suo.nonMemorizzate > 0 || suo.senzaSpese > 0});
  fatti.push_back(rilieviPrevisti());
  return fatti;
}

std::vector<Form::Fact> FrmWizard::previsioneStampa() {
  const Filtri scelti = filtri();
  const std::string anni = anniScelti();
  const std::string& da = scelti.perCodice ? scelti.codiceDa : scelti.descrizioneDa;
  const std::string& a = scelti.perCodice ? scelti.codiceA : scelti.descrizioneA;
  return {{"Stampa", reportTitle(WizPrint.report())},
          {"Anno", anni.empty() ? "tutti" : anni},
          {"Percipienti", intervallo(da, a, "tutti")},
          {"Causali", intervallo(scelti.causaleDa, scelti.causaleA, "tutte")},
          {"Uscita", nomeUscita(WizPrint.output())}};
}

// An error of the reading is reported by the run itself.
std::vector<Form::Fact> FrmWizard::outlook() {
  if (nPassoCorrente != 2) return {};
  try {
    return modoCU() ? previsioneCU() : previsioneStampa();
  } catch (const std::exception&) {
    return {};
  }
}

}  // namespace cu
