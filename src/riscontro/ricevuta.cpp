#include "riscontro/ricevuta.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "base/ascii.h"
#include "base/text.h"
#include "data/transazione.h"

namespace cu::riscontro {
namespace {

constexpr std::size_t kCifreProtocollo = 17;
constexpr std::size_t kCifreProgressivo = 6;

bool cifre(const std::string& testo) { return std::all_of(testo.begin(), testo.end(), isDigit); }

class Pianificazione {
 public:
  Pianificazione(Registro& registro, std::int32_t idAzienda) {
    piano_.invii = registro.invii(idAzienda);
    piano_.registrate = registro.certificate(idAzienda, std::nullopt, false);
    for (std::size_t i = 0; i < piano_.registrate.size(); ++i) {
      const Registrata& r = piano_.registrate[i];
      perPercipiente_[r.certificato.percipiente].push_back(i);
      if (!r.protocollo.empty()) assegnati_.emplace(riferimento(r.protocollo, r.progressivo), i);
    }
  }

  void aggiungi(const RigaRicevuta& letta) {
    RigaPiano riga;
    riga.letta = letta;
    riga.letta.codiceFiscale = upperAscii(letta.codiceFiscale);
    riga.letta.causale = upperAscii(letta.causale);
    if (forma(riga)) abbina(riga);
    lettePer_[riga.letta.codiceFiscale].push_back(piano_.righe.size());
    piano_.righe.push_back(std::move(riga));
  }
  PianoRicevuta piano() && { return std::move(piano_); }

 private:
  static bool male(RigaPiano& riga, EsitoRiga esito, const char* colonna, const char* codice,
                   std::string testo) {
    riga.esito = esito;
    riga.colonna = colonna;
    riga.codice = codice;
    riga.testo = std::move(testo);
    return false;
  }

  // What the row says, without looking at what is on record.
  bool forma(RigaPiano& riga) const {
    RigaRicevuta& letta = riga.letta;
    if (letta.codiceFiscale.empty()) {
      return male(riga, EsitoRiga::Errore, "CodiceFiscale", "P12", "manca il codice fiscale del percipiente");
    }
    letta.esito = lowerAscii(letta.esito);
    if (letta.esito != "accettata" && letta.esito != "scartata") {
      return male(riga, EsitoRiga::Errore, "Esito", "V05",
                  "\"" + letta.esito + "\" non è accettata o scartata");
    }
    if (letta.esito == "scartata") return true;
    if (!cifre(letta.protocollo) || letta.protocollo.size() != kCifreProtocollo) {
      return male(riga, EsitoRiga::Errore, "Protocollo", "V09",
                  "\"" + letta.protocollo + "\" non è un protocollo di 17 cifre");
    }
    if (letta.progressivo.empty() || !cifre(letta.progressivo) ||
        letta.progressivo.size() > kCifreProgressivo) {
      return male(riga, EsitoRiga::Errore, "Progressivo", "V09",
                  "\"" + letta.progressivo + "\" non è un progressivo di 6 cifre");
    }
    // A spreadsheet drops the zeros at the left.
    letta.progressivo.insert(0, kCifreProgressivo - letta.progressivo.size(), '0');
    return true;
  }

  std::vector<std::size_t> conStato(const std::vector<std::size_t>& fra, Stato stato) const {
    std::vector<std::size_t> trovate;
    std::copy_if(fra.begin(), fra.end(), std::back_inserter(trovate),
                 [&](std::size_t i) { return piano_.registrate[i].stato == stato; });
    return trovate;
  }

  void abbina(RigaPiano& riga) {
    const RigaRicevuta& letta = riga.letta;
    std::vector<std::size_t> sue;
    if (const auto trovate = perPercipiente_.find(letta.codiceFiscale); trovate != perPercipiente_.end()) {
      std::copy_if(trovate->second.begin(), trovate->second.end(), std::back_inserter(sue),
                   [&](std::size_t i) {
                     const std::string& sua = piano_.registrate[i].certificato.causale();
                     const bool ignota = sua.empty() && piano_.registrate[i].certificato.operazione == "A";
                     return letta.causale.empty() || sua == letta.causale || ignota;
                   });
    }
    if (sue.empty()) {
      male(riga, EsitoRiga::Errore, "CodiceFiscale", "P12",
           "nessuna certificazione di " + letta.codiceFiscale +
               (letta.causale.empty() ? "" : " con causale " + letta.causale) + " è stata scritta");
      return;
    }
    if (giaDetto(riga, sue)) return;
    std::vector<std::size_t> attese = conStato(sue, Stato::Inviata);
    if (contraddice(riga, attese.empty())) return;
    if (attese.empty()) attese = conStato(sue, Stato::Scritta);
    if (attese.empty()) {
      male(riga, EsitoRiga::Errore, "CodiceFiscale", "P12",
           "nessuna certificazione di " + letta.codiceFiscale + " attende una risposta");
      return;
    }
    const std::int64_t ultimo = piano_.registrate[attese.back()].idInvio;
    std::erase_if(attese, [&](std::size_t i) { return piano_.registrate[i].idInvio != ultimo; });
    if (attese.size() > 1 && !stessaCausale(attese)) {
      male(riga, EsitoRiga::DaDecidere, "Causale", "P09",
           letta.codiceFiscale + " ha più certificazioni nello stesso invio: indicare la causale");
      return;
    }
    registra(riga, attese.front());
  }

  bool stessaCausale(const std::vector<std::size_t>& indici) const {
    return std::all_of(indici.begin(), indici.end(), [&](std::size_t i) {
      return piano_.registrate[i].certificato.causale() ==
             piano_.registrate[indici.front()].certificato.causale();
    });
  }

  // The same answer as the one on record adds nothing. A rejection has no protocol: it is the same as that of
  // the last certificate that was sent, whatever was only written since, with the same reason.
  bool giaDetto(RigaPiano& riga, const std::vector<std::size_t>& sue) const {
    const auto inviata = std::find_if(sue.rbegin(), sue.rend(), [&](std::size_t i) {
      return piano_.registrate[i].stato != Stato::Scritta;
    });
    for (const std::size_t i : sue) {
      const Registrata& r = piano_.registrate[i];
      const bool accettata = riga.letta.esito == "accettata" && r.protocollo == riga.letta.protocollo &&
                             r.progressivo == riga.letta.progressivo && !r.protocollo.empty();
      const bool scartata = riga.letta.esito == "scartata" && r.stato == Stato::Scartata && i == *inviata &&
                            (i == sue.back() || r.motivo == riga.letta.motivo);
      if (!accettata && !scartata) continue;
      riga.esito = EsitoRiga::Uguale;
      riga.codice = "R03";
      const bool inTabella =
          std::find(piano_.cambiate.begin(), piano_.cambiate.end(), i) != piano_.cambiate.end();
      riga.testo = inTabella ? "ripete una riga precedente della tabella" : "la risposta è già registrata";
      riga.registrata = i;
      return true;
    }
    return false;
  }

  static bool stessiRiferimenti(const RigaRicevuta& una, const RigaRicevuta& altra) {
    return !una.protocollo.empty() && una.protocollo == altra.protocollo &&
           una.progressivo == altra.progressivo;
  }

  // Another row of the table gives the other answer on the same certificate: the two have one protocol and
  // progressive, or no further file that was sent waits for an answer. A file that is only written is not
  // marked as sent for it.
  bool contraddice(RigaPiano& riga, bool nessunaInviata) const {
    const RigaRicevuta& letta = riga.letta;
    const auto sue = lettePer_.find(letta.codiceFiscale);
    if (sue == lettePer_.end()) return false;
    const auto trovata = std::find_if(sue->second.begin(), sue->second.end(), [&](std::size_t i) {
      const RigaPiano& una = piano_.righe[i];
      const RigaRicevuta& sua = una.letta;
      if (sua.esito == letta.esito) return false;
      if (!sua.causale.empty() && !letta.causale.empty() && sua.causale != letta.causale) return false;
      if (una.esito == EsitoRiga::Nuovo && nessunaInviata) return true;
      return (una.esito == EsitoRiga::Nuovo || una.esito == EsitoRiga::Uguale) &&
             stessiRiferimenti(sua, letta);
    });
    if (trovata == sue->second.end()) return false;
    const RigaRicevuta& altra = piano_.righe[*trovata].letta;
    std::string testo = "la riga " + fromInteger(altra.riga) +
                        " dice il contrario della stessa certificazione: " + altra.esito;
    if (!stessiRiferimenti(altra, letta)) {
      testo += "; se le righe rispondono a due file, prima si segnano tutti e due come inviati";
    }
    return !male(riga, EsitoRiga::Errore, "Esito", "R04", std::move(testo));
  }

  static std::string riferimento(const std::string& protocollo, const std::string& progressivo) {
    return protocollo + progressivo;
  }

  // Protocol and progressive belong to one certificate: a correction would cite that of another.
  bool assegnato(RigaPiano& riga) const {
    if (riga.letta.esito != "accettata") return false;
    const auto altra = assegnati_.find(riferimento(riga.letta.protocollo, riga.letta.progressivo));
    if (altra == assegnati_.end()) return false;
    const lettura::Certificato& sua = piano_.registrate[altra->second].certificato;
    male(riga, EsitoRiga::Errore, "Progressivo", "P10",
         "protocollo e progressivo sono già quelli di " + sua.percipiente +
             (sua.causale().empty() ? "" : ", causale " + sua.causale()));
    return true;
  }

  void registra(RigaPiano& riga, std::size_t quale) {
    if (assegnato(riga)) return;
    Registrata& r = piano_.registrate[quale];
    if (r.stato == Stato::Scritta) segna(r.idInvio);
    const bool accettata = riga.letta.esito == "accettata";
    if (accettata) chiudiPrecedente(r);
    r.stato = accettata ? Stato::Accettata : Stato::Scartata;
    r.protocollo = accettata ? riga.letta.protocollo : std::string();
    r.progressivo = accettata ? riga.letta.progressivo : std::string();
    r.motivo = accettata ? std::string() : riga.letta.motivo;
    if (accettata) assegnati_.emplace(riferimento(r.protocollo, r.progressivo), quale);
    piano_.cambiate.push_back(quale);
    riga.esito = EsitoRiga::Nuovo;
    riga.registrata = quale;
  }

  void segna(std::int64_t idInvio) {
    piano_.daSegnare.push_back(idInvio);
    for (Registrata& r : piano_.registrate) {
      if (r.idInvio == idInvio && r.stato == Stato::Scritta) r.stato = Stato::Inviata;
    }
  }

  // An accepted annulment or replacement ends what it refers to.
  void chiudiPrecedente(const Registrata& correzione) {
    if (correzione.ordinaria()) return;
    const auto& sue = perPercipiente_[correzione.certificato.percipiente];
    std::optional<std::size_t> precedente;
    for (const std::size_t i : sue) {
      const Registrata& r = piano_.registrate[i];
      if (r.stato != Stato::Accettata || r.certificato.operazione == "A" || r.id >= correzione.id) continue;
      const std::string& causale = correzione.certificato.causale();
      const bool indicata = r.protocollo == correzione.certificato.protocollo &&
                            r.progressivo == correzione.certificato.progressivo;
      if (indicata || (!precedente && (causale.empty() || r.certificato.causale() == causale)))
        precedente = i;
      if (indicata) break;
    }
    if (!precedente) return;
    piano_.registrate[*precedente].stato =
        correzione.certificato.operazione == "A" ? Stato::Annullata : Stato::Sostituita;
    piano_.cambiate.push_back(*precedente);
  }

  PianoRicevuta piano_;
  std::unordered_map<std::string, std::vector<std::size_t>> perPercipiente_;
  std::unordered_map<std::string, std::vector<std::size_t>> lettePer_;  // rows of the table, by fiscal code
  std::unordered_map<std::string, std::size_t> assegnati_;              // protocol and progressive on record
};

}  // namespace

std::size_t PianoRicevuta::quanti(EsitoRiga esito) const {
  return static_cast<std::size_t>(std::count_if(
      righe.begin(), righe.end(), [esito](const RigaPiano& riga) { return riga.esito == esito; }));
}

std::size_t PianoRicevuta::nuovi(std::string_view esito) const {
  return static_cast<std::size_t>(std::count_if(righe.begin(), righe.end(), [esito](const RigaPiano& riga) {
    return riga.esito == EsitoRiga::Nuovo && riga.letta.esito == esito;
  }));
}

const Invio& PianoRicevuta::invio(std::int64_t id) const {
  return *std::find_if(invii.begin(), invii.end(), [id](const Invio& uno) { return uno.id == id; });
}

const Invio* PianoRicevuta::invioDi(const RigaPiano& riga) const {
  if (riga.esito == EsitoRiga::DaDecidere || riga.esito == EsitoRiga::Errore) return nullptr;
  return &invio(registrate[riga.registrata].idInvio);
}

PianoRicevuta pianifica(Registro& registro, std::int32_t idAzienda, const std::vector<RigaRicevuta>& righe) {
  Pianificazione pianificazione(registro, idAzienda);
  for (const RigaRicevuta& riga : righe) pianificazione.aggiungi(riga);
  return std::move(pianificazione).piano();
}

void applica(Registro& registro, const PianoRicevuta& piano, Date giorno) {
  Transazione transazione(registro.connessione());
  for (const std::int64_t invio : piano.daSegnare) registro.segnaInviato(invio, giorno);
  for (const std::size_t i : piano.cambiate) registro.aggiorna(piano.registrate[i], giorno);
  transazione.conferma();
}

}  // namespace cu::riscontro
