#include "schede/luoghi.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/codice_fiscale.h"
#include "base/text.h"
#include "liste/liste.h"
#include "schede/righe.h"
#include "schede/scrittura.h"

namespace cu::schede {
namespace {

// Other names of countries, by the letters of the name; what they mean is looked for likewise.
constexpr std::array<std::pair<std::string_view, std::string_view>, 12> kAltriNomi = {{
    {"GRANBRETAGNA", "REGNOUNITO"},
    {"INGHILTERRA", "REGNOUNITO"},
    {"OLANDA", "PAESIBASSI"},
    {"STATIUNITI", "STATIUNITIDAMERICA"},
    {"USA", "STATIUNITIDAMERICA"},
    {"CECHIA", "REPUBBLICACECA"},
    {"FEDERAZIONERUSSA", "RUSSIA"},
    {"REPUBBLICASLOVACCA", "SLOVACCHIA"},
    {"REPUBBLICAPOPOLARECINESE", "CINA"},
    {"BELARUS", "BIELORUSSIA"},
    {"MACEDONIADELNORD", "MACEDONIA"},
    {"ITALY", "ITALIA"},
}};

std::string_view primaParte(std::string_view nome) { return nome.substr(0, nome.find('/')); }
std::string_view secondaParte(std::string_view nome) {
  const std::size_t barra = nome.find('/');
  return barra == std::string_view::npos ? std::string_view() : nome.substr(barra + 1);
}

bool codiceCatastale(std::string_view testo) {
  return testo.size() == 4 && testo.find_first_not_of("0123456789", 1) == std::string_view::npos &&
         !lettereDiCodice(testo.substr(0, 1)).empty();
}

// Of municipalities of one name, those that were there on the day: in each province the former one that
// ceased to exist next, or else the present one. Without a day the present ones. All of them where there is
// none.
std::vector<const Luogo*> delGiorno(const std::vector<const Luogo*>& tutti, std::optional<Date> giorno) {
  const auto esisteva = [&](const Luogo* luogo) {
    return luogo->soppresso == 0 || (giorno && giorno->year() < luogo->soppresso);
  };
  // A present one has taken the place of the former one of its name.
  const auto prima = [](const Luogo* uno, const Luogo* altro) {
    return uno->soppresso != 0 && (altro->soppresso == 0 || uno->soppresso < altro->soppresso);
  };
  std::vector<const Luogo*> allora;
  for (const Luogo* luogo : tutti) {
    if (!esisteva(luogo)) continue;
    const bool preceduto = std::any_of(tutti.begin(), tutti.end(), [&](const Luogo* altro) {
      return altro->provincia == luogo->provincia && esisteva(altro) && prima(altro, luogo);
    });
    if (!preceduto) allora.push_back(luogo);
  }
  return allora.empty() ? tutti : allora;
}

}  // namespace

Luoghi::Luoghi(Connection& connessione) {
  leggiComuni(connessione);
  leggiNazioni(connessione);
}

void Luoghi::leggiComuni(Connection& connessione) {
  std::unordered_map<std::string_view, int> soppressi;
  for (const ComuneInLista& comune : cu::comuni()) soppressi.emplace(comune.catasto, comune.soppresso);
  RowStore righe;
  connessione.Query(
      "SELECT Comune.IDComune, Comune.Comune, Comune.CodiceComuneDiNascita, Provincia.Provincia FROM Comune"
      " LEFT JOIN Provincia ON Comune.IDProvincia = Provincia.IDProvincia ORDER BY Comune.IDComune",
      righe);
  std::array<CellView, 4> celle;
  comuni_.reserve(righe.size());
  for (std::size_t i = 0; i < righe.size(); ++i) {
    righe.read(i, celle.data());
    Luogo luogo{idIn(celle[0]), celle[1].toText(), celle[2].toText(), celle[3].toText(), 0};
    const auto suo = soppressi.find(luogo.catasto);
    if (suo != soppressi.end()) luogo.soppresso = suo->second;
    const std::size_t posto = comuni_.size();
    comuniPerId_.emplace(luogo.id, posto);
    if (!luogo.catasto.empty()) comuniPerCatasto_.emplace(luogo.catasto, posto);
    comuniPerNome_[lettereDiCodice(luogo.nome)].push_back(posto);
    for (const std::string_view parte : {primaParte(luogo.nome), secondaParte(luogo.nome)}) {
      if (parte.size() < luogo.nome.size() && !parte.empty()) {
        comuniPerNome_[lettereDiCodice(parte)].push_back(posto);
      }
    }
    comuni_.push_back(std::move(luogo));
  }
}

void Luoghi::leggiNazioni(Connection& connessione) {
  std::unordered_map<std::string_view, std::string_view> catasti;
  for (const NazioneInLista& nazione : cu::nazioni()) catasti.emplace(nazione.codice, nazione.catasto);
  RowStore righe;
  connessione.Query("SELECT IDNazione, Nazione, PrefissoInternazionale FROM Nazione ORDER BY IDNazione",
                    righe);
  std::array<CellView, 3> celle;
  nazioni_.reserve(righe.size());
  for (std::size_t i = 0; i < righe.size(); ++i) {
    righe.read(i, celle.data());
    Luogo luogo{idIn(celle[0]), celle[1].toText(), "", "", 0};
    const std::string codice = celle[2].toText();
    const auto suo = catasti.find(codice);
    if (suo != catasti.end()) luogo.catasto = suo->second;
    const std::size_t posto = nazioni_.size();
    nazioniPerId_.emplace(luogo.id, posto);
    if (!luogo.catasto.empty()) nazioniPerCatasto_.emplace(luogo.catasto, posto);
    const std::string lettere = lettereDiCodice(luogo.nome);
    if (lettere == "ITALIA") italia_ = luogo.id;
    nazioniPerNome_[lettere].push_back(posto);
    if (!codice.empty()) nazioniPerNome_[codice].push_back(posto);
    nazioni_.push_back(std::move(luogo));
  }
}

Ricerca Luoghi::comune(std::string_view nome, std::string_view provincia, std::optional<Date> giorno) const {
  if (codiceCatastale(nome)) {
    std::string catasto = lettereDiCodice(nome.substr(0, 1));
    catasto += nome.substr(1);
    const Luogo* const suo = comuneDiCatasto(catasto);
    return suo == nullptr ? Ricerca{} : Ricerca{{suo}};
  }
  auto trovati = comuniPerNome_.find(lettereDiCodice(nome));
  if (trovati == comuniPerNome_.end()) trovati = comuniPerNome_.find(lettereDiCodice(primaParte(nome)));
  if (trovati == comuniPerNome_.end()) return {};
  std::vector<const Luogo*> tutti;
  for (const std::size_t posto : trovati->second) {
    const Luogo& luogo = comuni_[posto];
    if (provincia.empty() || equalsNoCase(luogo.provincia, trim(provincia))) tutti.push_back(&luogo);
  }
  return {delGiorno(tutti, giorno)};
}

const Luogo* Luoghi::comuneDiCatasto(std::string_view catasto) const {
  const auto suo = comuniPerCatasto_.find(std::string(catasto));
  return suo == comuniPerCatasto_.end() ? nullptr : &comuni_[suo->second];
}

const Luogo* Luoghi::comuneDiId(std::int32_t id) const {
  const auto suo = comuniPerId_.find(id);
  return suo == comuniPerId_.end() ? nullptr : &comuni_[suo->second];
}

const Luogo* Luoghi::localitaEstera(std::string_view nome) const {
  const auto trovati = comuniPerNome_.find(lettereDiCodice(nome));
  if (trovati == comuniPerNome_.end()) return nullptr;
  for (const std::size_t posto : trovati->second) {
    const Luogo& luogo = comuni_[posto];
    if (luogo.provincia.empty() && luogo.catasto.empty() && luogo.nome == nome) return &luogo;
  }
  return nullptr;
}

Ricerca Luoghi::nazione(std::string_view nome) const {
  if (codiceCatastale(nome)) {
    std::string catasto = lettereDiCodice(nome.substr(0, 1));
    catasto += nome.substr(1);
    const Luogo* const sua = nazioneDiCatasto(catasto);
    if (sua != nullptr) return {{sua}};
  }
  const bool cifre = nome.size() == 3 && nome.find_first_not_of("0123456789") == std::string_view::npos;
  const std::string lettere = cifre ? std::string(nome) : lettereDiCodice(nome);
  auto trovate = nazioniPerNome_.find(lettere);
  if (trovate == nazioniPerNome_.end()) {
    for (const auto& [altro, suo] : kAltriNomi) {
      if (altro == lettere) trovate = nazioniPerNome_.find(std::string(suo));
    }
  }
  if (trovate == nazioniPerNome_.end()) return {};
  Ricerca ricerca;
  for (const std::size_t posto : trovate->second) ricerca.trovati.push_back(&nazioni_[posto]);
  return ricerca;
}

const Luogo* Luoghi::nazioneDiCatasto(std::string_view catasto) const {
  const auto sua = nazioniPerCatasto_.find(std::string(catasto));
  return sua == nazioniPerCatasto_.end() ? nullptr : &nazioni_[sua->second];
}

const Luogo* Luoghi::nazioneDiId(std::int32_t id) const {
  const auto sua = nazioniPerId_.find(id);
  return sua == nazioniPerId_.end() ? nullptr : &nazioni_[sua->second];
}

}  // namespace cu::schede
