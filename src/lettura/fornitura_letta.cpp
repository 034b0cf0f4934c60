#include <array>
#include <cstdlib>
#include <utility>

#include "base/text.h"
#include "base/windows1252.h"
#include "lettura/esaminatore.h"
#include "lettura/valori.h"
#include "modello/riconoscimento.h"

// Records A, B and Z, and what an agent's certificates have in common.
namespace cu::lettura {
namespace {

constexpr Tratto kCodiceFornitura = tratto(modello::kTipoA, "Codice fornitura");
constexpr Tratto kTipoFornitore = tratto(modello::kTipoA, "Tipo fornitore");
constexpr Tratto kFornitore = tratto(modello::kTipoA, "Cod. Fisc. fornitore");
constexpr Tratto kAgenteDiB = tratto(modello::kTipoBInizio, "Cod. Fisc. Sost. imposta");
constexpr Tratto kAnnullamenti = tratto(modello::kTipoBInizio, "Fornitura rel. invio certif. da ann.");
constexpr Tratto kSostituzioni = tratto(modello::kTipoBInizio, "Fornitura rel. invio certif. da sost.");
constexpr Tratto kCognome = tratto(modello::kTipoBInizio, "Cognome");
constexpr Tratto kNome = tratto(modello::kTipoBInizio, "Nome");
constexpr Tratto kDenominazione = tratto(modello::kTipoBInizio, "Denominazione");
constexpr Tratto kCertificazioni = tratto(modello::kTipoBFine, "N° comun. certif. lav. aut. e provv.");
static_assert(kCertificazioni.posizione == 402 && kDenominazione.posizione == 137 &&
              kFornitore.posizione == 23);

std::string letto(std::string_view riga, Tratto tratto) { return da1252(trim(leggi(riga, tratto))); }

// The tax year of a supply: CUR18 is that of 2017. The first form is CUR15.
std::optional<std::int32_t> annoDi(std::string_view codice) {
  if (!codice.starts_with("CUR")) return std::nullopt;
  const std::int64_t anno = numero(codice.substr(3));
  if (anno < 15) return std::nullopt;
  return static_cast<std::int32_t>(2000 + anno - 1);
}

}  // namespace

void Esaminatore::recordA(std::string_view riga) {
  const std::string_view codice = leggi(riga, kCodiceFornitura);
  const auto anno = annoDi(codice);
  if (!anno) {
    segnala_.campo(Regola::H03, kCodiceFornitura, "Codice fornitura", [&] {
      return "Il codice fornitura è " + citato(trim(codice)) + ": atteso CUR e l'anno della CU, da CUR15.";
    });
  }
  testate_.controlla('A', riga, segnala_);
  anno_ = anno;
  usaModello(dato_ != nullptr ? *dato_ : modello::kModello);
  esito_.fornitura = {letto(riga, kCodiceFornitura), anno, letto(riga, kFornitore),
                      letto(riga, kTipoFornitore), da1252(riga)};
  if (ascoltatore_ != nullptr) ascoltatore_->fornitura(esito_.fornitura);
}

void Esaminatore::usaModello(const modello::Modello& modello) {
  modello_ = &modello;
  testate_.anno(anno_, modello);
  congruenza_.anno(anno_, modello);
  caselle_.emplace(anno_, modello);
}

void Esaminatore::scegliModello(std::string_view rigaB) {
  if (dato_ != nullptr || !anno_) return;
  const modello::Modello& suo = modello::modelloDelRecordB(*anno_, rigaB);
  if (&suo != modello_) usaModello(suo);
}

void Esaminatore::recordB(std::string_view riga, bool affidabile) {
  chiudiCertificato();
  chiudiAgente();
  agente_.presente = true;
  agente_.affidabile = affidabile;
  agente_.riga = segnala_.numero();
  agente_.codice = leggi(riga, kAgenteDiB);
  agente_.codiceNoto = affidabile && segnala_.leggibile(kAgenteDiB);
  agente_.dichiarate = static_cast<int>(numero(leggi(riga, kCertificazioni)));
  Sostituto& sostituto = agente_.sostituto;
  sostituto.codiceFiscale = letto(riga, kAgenteDiB);
  sostituto.annullamenti = leggi(riga, kAnnullamenti) == "1";
  sostituto.sostituzioni = leggi(riga, kSostituzioni) == "1";
  agente_.correttiva = sostituto.annullamenti || sostituto.sostituzioni;
  esito_.annullamenti = esito_.annullamenti || sostituto.annullamenti;
  esito_.sostituzioni = esito_.sostituzioni || sostituto.sostituzioni;
  if (ascoltatore_ == nullptr) return;
  sostituto.nome = letto(riga, kDenominazione);
  if (sostituto.nome.empty()) {
    sostituto.nome = letto(riga, kCognome);
    const std::string nome = letto(riga, kNome);
    if (!nome.empty()) sostituto.nome += " " + nome;
  }
  sostituto.testo = da1252(riga);
  ascoltatore_->sostituto(sostituto);
  annunciato_ = true;
}

void Esaminatore::annunciaSostituto() {
  if (ascoltatore_ != nullptr && !std::exchange(annunciato_, true))
    ascoltatore_->sostituto(agente_.sostituto);
}

namespace {

struct FlagDiB {
  Tratto tratto;
  std::string_view nome;
  std::string_view correzioni;
};
constexpr std::array<FlagDiB, 2> kFlagDiB = {
    {{kAnnullamenti, "Fornitura rel. invio certif. da ann.", "annullamenti"},
     {kSostituzioni, "Fornitura rel. invio certif. da sost.", "sostituzioni"}}};

}  // namespace

// Corrections of a kind that record B does not declare. Beside others that it declares they are wrong
// themselves; otherwise the record is.
void Esaminatore::nonAnnunciate(std::size_t genere) {
  const FlagDiB& flag = kFlagDiB.at(genere);
  const std::array<bool, 2> annunciate = {agente_.sostituto.annullamenti, agente_.sostituto.sostituzioni};
  const auto testo = [&] {
    return "Ci sono " + std::string(flag.correzioni) + ", ma il record B non ne annuncia.";
  };
  if (!annunciate.at(1 - genere) || agente_.correzioni.at(1 - genere).empty()) {
    segnala_.campoDi(agente_.riga, 'B', Regola::H07, flag.tratto, flag.nome, testo);
    return;
  }
  for (const std::int64_t riga : agente_.correzioni.at(genere)) {
    segnala_.campoDi(riga, 'D', Regola::H07, tratto(modello::kTipoD, "Tipo op.: ann./sost."),
                     "Tipo op.: ann./sost.", testo);
  }
}

// What record B declares against the operations of its certificates.
void Esaminatore::confrontaOperazioni() {
  const Agente& a = agente_;
  const std::array<bool, 2> annunciate = {a.sostituto.annullamenti, a.sostituto.sostituzioni};
  for (const std::size_t genere : {0U, 1U}) {
    if (!a.correzioni.at(genere).empty() && !annunciate.at(genere) && (a.correttiva || !a.fuori.empty())) {
      nonAnnunciate(genere);
      return;
    }
  }
  // An unreadable line may be the one that is declared.
  if (ignoteDellAgente_ > 0 && a.fuori.empty()) return;
  for (const std::size_t genere : {0U, 1U}) {
    const bool altre = !a.fuori.empty() || !a.correzioni.at(1 - genere).empty();
    if (!annunciate.at(genere) || !a.correzioni.at(genere).empty() || !altre) continue;
    const FlagDiB& flag = kFlagDiB.at(genere);
    segnala_.campoDi(a.riga, 'B', Regola::H07, flag.tratto, flag.nome, [&] {
      return "Il record B annuncia " + std::string(flag.correzioni) + ", ma non ce ne sono.";
    });
    if (!a.fuori.empty()) return;
  }
}

void Esaminatore::chiudiAgente() {
  const Agente& a = agente_;
  if (a.presente && a.affidabile && a.dichiarate >= 0 && a.dichiarate != a.certificazioni &&
      static_cast<std::size_t>(std::abs(a.dichiarate - a.certificazioni)) > ignoteDellAgente_) {
    segnala_.campoDi(a.riga, 'B', Regola::O05, {1, modello::kLarghezzaRecord},
                     "N° comun. certif. lav. aut. e provv.", [&] {
                       return "Il record B dichiara " + std::to_string(a.dichiarate) +
                              " certificazioni, il file ne ha " + std::to_string(a.certificazioni) + ".";
                     });
  }
  if (a.presente && a.affidabile) confrontaOperazioni();
  agente_ = {};
  ignoteDellAgente_ = 0;
  annunciato_ = false;
}

void Esaminatore::recordZ(std::string_view riga, bool affidabile) {
  chiudiCertificato();
  if (zeta_.riga != 0 || !affidabile) return;
  zeta_.riga = segnala_.numero();
  for (std::size_t i = 0; i < kContati.size(); ++i) {
    const Tratto dove = tratto(modello::kTipoZ, std::string("N° rec. Tipo ") + kContati[i]);
    zeta_.dichiarati.at(i) = segnala_.leggibile(dove) ? numero(leggi(riga, dove)) : -1;
  }
}

void Esaminatore::confrontaConteggi() {
  // Where something follows the record, what it counts is not known.
  if (zeta_.riga == 0 || oltreZeta_) return;
  // What an unreadable line was is not known: it may be any that is missing.
  std::size_t mancanti = 0;
  std::string differenze;
  bool troppi = false;
  for (std::size_t i = 0; i < kContati.size(); ++i) {
    const char record = kContati[i];
    const std::int64_t dichiarati = zeta_.dichiarati.at(i);
    const auto contati = static_cast<std::int64_t>(esito_.totali[static_cast<std::size_t>(record - 'A')]);
    if (dichiarati < 0 || dichiarati == contati) continue;
    // A record that this supply has not is reported where it is.
    const bool nota = record == 'B' || record == 'D' || record == 'H';
    if (dichiarati < contati && !nota) continue;
    if (dichiarati < contati) troppi = true;
    if (dichiarati > contati) mancanti += static_cast<std::size_t>(dichiarati - contati);
    if (!differenze.empty()) differenze += ", ";
    differenze +=
        std::string(1, record) + " " + std::to_string(dichiarati) + " invece di " + std::to_string(contati);
  }
  if (differenze.empty() || (!troppi && mancanti <= ignote_)) return;
  segnala_.intera(Regola::O04, zeta_.riga, {1, modello::kLarghezzaRecord},
                  [&] { return "Il record Z conta " + differenze + "."; });
}

}  // namespace cu::lettura
