#include "apps/importazione/parti_mappa.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

#include "base/text.h"

namespace cu {
namespace {

using intake::Colonna;
using intake::Elenco;
using intake::Fonte;
using intake::Mappatura;
using intake::OrdineData;
using intake::Segno;
using intake::TipoColonna;

constexpr std::string_view kAttesaFonte =
    "\"intestazione\", un elenco di intestazioni, { costante = \"...\" } oppure { colonna = \"...\", segno = "
    "\"positivo\" }";
constexpr std::string_view kAttesoSeparatore = "\";\", \",\", \"\\t\" o \"|\"";
constexpr std::string_view kAttesoSegno = "\"come scritto\", \"positivo\" o \"inverso\"";

template <class E>
struct Parola {
  std::string_view parola;
  E valore;
};
constexpr auto kOrdini = std::to_array<Parola<OrdineData>>({{"gma", OrdineData::GiornoMeseAnno},
                                                            {"mga", OrdineData::MeseGiornoAnno},
                                                            {"amg", OrdineData::AnnoMeseGiorno}});
constexpr auto kSegni = std::to_array<Parola<Segno>>(
    {{"come scritto", Segno::ComeScritto}, {"positivo", Segno::Positivo}, {"inverso", Segno::Inverso}});
constexpr auto kCaratteri =
    std::to_array<Parola<tabelle::Caratteri>>({{"utf-8", tabelle::Caratteri::Utf8},
                                               {"utf-16le", tabelle::Caratteri::Utf16Le},
                                               {"utf-16be", tabelle::Caratteri::Utf16Be},
                                               {"windows-1252", tabelle::Caratteri::Windows1252}});

template <class Parole>
auto valoreDi(const Parole& parole, std::string_view parola) {
  const auto trovata =
      std::find_if(parole.begin(), parole.end(), [&](const auto& voce) { return voce.parola == parola; });
  return trovata == parole.end() ? std::nullopt : std::optional(trovata->valore);
}

template <class Parole, class E>
std::string parolaDi(const Parole& parole, E valore) {
  return std::string(std::find_if(parole.begin(), parole.end(), [&](const auto& voce) {
                       return voce.valore == valore;
                     })->parola);
}

// One of the given characters, or nothing.
std::optional<char> unoFra(const LettoreToml& chiavi, std::string_view chiave, std::string_view ammessi,
                           std::string_view atteso) {
  if (!chiavi.presente(chiave)) return std::nullopt;
  const std::string valore = chiavi.testo(chiave);
  if (valore.size() != 1 || ammessi.find(valore.front()) == std::string_view::npos) {
    chiavi.rifiuta(chiave, "valore non ammesso", atteso);
  }
  return valore.front();
}

intake::Salto leggiSalto(const LettoreToml& chiavi) {
  const LettoreToml salto = chiavi.sezione("salta_se");
  salto.soloChiavi({"colonna", "inizia"});
  intake::Salto letto{salto.testo("colonna"), salto.testo("inizia")};
  if (letto.colonna.empty()) salto.rifiuta("colonna", "valore non ammesso", "un'intestazione");
  if (letto.inizia.empty()) salto.rifiuta("inizia", "valore non ammesso", "un testo non vuoto");
  return letto;
}

std::vector<std::string> leggiIntestazioni(const LettoreToml& colonne, std::string_view chiave,
                                           const toml::array& elenco) {
  std::vector<std::string> intestazioni;
  for (const toml::node& elemento : elenco) {
    const auto* const testo = elemento.as_string();
    if (testo == nullptr || testo->get().empty()) colonne.rifiuta(chiave, "tipo sbagliato", kAttesaFonte);
    intestazioni.push_back(testo->get());
  }
  if (intestazioni.empty()) colonne.rifiuta(chiave, "valore non ammesso", kAttesaFonte);
  return intestazioni;
}

Fonte leggiTabellaFonte(const LettoreToml& fonte, std::string_view intero, const LettoreToml& colonne,
                        const Colonna& colonna) {
  fonte.soloChiavi({"costante", "colonna", "segno"});
  Fonte letta;
  if (fonte.presente("costante") == fonte.presente("colonna")) {
    colonne.rifiuta(intero, "valore non ammesso", kAttesaFonte);
  }
  if (fonte.presente("costante")) letta.costante = fonte.testo("costante");
  if (fonte.presente("colonna")) letta.colonne.push_back(fonte.testo("colonna"));
  if (fonte.presente("segno")) {
    const auto segno = valoreDi(kSegni, fonte.testo("segno"));
    if (!segno) fonte.rifiuta("segno", "valore non ammesso", kAttesoSegno);
    if (colonna.tipo != TipoColonna::Importo) {
      fonte.rifiuta("segno", "chiave non ammessa", "solo per una colonna di importi");
    }
    letta.segno = *segno;
  }
  return letta;
}

}  // namespace

toml::table interpretaMappa(std::string_view testo, const std::string& file) {
  toml::parse_result letto = toml::parse(testo, std::string_view(file));
  if (letto) return std::move(letto).table();
  const toml::source_position dove = letto.error().source().begin;
  throw ErroreProfilo(unaRiga(file) + ": riga " + fromInteger(dove.line) + ", colonna " +
                      fromInteger(dove.column) + ": il testo non è TOML valido, atteso chiave = valore");
}

void leggiModoDiLettura(const LettoreToml& chiavi, Mappatura& mappatura) {
  chiavi.soloChiavi(
      {"separatore", "caratteri", "riga_intestazione", "foglio", "decimali", "migliaia", "date", "salta_se"});
  mappatura.lettura.separatore = unoFra(chiavi, "separatore", ";,\t|", kAttesoSeparatore);
  if (chiavi.presente("caratteri")) {
    const auto caratteri = tabelle::caratteriDaNome(chiavi.testo("caratteri"));
    if (!caratteri) {
      chiavi.rifiuta("caratteri", "valore non ammesso",
                     "\"utf-8\", \"windows-1252\", \"utf-16le\" o \"utf-16be\"");
    }
    mappatura.lettura.caratteri = *caratteri;
  }
  mappatura.lettura.rigaIntestazione = static_cast<std::size_t>(chiavi.intero("riga_intestazione", 1, 0));
  mappatura.lettura.foglio = chiavi.testo("foglio", "");
  mappatura.decimali = unoFra(chiavi, "decimali", ",.", "\",\" o \".\"");
  mappatura.migliaia = unoFra(chiavi, "migliaia", ",.' ", "\".\", \",\", \"'\" o uno spazio");
  if (mappatura.migliaia && mappatura.migliaia == mappatura.decimali) {
    chiavi.rifiuta("migliaia", "valore non ammesso", "un segno diverso da decimali");
  }
  if (chiavi.presente("date")) {
    mappatura.date = valoreDi(kOrdini, chiavi.testo("date"));
    if (!mappatura.date) chiavi.rifiuta("date", "valore non ammesso", "\"gma\", \"mga\" o \"amg\"");
  }
  if (chiavi.presente("salta_se")) mappatura.salto = leggiSalto(chiavi);
}

Fonte leggiFonte(const LettoreToml& colonne, std::string_view chiave, const Colonna& colonna) {
  const toml::node& nodo = colonne.nodo(chiave, kAttesaFonte);
  if (const auto* const testo = nodo.as_string(); testo != nullptr && !testo->get().empty()) {
    return {{testo->get()}, {}, Segno::ComeScritto};
  }
  if (const auto* const elenco = nodo.as_array(); elenco != nullptr) {
    const bool unibile = colonna.tipo == TipoColonna::Importo || colonna.tipo == TipoColonna::Testo;
    if (!unibile) colonne.rifiuta(chiave, "valore non ammesso", "una sola intestazione");
    return {leggiIntestazioni(colonne, chiave, *elenco), {}, Segno::ComeScritto};
  }
  if (!nodo.is_table()) colonne.rifiuta(chiave, "tipo sbagliato", kAttesaFonte);
  return leggiTabellaFonte(colonne.sezione(chiave), chiave, colonne, colonna);
}

const Colonna& colonnaDi(const LettoreToml& chiavi, Elenco elenco, std::string_view chiave) {
  const auto rango = intake::cercaColonna(elenco, chiave);
  if (!rango) {
    std::string note;
    for (const Colonna& colonna : intake::colonne(elenco)) {
      if (!note.empty()) note += ", ";
      note += colonna.nome;
    }
    chiavi.rifiuta(chiave, "chiave sconosciuta",
                   "una colonna dei " + std::string(intake::nome(elenco)) + ": " + note);
  }
  return intake::colonne(elenco)[*rango];
}

toml::table scriviModoDiLettura(const Mappatura& mappatura) {
  toml::table lettura;
  const auto segno = [&lettura](std::string_view chiave, std::optional<char> valore) {
    if (valore) lettura.insert(chiave, std::string(1, *valore));
  };
  segno("separatore", mappatura.lettura.separatore);
  if (mappatura.lettura.caratteri != tabelle::Caratteri::Riconosciuti) {
    lettura.insert("caratteri", parolaDi(kCaratteri, mappatura.lettura.caratteri));
  }
  if (mappatura.lettura.rigaIntestazione > 0) {
    lettura.insert("riga_intestazione", static_cast<std::int64_t>(mappatura.lettura.rigaIntestazione));
  }
  if (!mappatura.lettura.foglio.empty()) lettura.insert("foglio", mappatura.lettura.foglio);
  segno("decimali", mappatura.decimali);
  segno("migliaia", mappatura.migliaia);
  if (mappatura.date) lettura.insert("date", parolaDi(kOrdini, *mappatura.date));
  if (!mappatura.salto.colonna.empty()) {
    toml::table salto{{"colonna", mappatura.salto.colonna}, {"inizia", mappatura.salto.inizia}};
    salto.is_inline(true);
    lettura.insert("salta_se", std::move(salto));
  }
  return lettura;
}

void scriviFonte(toml::table& colonne, std::string_view nome, const Fonte& fonte) {
  if (fonte.costante || fonte.segno != Segno::ComeScritto) {
    toml::table tabella;
    if (fonte.costante) {
      tabella.insert("costante", *fonte.costante);
    } else {
      tabella.insert("colonna", fonte.colonne.front());
    }
    if (fonte.segno != Segno::ComeScritto) tabella.insert("segno", parolaDi(kSegni, fonte.segno));
    tabella.is_inline(true);
    colonne.insert(nome, std::move(tabella));
  } else if (fonte.colonne.size() == 1) {
    colonne.insert(nome, fonte.colonne.front());
  } else {
    toml::array elenco;
    for (const std::string& intestazione : fonte.colonne) elenco.push_back(intestazione);
    colonne.insert(nome, std::move(elenco));
  }
}

}  // namespace cu
