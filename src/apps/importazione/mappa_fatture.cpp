#include "apps/importazione/mappa_fatture.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <utility>

#include "apps/comune/file_letto.h"
#include "apps/importazione/mappe_personali.h"
#include "apps/importazione/parti_mappa.h"
#include "base/ascii.h"
#include "base/codice_fiscale.h"
#include "suite/platform_file.h"

namespace cu {
namespace {

using intake::Colonna;
using intake::ColonnaCompenso;
using intake::Elenco;

constexpr std::string_view kFormato = "fatture";
constexpr std::string_view kAttesaCausale = "{ costante = \"A\" }: la causale dei forfettari";
constexpr std::string_view kAttesiAltri = "\"errore\" o \"escludi\"";

// The columns of the table of dates.
constexpr auto kColonneDate = std::to_array(
    {ColonnaCompenso::CodicePercipiente, ColonnaCompenso::CodiceFiscale, ColonnaCompenso::PartitaIva,
     ColonnaCompenso::NumeroDocumento, ColonnaCompenso::DataDocumento, ColonnaCompenso::DataPagamento});

bool dellaCausale(const Colonna& colonna) {
  return colonna.indice == static_cast<std::uint8_t>(ColonnaCompenso::Causale);
}

// The column that a key means, of those that a profile for invoices can have.
const Colonna& colonnaFatture(const LettoreToml& chiavi, std::string_view chiave) {
  const auto rango = intake::cercaColonna(Elenco::Compensi, chiave);
  const bool sua = rango && (*rango == static_cast<std::uint8_t>(ColonnaCompenso::Causale) ||
                             std::any_of(kColonneDate.begin(), kColonneDate.end(), [&](ColonnaCompenso una) {
                               return *rango == static_cast<std::uint8_t>(una);
                             }));
  if (!sua) {
    std::string note = "Causale";
    for (const ColonnaCompenso una : kColonneDate) note += ", " + std::string(intake::colonna(una).nome);
    chiavi.rifiuta(chiave, "chiave sconosciuta", "una di " + note);
  }
  return intake::colonne(Elenco::Compensi)[*rango];
}

void leggiColonneFatture(const toml::table& radice, const LettoreToml& chiavi, MappaFatture& mappa) {
  for (const auto& [chiave, nodo] : *radice["colonne"].as_table()) {
    const Colonna& colonna = colonnaFatture(chiavi, chiave.str());
    intake::Fonte fonte = leggiFonte(chiavi, chiave.str(), colonna);
    if (!dellaCausale(colonna)) {
      if (mappa.date.colonne.contains(colonna.indice)) {
        chiavi.rifiuta(chiave.str(), "chiave ripetuta",
                       "una volta sola la colonna " + std::string(colonna.nome));
      }
      mappa.date.colonne[colonna.indice] = std::move(fonte);
      continue;
    }
    if (fonte.costante.value_or(std::string()).empty())
      chiavi.rifiuta(chiave.str(), "valore non ammesso", kAttesaCausale);
    mappa.causaleForfettari = *fonte.costante;
  }
}

void leggiCausali(const toml::table& radice, const LettoreToml& chiavi, MappaFatture& mappa) {
  for (const auto& [chiave, nodo] : *radice["valori"].as_table()) {
    if (!dellaCausale(colonnaFatture(chiavi, chiave.str())))
      chiavi.rifiuta(chiave.str(), "chiave non ammessa", "solo Causale");
    const LettoreToml suoi = chiavi.sezione(chiave.str());
    for (const auto& [scritta, valore] : *nodo.as_table())
      mappa.causali[std::string(scritta.str())] = suoi.testo(scritta.str());
  }
}

// Codes of persons and firms are upper case; a payee's own code is left as it is.
std::string soggetto(std::string_view chiave) {
  std::string maiuscolo = upperAscii(chiave);
  return formaCodice(maiuscolo) == FormaCodice::Nessuna ? std::string(chiave) : maiuscolo;
}

void leggiPercipienti(const toml::table& radice, const LettoreToml& chiavi, MappaFatture& mappa) {
  for (const auto& [chiave, nodo] : *radice["percipienti"].as_table()) {
    const LettoreToml suo = chiavi.sezione(chiave.str());
    suo.soloChiavi({"causale"});
    const std::string causale = suo.testo("causale");
    if (causale.empty()) suo.rifiuta("causale", "valore non ammesso", "una causale, per esempio \"A\"");
    if (!mappa.causaliPercipienti.emplace(soggetto(chiave.str()), causale).second)
      chiavi.rifiuta(chiave.str(), "chiave ripetuta", "una volta sola ogni percipiente");
  }
}

toml::table colonneScritte(const MappaFatture& mappa) {
  toml::table colonne;
  if (!mappa.causaleForfettari.empty())
    scriviFonte(colonne, intake::colonna(ColonnaCompenso::Causale).nome,
                {{}, mappa.causaleForfettari, intake::Segno::ComeScritto});
  for (const auto& [rango, fonte] : mappa.date.colonne)
    scriviFonte(colonne, intake::colonne(Elenco::Compensi)[rango].nome, fonte);
  return colonne;
}

}  // namespace

MappaFatture analizzaMappaFatture(std::string_view testo, const std::string& file) {
  const toml::table tabella = interpretaMappa(testo, file);
  const LettoreToml radice(tabella, file);
  radice.soloChiavi(
      {"formato", "azienda", "altri_committenti", "lettura", "colonne", "valori", "percipienti"});
  if (radice.testo("formato") != kFormato) radice.rifiuta("formato", "valore non ammesso", "\"fatture\"");
  MappaFatture mappa;
  mappa.azienda = soggetto(radice.testo("azienda", ""));
  const std::string altri = radice.testo("altri_committenti", "errore");
  if (altri != "errore" && altri != "escludi")
    radice.rifiuta("altri_committenti", "valore non ammesso", kAttesiAltri);
  mappa.tralasciaAltrui = altri == "escludi";
  if (radice.presente("lettura")) leggiModoDiLettura(radice.sezione("lettura"), mappa.date);
  if (radice.presente("colonne")) leggiColonneFatture(tabella, radice.sezione("colonne"), mappa);
  if (radice.presente("valori")) leggiCausali(tabella, radice.sezione("valori"), mappa);
  if (radice.presente("percipienti")) leggiPercipienti(tabella, radice.sezione("percipienti"), mappa);
  return mappa;
}

MappaFatture leggiMappaFatture(const std::string& file) {
  rifiutaFileDelDatabase(file);
  return analizzaMappaFatture(leggiTestoToml(file), file);
}

std::string scriviMappaFatture(const MappaFatture& mappa) {
  toml::table radice{{"formato", std::string(kFormato)}};
  if (!mappa.azienda.empty()) radice.insert("azienda", mappa.azienda);
  if (mappa.tralasciaAltrui) radice.insert("altri_committenti", "escludi");
  toml::table lettura = scriviModoDiLettura(mappa.date);
  if (!lettura.empty()) radice.insert("lettura", std::move(lettura));
  toml::table colonne = colonneScritte(mappa);
  if (!colonne.empty()) radice.insert("colonne", std::move(colonne));
  toml::table causali;
  for (const auto& [scritta, valore] : mappa.causali) causali.insert(scritta, valore);
  if (!causali.empty()) radice.insert("valori", toml::table{{"Causale", std::move(causali)}});
  toml::table percipienti;
  for (const auto& [codice, causale] : mappa.causaliPercipienti)
    percipienti.insert(codice, toml::table{{"causale", causale}});
  if (!percipienti.empty()) radice.insert("percipienti", std::move(percipienti));
  std::ostringstream testo;
  testo << radice << '\n';
  return testo.str();
}

void applicaMappa(const MappaFatture& mappa, intake::OpzioniFatture& opzioni) {
  opzioni.causaleForfettari = mappa.causaleForfettari;
  opzioni.causali = mappa.causali;
  opzioni.causaliPercipienti = mappa.causaliPercipienti;
  opzioni.tralasciaAltrui = mappa.tralasciaAltrui;
}

std::optional<MappaFattureTrovata> cercaMappaFatture(const std::string& cartella,
                                                     const std::string& azienda) {
  if (azienda.empty()) return std::nullopt;
  for (const std::string& file : profiliDi(cartella)) {
    const std::string testo = leggiTestoToml(file);
    const ScopoMappa scopo = scopoMappa(testo, file);
    if (scopo.formato == kFormato && soggetto(scopo.azienda) == azienda)
      return MappaFattureTrovata{file, analizzaMappaFatture(testo, file)};
  }
  return std::nullopt;
}

std::string salvaMappaFatture(const std::string& cartella, const MappaFatture& mappa) {
  createFolders(cartella);
  std::string file = cartella + '/' + std::string(kFormato) + '-' + mappa.azienda + ".toml";
  replaceFile(file, scriviMappaFatture(mappa), NewFile::OwnerOnly);
  return file;
}

}  // namespace cu
