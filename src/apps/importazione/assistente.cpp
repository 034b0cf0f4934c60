#include "apps/importazione/assistente.h"

#include <algorithm>
#include <utility>

#include "apps/comune/connessioni.h"
#include "apps/importazione/parole_finestra.h"

namespace cu {
namespace {

using intake::Elenco;
using intake::Lettura;

constexpr std::array<const char*, kPassi> kTitoli = {"Sorgente", "Lettura", "Colonne", "Percipienti",
                                                     "Compensi", "Prova",   "Esito"};

const intake::Messaggio* erroreGenerale(const Lettura& lettura) {
  const auto suo = std::find_if(lettura.messaggi.begin(), lettura.messaggi.end(),
                                [](const auto& uno) { return uno.gravita == intake::Gravita::Errore; });
  return suo == lettura.messaggi.end() ? nullptr : &*suo;
}

}  // namespace

std::string titoloPasso(Passo passo, Elenco elenco, bool fatture) {
  if (passo == Passo::Colonne && fatture) return "Documenti";
  if (passo == Passo::Percipienti && elenco == Elenco::Aziende) return "Aziende";
  return kTitoli[static_cast<std::size_t>(passo)];
}

Assistente::Assistente(Ambiente ambiente) : ambiente_(std::move(ambiente)) {
  ricordaDatabase(ambiente_.database);
}

bool Assistente::comprende(Passo passo) const {
  if (passo == Passo::Lettura) return !fatture_;
  return passo != Passo::Compensi || elenco_ == Elenco::Compensi;
}

std::string Assistente::impedimentoSorgente() const {
  if (!database_) return "Il database non è ancora stato letto.";
  if (!database_->storico) return "Il database non ha ancora le tabelle delle importazioni.";
  if (!database_->creatoQui && !richiesta_.databaseEstraneo) {
    return "Il database non è stato creato da questo programma.";
  }
  if (elenco_ != Elenco::Aziende) {
    const bool presente =
        std::any_of(database_->aziende.begin(), database_->aziende.end(),
                    [&](const AziendaDelDatabase& una) { return una.id == ambiente_.azienda; });
    if (!presente) return "Manca l'azienda: importare prima l'elenco delle aziende, o sceglierne una.";
  }
  if (file_.empty())
    return fatture_ ? "Scegliere almeno un file o una cartella." : "Scegliere almeno un file.";
  return fatture_ ? senzaFatture() : fileIlleggibili();
}

// All of them, so that they can be removed at once.
std::string Assistente::fileIlleggibili() const {
  constexpr std::size_t kNominati = 5;
  std::string nomi;
  std::size_t quanti = 0;
  for (const FileScelto& uno : file_) {
    // A workbook of several sheets may have its table in another one.
    if (uno.leggibile() && (uno.tabella != nullptr || uno.fogli.size() > 1)) continue;
    if (quanti < kNominati) nomi += (nomi.empty() ? "" : ", ") + uno.nome;
    ++quanti;
  }
  if (quanti == 0) return {};
  if (quanti == 1) return "Il file " + nomi + " non si può leggere: toglierlo dall'elenco.";
  if (quanti > kNominati) nomi += " e altri " + std::to_string(quanti - kNominati);
  return std::to_string(quanti) + " file non si possono leggere: " + nomi + ". Toglierli dall'elenco.";
}

std::string Assistente::impedimento() const {
  switch (passo_) {
    case Passo::Sorgente:
      return impedimentoSorgente();
    case Passo::Lettura:
      for (const FileScelto& uno : file_) {
        if (uno.tabella == nullptr) return uno.guasto;
      }
      return {};
    case Passo::Colonne:
      if (letture_ == nullptr) return "Le righe non sono ancora state lette.";
      if (fatture_) return piano_ == nullptr ? "Le fatture non sono ancora state lette." : "";
      for (const Lettura& lettura : *letture_) {
        if (const intake::Messaggio* const errore = erroreGenerale(lettura))
          return perLaFinestra(intake::dettoMessaggio(*errore));
      }
      return {};
    case Passo::Percipienti:
    case Passo::Compensi:
      if (passo_ == Passo::Compensi && dateAttese_) return dateMancanti();
      return piano_ == nullptr ? "Le righe non sono ancora state confrontate con l'archivio." : "";
    case Passo::Prova:
    case Passo::Esito:
      break;
  }
  return {};
}

bool Assistente::puoAvanzare() const { return passo_ < Passo::Prova && impedimento().empty(); }

bool Assistente::puoTornare() const { return passo_ != Passo::Sorgente && passo_ != Passo::Esito; }

void Assistente::avanti() {
  if (!puoAvanzare()) return;
  do {
    passo_ = static_cast<Passo>(static_cast<int>(passo_) + 1);
  } while (!comprende(passo_));
  raggiunto_ = std::max(raggiunto_, passo_);
}

void Assistente::abbandona() {
  indietro();
  raggiunto_ = passo_;
}

Passo Assistente::precedente() const {
  Passo prima = passo_;
  do {
    if (prima == Passo::Sorgente) return prima;
    prima = static_cast<Passo>(static_cast<int>(prima) - 1);
  } while (!comprende(prima));
  return prima;
}

void Assistente::vai(Passo passo) {
  if (puoTornare() && passo < passo_ && comprende(passo)) passo_ = passo;
}

void Assistente::scarta(Livello livello) {
  ++revisione_;
  prova_.reset();
  if (livello <= Livello::Piano) {
    piano_.reset();
    righe_.reset();
  }
  if (livello <= Livello::Letture) letture_.reset();
  if (livello <= Livello::Letture) ignorati_.clear();
  if (livello != Livello::Tabelle) return;
  richiesta_.decisioni.clear();
  raggiunto_ = passo_;
}

void Assistente::ammettiEstraneo(bool ammesso) {
  richiesta_.databaseEstraneo = ammesso;
  scarta(Livello::Piano);
}

void Assistente::scegliAzienda(std::int32_t azienda) {
  if (azienda == ambiente_.azienda) return;
  ambiente_.azienda = azienda;
  raggiunto_ = passo_;
  richiesta_.decisioni.clear();
  serbate_.clear();
  scarta(Livello::Piano);
}

// The profiles of the other kind are other ones.
void Assistente::scegliElenco(Elenco elenco) {
  elencoScelto_ = true;
  if (elenco == elenco_ && !fatture_) return;
  fatture_ = false;
  elenco_ = elenco;
  for (const FileScelto& uno : file_) daCaricare_.insert(uno.percorso);
  scarta(Livello::Tabelle);
}

void Assistente::scegliFatture() {
  elencoScelto_ = true;
  if (fatture_) return;
  fatture_ = true;
  elenco_ = Elenco::Compensi;
  scarta(Livello::Tabelle);
}

void Assistente::scegliAnno(std::optional<int> anno) {
  if (anno == richiesta_.anno) return;
  richiesta_.anno = anno;
  scarta(Livello::Piano);
}

void Assistente::aggiungi(const std::vector<std::string>& percorsi) {
  bool altri = false;
  for (const std::string& percorso : percorsi) {
    const bool gia = std::any_of(file_.begin(), file_.end(),
                                 [&](const FileScelto& uno) { return uno.percorso == percorso; });
    if (gia) continue;
    FileScelto& nuovo = file_.emplace_back();
    nuovo.percorso = percorso;
    nuovo.nome = nomeMostrato(percorso);
    daCaricare_.insert(percorso);
    altri = true;
    if (!elencoScelto_ && file_.size() == 1 && paionoFatture(percorso)) scegliFatture();
  }
  if (altri) scarta(Livello::Tabelle);
}

void Assistente::togli(std::size_t file) {
  if (file >= file_.size()) return;
  daCaricare_.erase(file_[file].percorso);
  file_.erase(file_.begin() + static_cast<std::ptrdiff_t>(file));
  if (file_.empty()) elencoScelto_ = false;
  if (file_.empty()) fatture_ = false;
  raggruppa();
  scarta(Livello::Tabelle);
}

void Assistente::raggruppa() {
  gruppi_.clear();
  for (std::size_t i = 0; i < file_.size(); ++i) {
    std::size_t primo = i;
    for (std::size_t k = 0; k < i && primo == i; ++k) {
      if (!file_[k].impronta.empty() && file_[k].impronta == file_[i].impronta) primo = k;
    }
    gruppi_.push_back(primo);
  }
}

std::size_t Assistente::quantiSimili(std::size_t file) const {
  return static_cast<std::size_t>(std::count(gruppi_.begin(), gruppi_.end(), gruppi_.at(file)));
}

void Assistente::cambiaMappatura(std::size_t file, const intake::Mappatura& mappatura) {
  const tabelle::OpzioniLettura& prima = file_.at(file).mappatura.lettura;
  const tabelle::OpzioniLettura& dopo = mappatura.lettura;
  const bool altra = prima.separatore != dopo.separatore || prima.caratteri != dopo.caratteri ||
                     prima.foglio != dopo.foglio || prima.rigaIntestazione != dopo.rigaIntestazione;
  for (std::size_t i = 0; i < file_.size(); ++i) {
    if (gruppi_[i] == gruppi_[file]) file_[i].mappatura = mappatura;
  }
  daRileggere_ = daRileggere_ || altra;
  scarta(altra ? Livello::Tabelle : Livello::Letture);
}

Mappa Assistente::profilo(std::size_t file) const {
  return {elenco_, file_.at(file).impronta, file_.at(file).mappatura};
}

void Assistente::usaProfilo(std::size_t file, const Mappa& mappa) {
  if (mappa.elenco != elenco_) {
    throw ErroreProfilo("Il profilo è per i " + std::string(intake::nome(mappa.elenco)) + ", non per i " +
                        std::string(intake::nome(elenco_)) + ".");
  }
  cambiaMappatura(file, mappa.mappatura);
}

const Lettura* Assistente::lettura(std::size_t file) const {
  return letture_ == nullptr || file >= letture_->size() ? nullptr : &(*letture_)[file];
}

const intake::Decisione& Assistente::decisione(std::size_t riga) const {
  static const intake::Decisione kNessunaDecisione;
  const auto presa = richiesta_.decisioni.find(piano_->righe.at(riga).posizione);
  return presa == richiesta_.decisioni.end() ? kNessunaDecisione : presa->second;
}

void Assistente::decidi(std::span<const std::size_t> righe,
                        const std::function<void(intake::Decisione&)>& come) {
  if (piano_ == nullptr) return;
  for (const std::size_t riga : righe) come(richiesta_.decisioni[piano_->righe.at(riga).posizione]);
  if (fatture_) serbaDecisioni(righe);
  scarta(Livello::Piano);
}

void Assistente::scegliPercipiente(std::span<const std::size_t> righe, std::int32_t idAnagrafica) {
  decidi(righe, [&](intake::Decisione& decisione) {
    decisione.idAnagrafica = idAnagrafica;
    decisione.nuovoPercipiente = idAnagrafica == 0;
  });
}

void Assistente::scegliDiversi(intake::SuDiversi diversi) {
  if (diversi == richiesta_.diversi) return;
  richiesta_.diversi = diversi;
  scarta(Livello::Piano);
}

// What is written does not depend on it.
void Assistente::accetta(intake::Codice codice, bool accettato) {
  if (!intake::accettabile(codice)) return;
  const auto cambia = [&](std::set<intake::Codice>& accettati) {
    if (accettato) {
      accettati.insert(codice);
    } else {
      accettati.erase(codice);
    }
  };
  cambia(richiesta_.accettati);
  if (piano_ != nullptr) cambia(piano_->richiesta.accettati);
  scarta(Livello::Prova);
}

bool Assistente::puoImportare() const {
  return passo_ == Passo::Prova && piano_ != nullptr && piano_->scrive() && prova_ && prova_->esito.riuscita;
}

void Assistente::annullata(std::int32_t lotto) {
  if (importata_ && importata_->esito.lotto == lotto) tornataIndietro_ = true;
}

void Assistente::ricomincia() {
  Ambiente ambiente = std::move(ambiente_);
  *this = Assistente(std::move(ambiente));
}

}  // namespace cu
