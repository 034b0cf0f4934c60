#include "intake/lettura_righe.h"

#include <algorithm>
#include <bitset>
#include <utility>

#include "base/codice_fiscale.h"
#include "base/text.h"
#include "intake/controlli_riga.h"
#include "intake/corrispondenza.h"
#include "intake/testo_cella.h"
#include "intake/valore_cella.h"
#include "tabelle/errore.h"
#include "tabelle/lettura.h"

namespace cu::intake {
namespace {

constexpr std::size_t kMassimoColonne = 64;
using Tentate = std::bitset<kMassimoColonne>;

// A sentence behind a colon.
std::string minuscolaIniziale(std::string testo) {
  if (!testo.empty() && testo.front() >= 'A' && testo.front() <= 'Z') {
    testo.front() = static_cast<char>(testo.front() - 'A' + 'a');
  }
  return testo;
}

class LettoreRighe {
 public:
  LettoreRighe(const tabelle::Tabella& tabella, Lettura& lettura, const Mappatura& mappatura, Date oggi)
      : tabella_(tabella),
        lettura_(lettura),
        mappatura_(mappatura),
        oggi_(oggi),
        trovate_(abbina(tabella, lettura.elenco, mappatura)),
        celle_(lettura, segni_, tabella.dal1904) {}

  void esegui() {
    lettura_.messaggi = trovate_.messaggi;
    lettura_.intestazioni.resize(colonne(lettura_.elenco).size());
    for (const ColonnaTrovata& trovata : trovate_.colonne) {
      lettura_.intestazioni[trovata.colonna->indice] = trovata.intestazione;
    }
    codicePossibile_ = codicePossibile();
    trovaSaltate();
    impara();
    leggiTutte();
  }

 private:
  // What a column shows only as a whole: its order of day and month, its decimal mark, its way of saying yes.
  void impara() {
    segni_.decimali = mappatura_.decimali;
    segni_.migliaia = mappatura_.migliaia;
    for (const ColonnaTrovata& trovata : trovate_.colonne) {
      ColonnaLetta colonna{&trovata, {}, false, oggi_.year() + 1};
      switch (trovata.colonna->tipo) {
        case TipoColonna::Data:
          decidiDate(colonna);
          break;
        case TipoColonna::Importo:
          osservaImporti(trovata);
          break;
        case TipoColonna::Logico:
          colonna.croci = usaCroci(trovata);
          break;
        default:
          break;
      }
      colonne_.push_back(colonna);
    }
  }

  void decidiDate(ColonnaLetta& colonna) {
    constexpr int kEta = 14;
    const bool nascita = lettura_.elenco == Elenco::Percipienti;
    if (nascita) colonna.ultimoAnno = oggi_.year() - kEta;
    colonna.ordine = mappatura_.date;
    if (colonna.ordine) return;
    OrdineColonna ordine;
    std::string esempio;
    const auto osserva = [&](tabelle::Genere genere, std::string_view testo) {
      const DataScritta scritta = leggiScritta(testo, genere, tabella_.dal1904, colonna.ultimoAnno);
      ordine.osserva(scritta, colonna.ultimoAnno);
      if (esempio.empty() && scritta.forma == DataScritta::Forma::TreNumeri) esempio = mostrato(testo);
    };
    if (colonna.trovata->costante) {
      osserva(tabelle::Genere::Testo, *colonna.trovata->costante);
    } else {
      perOgniCella(*colonna.trovata, [&](const tabelle::Cella& cella, std::string_view testo) {
        osserva(cella.genere, testo);
      });
    }
    colonna.ordine = ordine.deciso();
    if (colonna.ordine) return;
    lettura_.messaggi.push_back(
        messaggio(Codice::V02,
                  "non è certo se " + esempio +
                      " abbia prima il giorno o il mese: indicarlo con --dates dmy, mdy o ymd",
                  colonna.trovata->intestazione));
  }

  void osservaImporti(const ColonnaTrovata& trovata) {
    perOgniCella(trovata, [&](const tabelle::Cella& cella, std::string_view testo) {
      if (cella.genere == tabelle::Genere::Testo) segni_.osserva(testo);
    });
  }

  bool usaCroci(const ColonnaTrovata& trovata) {
    bool croci = false;
    perOgniCella(trovata, [&](const tabelle::Cella&, std::string_view testo) {
      croci = croci || testo == "X" || testo == "x";
    });
    return croci;
  }

  template <class Fai>
  void perOgniCella(const ColonnaTrovata& trovata, Fai fai) {
    std::string appoggio;
    for (const std::size_t posto : trovata.posti) {
      for (std::size_t i = 0; i < tabella_.righe.size(); ++i) {
        const tabelle::Cella cella = tabella_.righe[i].cella(posto);
        if (cella.genere == tabelle::Genere::Vuota || saltate_[i]) continue;
        fai(cella, pulito(cella.testo, appoggio));
      }
    }
  }

  void trovaSaltate() {
    saltate_.resize(tabella_.righe.size());
    if (!trovate_.salto) return;
    const std::string inizio = tabelle::normalizza(mappatura_.salto.inizia);
    for (std::size_t i = 0; i < saltate_.size(); ++i) {
      const tabelle::Cella cella = tabella_.righe[i].cella(*trovate_.salto);
      saltate_[i] = tabelle::normalizza(cella.testo).starts_with(inizio);
    }
  }

  void leggiTutte() {
    ControlliRiga controlli(lettura_, oggi_);
    auto rilievo = tabella_.rilievi.begin();
    lettura_.righe.reserve(tabella_.righe.size());
    for (std::size_t i = 0; i < tabella_.righe.size(); ++i) {
      const tabelle::RigaTabella& riga = tabella_.righe[i];
      RigaLetta letta;
      letta.numero = riga.numero;
      for (; rilievo != tabella_.rilievi.end() && rilievo->posto.riga <= riga.numero; ++rilievo) {
        letta.messaggi.push_back(daRilievo(*rilievo));
      }
      if (saltate_[i]) {
        letta.messaggi.clear();
        letta.esclusa = "la colonna " + mappatura_.salto.colonna + " comincia con " + mappatura_.salto.inizia;
      } else {
        leggiUna(riga, letta);
        controlli.esegui(letta);
      }
      lettura_.righe.push_back(std::move(letta));
    }
  }

  Messaggio daRilievo(const tabelle::Rilievo& rilievo) const {
    const std::size_t colonna = rilievo.posto.colonna;
    std::string appoggio;
    std::string nome;
    if (colonna > 0) nome = pulito(tabella_.intestazione.cella(colonna - 1).testo, appoggio);
    if (nome.empty() && colonna > 0) nome = tabelle::letteraColonna(colonna);
    return messaggio(codiceDaSigla(rilievo.codice).value_or(Codice::F03), minuscolaIniziale(rilievo.testo),
                     std::move(nome));
  }

  void leggiUna(const tabelle::RigaTabella& riga, RigaLetta& letta) {
    Tentate tentate;
    letta.campi.reserve(colonne_.size());
    for (const ColonnaLetta& colonna : colonne_) {
      const ValoreLetto valore = celle_.leggi(colonna, riga, letta.messaggi);
      const std::uint8_t rango = colonna.colonna().indice;
      // A hyphen gives nothing that a row could be asked for.
      if (!valore.vuota && !valore.svuotata) tentate.set(rango);
      if (!valore.letta) continue;
      letta.campi.push_back(
          {rango, valore.svuotata ? StatoCampo::Svuotato : StatoCampo::Dato, false, valore.valore});
    }
    obblighi(letta, tentate);
  }

  void manca(RigaLetta& letta, std::uint8_t rango) {
    std::string nome = lettura_.intestazioni[rango];
    if (nome.empty()) nome = colonne(lettura_.elenco)[rango].nome;
    letta.messaggi.push_back(messaggio(Codice::C01, "manca il valore, che è obbligatorio", std::move(nome)));
  }

  void obblighi(RigaLetta& letta, const Tentate& tentate) {
    bool chiave = lettura_.elenco != Elenco::Compensi;
    bool importo = chiave;
    const bool senzaCodice = lettura_.elenco == Elenco::Percipienti && puoEssereSenzaCodice(letta, tentate);
    for (const Colonna& colonna : colonne(lettura_.elenco)) {
      const bool c = tentate.test(colonna.indice);
      // What the whole table lacks is reported once.
      const bool inTabella = trovate_.ha(colonna.indice);
      switch (colonna.obbligo) {
        case Obbligo::Nessuno:
          break;
        case Obbligo::Sempre:
          if (!c && inTabella) manca(letta, colonna.indice);
          break;
        case Obbligo::UnaDelleChiavi:
          chiave = chiave || c;
          break;
        case Obbligo::UnoDegliImporti:
          importo = importo || c;
          break;
        case Obbligo::SeNonPersona:
          // A company that is there may have it: the plan knows.
          break;
        case Obbligo::SeItaliano:
          if (!c && !senzaCodice && codicePossibile_) manca(letta, colonna.indice);
          break;
      }
    }
    gruppo(letta, chiave, Obbligo::UnaDelleChiavi, "manca il percipiente");
    gruppo(letta, importo, Obbligo::UnoDegliImporti, "manca l'importo");
  }

  // Without any of these the heading lacks the fiscal code, and no row is to repeat that.
  bool codicePossibile() const {
    using enum ColonnaPercipiente;
    const auto colonne = {CodiceFiscale, PartitaIva, NonResidente, Nazione, CodiceFiscaleEstero};
    return std::any_of(colonne.begin(), colonne.end(), [&](ColonnaPercipiente colonna) {
      return trovate_.ha(static_cast<std::uint8_t>(colonna));
    });
  }

  static std::uint8_t rangoIva() { return static_cast<std::uint8_t>(ColonnaPercipiente::PartitaIva); }

  void gruppo(RigaLetta& letta, bool dato, Obbligo obbligo, const char* cosa) {
    const auto suoi = colonne(lettura_.elenco);
    const bool inTabella = std::any_of(suoi.begin(), suoi.end(), [&](const Colonna& colonna) {
      return colonna.obbligo == obbligo && trovate_.ha(colonna.indice);
    });
    if (!dato && inTabella) letta.messaggi.push_back(messaggio(Codice::C01, cosa));
  }

  static bool puoEssereSenzaCodice(const RigaLetta& percipiente, const Tentate& tentate) {
    return tentate.test(rangoIva()) || eEstero(percipiente);
  }

  const tabelle::Tabella& tabella_;
  Lettura& lettura_;
  const Mappatura& mappatura_;
  Date oggi_;
  Corrispondenza trovate_;
  SegniImporto segni_;
  LettoreCelle celle_;
  std::vector<ColonnaLetta> colonne_;
  std::vector<bool> saltate_;
  bool codicePossibile_ = false;
};

bool errore(const Messaggio& messaggio) { return messaggio.gravita == Gravita::Errore; }

}  // namespace

const Campo* RigaLetta::campo(std::uint8_t colonna) const {
  const auto posto = std::lower_bound(campi.begin(), campi.end(), colonna,
                                      [](const Campo& campo, std::uint8_t c) { return campo.colonna < c; });
  return posto != campi.end() && posto->colonna == colonna ? &*posto : nullptr;
}

bool RigaLetta::conErrori() const { return std::any_of(messaggi.begin(), messaggi.end(), errore); }

CellView Lettura::conserva(std::string_view testo) {
  if (!aggiunti) aggiunti = std::make_shared<tabelle::Deposito>();
  return CellView::ofText(aggiunti->conserva(testo));
}

std::string Lettura::nomeColonna(std::uint8_t colonna) const {
  const bool sua = colonna < intestazioni.size() && !intestazioni[colonna].empty();
  return sua ? intestazioni[colonna] : std::string(colonne(elenco)[colonna].nome);
}

bool Lettura::conErrori() const {
  return std::any_of(messaggi.begin(), messaggi.end(), errore) ||
         std::any_of(righe.begin(), righe.end(), [](const RigaLetta& riga) { return riga.conErrori(); });
}

bool Lettura::illeggibile() const {
  if (!righe.empty() || messaggi.empty()) return false;
  return std::all_of(messaggi.begin(), messaggi.end(), [](const Messaggio& uno) {
    return uno.codice >= Codice::F01 && uno.codice <= Codice::F05;
  });
}

Lettura leggiRighe(const tabelle::Tabella& tabella, Elenco elenco, const Mappatura& mappatura, Date oggi) {
  Lettura lettura;
  lettura.elenco = elenco;
  lettura.file = tabella.file;
  lettura.foglio = tabella.foglio;
  lettura.testi = tabella.testi;
  LettoreRighe(tabella, lettura, mappatura, oggi).esegui();
  for (Messaggio& suo : lettura.messaggi) suo.posto = {tabella.file, tabella.foglio, 0};
  return lettura;
}

Lettura leggiFile(std::string_view byte, const std::string& nome, Elenco elenco, const Mappatura& mappatura,
                  Date oggi) {
  try {
    Lettura lettura =
        leggiRighe(tabelle::leggiTabella(byte, nome, mappatura.lettura), elenco, mappatura, oggi);
    lettura.dimensione = byte.size();
    return lettura;
  } catch (const tabelle::ErroreTabella& errore) {
    Messaggio nuovo =
        messaggio(codiceDaSigla(errore.codice()).value_or(Codice::F03), minuscolaIniziale(errore.testo()));
    nuovo.posto = {nome, errore.posto().foglio, errore.posto().riga};
    Lettura lettura = letturaFallita(nome, elenco, std::move(nuovo));
    lettura.foglio = errore.posto().foglio;
    lettura.dimensione = byte.size();
    return lettura;
  }
}

Lettura letturaFallita(const std::string& nome, Elenco elenco, Messaggio messaggio) {
  Lettura lettura;
  lettura.elenco = elenco;
  lettura.file = nome;
  lettura.intestazioni.resize(colonne(elenco).size());
  if (messaggio.posto.file.empty()) messaggio.posto.file = nome;
  lettura.messaggi.push_back(std::move(messaggio));
  return lettura;
}

}  // namespace cu::intake
