#include "telematic/attestazione.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "base/text.h"
#include "data/recordset.h"
#include "host/conversioni.h"
#include "liste/codici_per_anno.h"
#include "modello/regole.h"
#include "telematic/query_cu.h"

namespace cu {
namespace {

using modello::Campo;
using modello::Forma;
using modello::Record;

constexpr std::string_view kNonSoggetteModulo = "SommeNonSoggette";
constexpr std::string_view kCodiceNonSoggette = "CodicePerNonSoggetti";

bool pieno(const Recordset& riga, std::string_view colonna) {
  const CellView cella = riga.Get(colonna);
  if (cella.type() == ValueType::Text) return !trim(cella.text()).empty();
  if (cella.type() == ValueType::Decimal) return !cella.decimal().isZero();
  return !cella.isNull() && cella.flag();
}

// A box of the last of the earlier forms that the year's form does not have.
bool manca(const modello::Modello& modello, const Campo& campo, std::int32_t anno, bool primo) {
  const std::int32_t ultimo = modello::kModello.noti.ultimo;
  if (campo.condizione == modello::Condizione::NonNelFile || !vale(campo, ultimo, primo)) return false;
  return std::none_of(modello.campi.begin(), modello.campi.end(), [&](const Campo& altro) {
    return altro.colonna == campo.colonna && altro.quadro == campo.quadro && vale(altro, anno, primo);
  });
}

// The boxes of non-residents without a row of their own, between the first and the last that have one: their
// content is not attested.
std::vector<std::int32_t> caselleIgnote(const modello::Modello& modello, std::int32_t anno) {
  std::vector<std::int32_t> note;
  for (const Campo& campo : modello.campi) {
    const bool estera = campo.condizione == modello::Condizione::NonResidente ||
                        campo.condizione == modello::Condizione::Schumacker;
    if (estera && vale(campo, anno, true)) note.push_back(campo.numero);
  }
  std::vector<std::int32_t> ignote;
  if (note.empty()) return ignote;
  const auto [prima, ultima] = std::minmax_element(note.begin(), note.end());
  for (std::int32_t numero = *prima; numero < *ultima; ++numero) {
    if (std::find(note.begin(), note.end(), numero) == note.end()) ignote.push_back(numero);
  }
  return ignote;
}

// The boxes of a record that are missing in a year.
class CaselleMancanti {
 public:
  CaselleMancanti(Record dove, bool primo) : dove_(dove), primo_(primo) {}
  const std::vector<const Campo*>& di(const modello::Modello& modello, std::int32_t anno) {
    if (anno_ == anno) return campi_;
    anno_ = anno;
    campi_.clear();
    for (const Campo& campo : modello.campi) {
      if (record(campo.quadro) == dove_ && manca(modello, campo, anno, primo_)) campi_.push_back(&campo);
    }
    return campi_;
  }

 private:
  Record dove_;
  bool primo_;
  std::int32_t anno_ = 0;
  std::vector<const Campo*> campi_;
};

class Esame {
 public:
  Esame(Connection& connessione, const Conversioni& utilita, const DaAttestare& lavoro)
      : connessione_(connessione), utilita_(utilita), lavoro_(lavoro) {}

  Attestazione esegui() {
    Recordset righe;
    righe.Open(connessione_,
               utilita_.fnAnsi2jet(telematico::queryPrincipale(lavoro_.tabella, lavoro_.righe)));
    for (; !righe.Eof(); righe.MoveNext()) {
      anno_ = static_cast<std::int32_t>(righe.Get("Anno").integer());
      if (!modello::codiceDaScegliere(anno_, lavoro_.modello)) continue;
      if (anno_ > lavoro_.modello.noti.ultimo) {
        annoIgnoto();
        break;
      }
      riga(righe);
    }
    return std::move(esito_);
  }

 private:
  std::string delModello() const { return "nel modello dei compensi del " + fromInteger(anno_); }

  void annoIgnoto() {
    esito_.rifiutati.push_back({"Anno", "Generico", "", "",
                                "Il modello dei compensi del " + fromInteger(anno_) + " (CU " +
                                    fromInteger(anno_ + 1) + ") non è noto: l'ultimo è quello del " +
                                    fromInteger(lavoro_.modello.noti.ultimo) + ".",
                                std::string(kNonAttestato)});
  }

  void trovato(std::string campo, std::string messaggio) {
    esito_.rifiutati.push_back({std::move(campo), "Percipiente", chi_, codiceFiscale_, std::move(messaggio),
                                std::string(kNonAttestato)});
  }

  void riga(Recordset& righe) {
    chi_ = std::string(
        trim(utilita_.toText(righe.Get("Anagrafica")) + " " + utilita_.toText(righe.Get("Nome"))));
    codiceFiscale_ = utilita_.toText(righe.Get("CodiceFiscale"));
    causale_ = std::string(trim(righe.Get("Codice").toText()));
    evento(righe);
    nonResidente(righe);
    caselle(righe, inD_);
    if (lavoro_.tipo == Comunicazione::Annullamento) return;  // it has no amounts
    causale();
    somme(righe, pieno(righe, "SommeNonSoggetteARitenuta") || pieno(righe, "QuotaProvvigioniNonSoggette"),
          "");
    caselle(righe, inH_);
    Recordset moduli;
    moduli.Open(connessione_,
                utilita_.fnAnsi2jet(telematico::queryModuli(
                    righe.Get("Anno").integer(), righe.Get("IDAnagrafica").integer(),
                    righe.Get("IDAzienda").integer(), righe.Get("IDCausalePagamento").integer())));
    for (int numero = 2; !moduli.Eof(); moduli.MoveNext(), ++numero) {
      somme(moduli, pieno(moduli, kNonSoggetteModulo), " del modulo " + fromInteger(numero));
      caselle(moduli, inModuli_);
    }
  }

  // The event of the company, which is in record B, is found once.
  void evento(const Recordset& righe) {
    const auto tolto = [&](std::string_view colonna, std::string_view dove) -> std::string {
      const std::string codice(trim(righe.Get(colonna).toText()));
      if (codice.empty() || eventiEccezionaliPerAnno().ammesso(codice, anno_)) return {};
      return "L'evento eccezionale " + codice + std::string(dove) + " non è più " + delModello() + ".";
    };
    std::string messaggio = tolto("CodiceEventoEccezionaleAz", " dell'azienda");
    if (!messaggio.empty() && !std::exchange(eventoAzienda_, true)) {
      esito_.rifiutati.push_back({"Eventi eccezionali", "Azienda", utilita_.toText(righe.Get("AnagraficaAz")),
                                  utilita_.toText(righe.Get("CodiceFiscaleAz")), std::move(messaggio),
                                  std::string(kNonAttestato)});
    }
    messaggio = tolto("CodiceEventoEccezionale", " (casella 9)");
    if (!messaggio.empty()) trovato("Eventi eccezionali", std::move(messaggio));
  }

  // One who is rejected has no record.
  void nonResidente(const Recordset& righe) {
    if (!pieno(righe, "NonResidente") || pieno(righe, "NonResidenteSchumacker")) return;
    std::vector<std::int32_t> vuote = caselleIgnote(lavoro_.modello, anno_);
    if (vuote.empty()) return;
    esito_.caselleVuote = std::move(vuote);
    std::string percipiente = chi_ + (codiceFiscale_.empty() ? "" : " (" + codiceFiscale_ + ")");
    if (conCaselleVuote_.insert(percipiente).second) {
      esito_.conCaselleVuote.push_back(std::move(percipiente));
    }
  }

  void causale() {
    constexpr std::int32_t kPrimoSport = 2023;
    if (modello::haAddizionali(causale_) && anno_ >= kPrimoSport) {
      trovato("Causale", "La causale " + causale_ +
                             " (sport dilettantistico, cori e bande) non è attestata " + delModello() +
                             ": dal luglio 2023 la riforma dello sport l'ha divisa.");
      return;
    }
    const CodiciPerAnno& note = causaliPerAnno();
    if (anno_ >= kPrimoSport && causale_.size() == 2 && causale_.front() == 'N') {
      trovato("Causale", "La causale " + causale_ + " (sport) non è attestata " + delModello() + ".");
    } else if (!note.ammesso(causale_, anno_)) {
      trovato("Causale",
              "La causale " + causale_ + " non è " + delModello() + ", che ha " + note.elencoDi(anno_) + ".");
    }
  }

  void somme(const Recordset& righe, bool presenti, const std::string& modulo) {
    const CodiciPerAnno& noti = codiciNonSoggettiPerAnno();
    const std::string codice(trim(righe.Get(kCodiceNonSoggette).toText()));
    const std::string elenco =
        (noti.completo(anno_) ? " sono: " : " sono, fra altri: ") + noti.elencoDi(anno_) + ".";
    if (codice.empty()) {
      if (presenti) {
        trovato("Codice per non soggetti", "Manca il codice delle somme non soggette" + modulo +
                                               " (casella 6). I codici " + delModello() + elenco);
      }
      return;
    }
    if (noti.ammesso(codice, anno_)) return;
    trovato("Codice per non soggetti", "Il codice " + codice + " delle somme non soggette" + modulo +
                                           " (casella 6) non è " + delModello() + ". I codici" + elenco);
  }

  void caselle(const Recordset& righe, CaselleMancanti& mancanti) {
    for (const Campo* const campo : mancanti.di(lavoro_.modello, anno_)) {
      if (!pieno(righe, campo->colonna)) continue;
      if (campo->condizione == modello::Condizione::Schumacker) {
        if (!pieno(righe, "NonResidente")) continue;
        trovato("Non residente Schumacker",
                "Un percipiente non residente Schumacker non si può certificare: la sua casella non è "
                "attestata " +
                    delModello() + ".");
      } else {
        trovato("Casella " + fromInteger(campo->numero), "La casella " + fromInteger(campo->numero) +
                                                             " è compilata, ma non è attestata " +
                                                             delModello() + ".");
      }
    }
  }

  Connection& connessione_;
  const Conversioni& utilita_;
  const DaAttestare& lavoro_;
  CaselleMancanti inD_{Record::D, true};
  CaselleMancanti inH_{Record::H, true};
  CaselleMancanti inModuli_{Record::H, false};
  std::int32_t anno_ = 0;
  bool eventoAzienda_ = false;
  std::string chi_;
  std::string codiceFiscale_;
  std::string causale_;
  std::unordered_set<std::string> conCaselleVuote_;
  Attestazione esito_;
};

}  // namespace

Attestazione attesta(Connection& connessione, const Conversioni& utilita, const DaAttestare& lavoro) {
  if (lavoro.modello.noti.ultimo < modello::kCodiceDaScegliere) return {};
  return Esame(connessione, utilita, lavoro).esegui();
}

}  // namespace cu
