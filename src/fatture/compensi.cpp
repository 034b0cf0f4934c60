#include "fatture/compensi.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "fatture/basi.h"
#include "fatture/proposta.h"

namespace cu::fatture {
namespace {

constexpr int kOltreIlLimite = 6;  // the number of the errors of amounts

struct Documento {
  std::string_view tipo;
  std::string_view escluso;  // why it gives no payment; "" where it does
};

constexpr std::string_view kAutofattura = "autofattura o integrazione";
constexpr auto kDocumenti = std::to_array<Documento>({
    {"TD01", ""},
    {"TD02", ""},
    {"TD03", ""},
    {"TD04", ""},
    {"TD05", ""},
    {"TD06", ""},
    {"TD07", "fattura semplificata: non può avere ritenute, il compenso si scrive a mano"},
    {"TD08", "nota di credito semplificata: non può avere ritenute, il compenso si scrive a mano"},
    {"TD09", "nota di debito semplificata: non può avere ritenute, il compenso si scrive a mano"},
    {"TD16", kAutofattura},
    {"TD17", kAutofattura},
    {"TD18", kAutofattura},
    {"TD19", kAutofattura},
    {"TD20", kAutofattura},
    {"TD21", "autofattura per splafonamento"},
    {"TD22", "estrazione di beni da deposito"},
    {"TD23", "estrazione di beni da deposito"},
    {"TD24", ""},
    {"TD25", ""},
    {"TD26", "cessione di beni ammortizzabili o passaggio interno"},
    {"TD27", "autoconsumo o cessione gratuita"},
    {"TD28", kAutofattura},
    {"TD29", "comunicazione di un documento omesso o irregolare"},
});

bool fiscale(const Ritenuta& una) { return una.tipo == "RT01" || una.tipo == "RT02"; }

std::string citato(std::string_view testo) { return "«" + std::string(testo) + "»"; }

// What of ENASARCO a document says in up to three ways at once.
std::optional<Decimal> enasarco(const Fattura& fattura) {
  for (const Ritenuta& una : fattura.ritenute) {
    if (una.tipo == "RT04" && una.importo) return una.importo;
  }
  for (const Linea& linea : fattura.linee) {
    for (const AltroDato& dato : linea.altriDati) {
      const std::string testo = lowerAscii(dato.testo);
      if (equalsNoCase(dato.tipo, "CASSA-PREV") && dato.numero &&
          (testo.find("tc07") != std::string::npos || testo.find("enasarco") != std::string::npos))
        return dato.numero->arrotondato();
    }
  }
  for (const Cassa& una : fattura.casse) {
    if (diEnasarco(una) && una.importo) return una.importo;
  }
  return std::nullopt;
}

class Ricerca {
 public:
  explicit Ricerca(const Fattura& fattura) : fattura_(fattura), proposta_(fattura) {}

  EsitoFattura esegui() {
    if (escluso() || fattura_.conErrori()) return std::move(esito_);
    std::vector<const Ritenuta*> ritenute;
    for (const Ritenuta& una : fattura_.ritenute) {
      if (fiscale(una)) ritenute.push_back(&una);
    }
    const bool senza = std::all_of(ritenute.begin(), ritenute.end(), [](const Ritenuta* una) {
      return una->importo.value_or(Decimal()).isZero();
    });
    if (senza && proposta_.regimeForfettario()) {
      esito_.forfettario = true;
      esito_.compensi.push_back(
          proposta_.forfettaria(ritenute.empty() ? std::string() : ritenute.front()->causale, esito_.spese));
    } else if (ritenute.empty()) {
      return senzaRitenuta();
    } else {
      conRitenute(ritenute);
    }
    contributi();
    return std::move(esito_);
  }

 private:
  void daDecidere(CompensoProposto& compenso, std::string testo, std::size_t riga = 0) {
    compenso.deciso = false;
    compenso.rilievi.push_back(proposta_.rilievo("R02", std::move(testo), riga));
  }

  bool escluso() {
    const auto* const suo = std::find_if(kDocumenti.begin(), kDocumenti.end(),
                                         [&](const Documento& uno) { return uno.tipo == fattura_.tipo; });
    if (suo == kDocumenti.end()) {
      esito_.rilievi.push_back(
          proposta_.rilievo("R02", "il tipo di documento " + fattura_.tipo + " non è fra quelli conosciuti"));
      return true;
    }
    if (!suo->escluso.empty()) {
      esito_.escluso = fattura_.tipo + ": " + std::string(suo->escluso);
    } else if (fattura_.semplificata) {
      esito_.escluso = "fattura semplificata: non può avere ritenute, il compenso si scrive a mano";
    }
    return !esito_.escluso.empty();
  }

  EsitoFattura senzaRitenuta() {
    const auto contributo = std::find_if(fattura_.ritenute.begin(), fattura_.ritenute.end(),
                                         [](const Ritenuta& una) { return una.tipo != "RT04"; });
    if (contributo == fattura_.ritenute.end()) {
      esito_.escluso = "documento senza ritenuta";
    } else {
      esito_.rilievi.push_back(proposta_.rilievo(
          "R02", "il documento ha un contributo (" + contributo->tipo + ") senza una ritenuta d'acconto",
          contributo->riga));
    }
    return std::move(esito_);
  }

  void conRitenute(const std::vector<const Ritenuta*>& ritenute) {
    const std::vector<Base> basi = basiPossibili(fattura_);
    if (ritenute.size() == 1) {
      esito_.compensi.push_back(una(*ritenute.front(), basi));
    } else if (!separate(ritenute) && !insieme(ritenute, basi)) {
      for (const Ritenuta* altra : ritenute) esito_.compensi.push_back(proposta_.nonTrovata(*altra, basi));
    }
  }

  CompensoProposto una(const Ritenuta& ritenuta, const std::vector<Base>& basi) const {
    for (const Base& base : basi) {
      if (const std::optional<Riscontro> riscontro = riscontra(base, ritenuta)) {
        return proposta_.trovata(ritenuta, base, *riscontro, proposta_.restanti(base));
      }
    }
    return proposta_.nonTrovata(ritenuta, basi);
  }

  struct Assegnata {
    std::optional<Base> base;
    Riscontro riscontro;
  };

  std::vector<std::size_t> lineeSoggette() const {
    std::vector<std::size_t> soggette;
    std::vector<std::size_t> senzaSpese;
    for (std::size_t i = 0; i < fattura_.linee.size(); ++i) {
      const GenereLinea genere = genereLinea(fattura_.linee[i]);
      if (genere == GenereLinea::Soggetta) soggette.push_back(i);
      if (genere != GenereLinea::Vuota && genere != GenereLinea::Spesa) senzaSpese.push_back(i);
    }
    return soggette.empty() ? senzaSpese : soggette;
  }

  bool assegna(Assegnata& dove, const Ritenuta& ritenuta, Base base) const {
    const std::optional<Riscontro> riscontro = riscontra(base, ritenuta);
    if (!riscontro) return false;
    dove.base = std::move(base);
    dove.riscontro = *riscontro;
    return true;
  }

  // Each tax of lines of its own: of one line, or of all that the others leave.
  bool separate(const std::vector<const Ritenuta*>& ritenute) {
    std::vector<std::size_t> libere = lineeSoggette();
    std::vector<Assegnata> assegnate(ritenute.size());
    for (std::size_t i = 0; i < ritenute.size(); ++i) {
      const auto sua = std::find_if(libere.begin(), libere.end(), [&](std::size_t linea) {
        return assegna(assegnate[i], *ritenute[i], baseDi(fattura_, {linea}));
      });
      if (sua != libere.end()) libere.erase(sua);
    }
    for (std::size_t i = 0; i < ritenute.size() && !libere.empty(); ++i) {
      if (assegnate[i].base) continue;
      std::vector<std::size_t> casse;
      for (std::size_t c = 0; c < fattura_.casse.size(); ++c) {
        if (fattura_.casse[c].ritenuta && !diEnasarco(fattura_.casse[c])) casse.push_back(c);
      }
      if (assegna(assegnate[i], *ritenute[i], baseDi(fattura_, libere, casse)) ||
          assegna(assegnate[i], *ritenute[i], baseDi(fattura_, libere)))
        libere.clear();
    }
    if (!std::all_of(assegnate.begin(), assegnate.end(),
                     [](const Assegnata& a) { return a.base.has_value(); }))
      return false;
    componi(ritenute, assegnate);
    return true;
  }

  // What no tax comprises is paid once, with the first payment.
  void componi(const std::vector<const Ritenuta*>& ritenute, const std::vector<Assegnata>& assegnate) {
    std::vector<std::size_t> prese;
    std::vector<std::size_t> casse;
    for (const Assegnata& sua : assegnate) {
      prese.insert(prese.end(), sua.base->linee.begin(), sua.base->linee.end());
      casse.insert(casse.end(), sua.base->casse.begin(), sua.base->casse.end());
    }
    for (std::size_t i = 0; i < ritenute.size(); ++i) {
      const Base& base = *assegnate[i].base;
      aggiungi(proposta_.trovata(
          *ritenute[i], base, assegnate[i].riscontro,
          i == 0 ? proposta_.restanti(prese, casse, base.importo < Decimal()) : Proposta::Restanti()));
    }
  }

  // Payments of one document with the same reason are one.
  void aggiungi(CompensoProposto compenso) {
    const auto stessa =
        std::find_if(esito_.compensi.begin(), esito_.compensi.end(), [&](const CompensoProposto& altro) {
          return altro.causale == compenso.causale && altro.deciso && compenso.deciso;
        });
    if (stessa == esito_.compensi.end()) return esito_.compensi.push_back(std::move(compenso));
    Candidato& somma = stessa->candidati.front();
    const Candidato& altra = compenso.candidati.front();
    somma.spiegazione += "; " + altra.spiegazione;
    const auto piu = [](Decimal& a, Decimal b) { a = a + b; };
    piu(somma.importi.onorario, altra.importi.onorario);
    piu(somma.importi.quotaNonSoggetta, altra.importi.quotaNonSoggetta);
    piu(somma.importi.sommeNonSoggette, altra.importi.sommeNonSoggette);
    piu(somma.importi.ritenutaAcconto, altra.importi.ritenutaAcconto);
    piu(somma.importi.ritenutaImposta, altra.importi.ritenutaImposta);
    for (Rilievo& uno : compenso.rilievi) {
      const bool gia = std::any_of(stessa->rilievi.begin(), stessa->rilievi.end(), [&](const Rilievo& altro) {
        return altro.codice == uno.codice && altro.testo == uno.testo;
      });
      if (!gia) stessa->rilievi.push_back(std::move(uno));
    }
  }

  // All taxes of the same lines: a fee that is paid once must not be counted with each reason.
  bool insieme(const std::vector<const Ritenuta*>& ritenute, const std::vector<Base>& basi) {
    for (const Base& base : basi) {
      std::vector<CompensoProposto> tutte;
      for (const Ritenuta* sua : ritenute) {
        const std::optional<Riscontro> riscontro = riscontra(base, *sua);
        if (!riscontro) break;
        tutte.push_back(proposta_.trovata(*sua, base, *riscontro, proposta_.restanti(base)));
      }
      if (tutte.size() < ritenute.size()) continue;
      for (CompensoProposto& compenso : tutte)
        daDecidere(compenso, "più ritenute sono calcolate sullo stesso compenso");
      esito_.compensi = std::move(tutte);
      return true;
    }
    return false;
  }

  void contributi() {
    if (esito_.compensi.empty()) return;
    CompensoProposto& primo = esito_.compensi.front();
    if (const std::optional<Decimal> importo = enasarco(fattura_)) {
      primo.rilievi.push_back(proposta_.rilievo(
          "R08", "contributo ENASARCO di " + inEuro(importo->abs()) + ": non entra negli importi"));
    }
    bool inps = false;
    for (const Ritenuta& una : fattura_.ritenute) {
      if (una.tipo == "RT03") inpsTrattenuto(primo, una);
      inps = inps || una.tipo == "RT03";
      if (fiscale(una) || una.tipo == "RT03" || una.tipo == "RT04") continue;
      daDecidere(primo,
                 "il contributo " + una.tipo + " di " + inEuro(una.importo.value_or(Decimal()).abs()) +
                     " è da attribuire",
                 una.riga);
    }
    for (const Linea& linea : fattura_.linee) {
      for (const AltroDato& dato : linea.altriDati) {
        if (!inps && equalsNoCase(dato.tipo, "CASSA-PREV") && !deciso(dato)) {
          daDecidere(primo, "il contributo " + citato(dato.testo) + " è da attribuire");
        }
      }
    }
  }

  // What a document of the years before the blocks of contributions says of a fund. ENASARCO has its own
  // message, and a fund with a block of its own is no contribution withheld.
  bool deciso(const AltroDato& dato) const {
    const std::string testo = lowerAscii(dato.testo);
    if (testo.find("tc07") != std::string::npos || testo.find("enasarco") != std::string::npos) return true;
    return std::any_of(fattura_.casse.begin(), fattura_.casse.end(), [&](const Cassa& una) {
      return !una.tipo.empty() && testo.find(lowerAscii(una.tipo)) != std::string::npos;
    });
  }

  // The payee bears a third of the contribution, which is all that a document has.
  void inpsTrattenuto(CompensoProposto& compenso, const Ritenuta& blocco) {
    const Decimal quota = blocco.importo.value_or(Decimal()).abs();
    for (Candidato& candidato : compenso.candidati) {
      const ImportiFattura& altri = candidato.importi;
      const bool meno = altri.onorario + altri.sommeNonSoggette < Decimal();
      const Decimal sua = meno ? -quota : quota;
      candidato.importi.contributoPercipiente = candidato.importi.contributoPercipiente + sua;
      candidato.importi.contributoPrevidenziale = candidato.importi.contributoPrevidenziale + sua + sua + sua;
      candidato.spiegazione += "; contributo INPS " + inEuro(quota) + " del percipiente";
    }
    compenso.contributoDerivato = true;
    if (esito_.compensi.size() > 1)
      daDecidere(compenso, "il contributo INPS è da attribuire a uno dei compensi", blocco.riga);
  }

  const Fattura& fattura_;
  Proposta proposta_;
  EsitoFattura esito_;
};

}  // namespace

EsitoFattura compensiDi(const Fattura& fattura) {
  try {
    return Ricerca(fattura).esegui();
  } catch (const Error& errore) {
    if (errore.number() != kOltreIlLimite) throw;
    EsitoFattura esito;
    Posto posto = fattura.posto;
    posto.elemento.clear();
    esito.rilievi.push_back({"V03", posto, "gli importi del documento superano il limite", false});
    return esito;
  }
}

}  // namespace cu::fatture
