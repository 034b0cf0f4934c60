#include "apps/importazione/mappa_toml.h"

#include <sstream>
#include <utility>

#include "apps/comune/file_letto.h"
#include "apps/importazione/parti_mappa.h"

namespace cu {
namespace {

using intake::Colonna;

std::string elenchiAmmessi() { return "\"aziende\", \"percipienti\" o \"compensi\""; }

// The sections are known to be there.
void leggiColonne(const toml::table& radice, const LettoreToml& chiavi, Mappa& mappa) {
  for (const auto& [chiave, nodo] : *radice["colonne"].as_table()) {
    const Colonna& colonna = colonnaDi(chiavi, mappa.elenco, chiave.str());
    if (mappa.mappatura.colonne.contains(colonna.indice)) {
      chiavi.rifiuta(chiave.str(), "chiave ripetuta",
                     "una volta sola la colonna " + std::string(colonna.nome));
    }
    mappa.mappatura.colonne[colonna.indice] = leggiFonte(chiavi, chiave.str(), colonna);
  }
}

void leggiValori(const toml::table& radice, const LettoreToml& chiavi, Mappa& mappa) {
  for (const auto& [chiave, nodo] : *radice["valori"].as_table()) {
    const Colonna& colonna = colonnaDi(chiavi, mappa.elenco, chiave.str());
    const LettoreToml suoi = chiavi.sezione(chiave.str());
    auto& valori = mappa.mappatura.valori[colonna.indice];
    for (const auto& [scritto, valore] : *nodo.as_table()) {
      valori[std::string(scritto.str())] = suoi.testo(scritto.str());
    }
  }
}

}  // namespace

Mappa analizzaMappa(std::string_view testo, const std::string& file) {
  const toml::table tabella = interpretaMappa(testo, file);
  const LettoreToml radice(tabella, file);
  radice.soloChiavi({"formato", "impronta", "lettura", "colonne", "valori"});
  Mappa mappa;
  const auto elenco = intake::elencoDaNome(radice.testo("formato"));
  if (!elenco) radice.rifiuta("formato", "valore non ammesso", elenchiAmmessi());
  mappa.elenco = *elenco;
  mappa.impronta = radice.testo("impronta", "");
  if (radice.presente("lettura")) leggiModoDiLettura(radice.sezione("lettura"), mappa.mappatura);
  if (radice.presente("colonne")) leggiColonne(tabella, radice.sezione("colonne"), mappa);
  if (radice.presente("valori")) leggiValori(tabella, radice.sezione("valori"), mappa);
  return mappa;
}

Mappa leggiMappa(const std::string& file) {
  rifiutaFileDelDatabase(file);
  return analizzaMappa(leggiTestoToml(file), file);
}

ScopoMappa scopoMappa(std::string_view testo, const std::string& file) {
  const toml::table tabella = interpretaMappa(testo, file);
  return {tabella["formato"].value_or(std::string()), tabella["impronta"].value_or(std::string()),
          tabella["azienda"].value_or(std::string())};
}

std::string scriviMappa(const Mappa& mappa) {
  const auto colonne = intake::colonne(mappa.elenco);
  toml::table radice{{"formato", std::string(intake::nome(mappa.elenco))}};
  if (!mappa.impronta.empty()) radice.insert("impronta", mappa.impronta);
  toml::table lettura = scriviModoDiLettura(mappa.mappatura);
  if (!lettura.empty()) radice.insert("lettura", std::move(lettura));
  toml::table fonti;
  for (const auto& [rango, fonte] : mappa.mappatura.colonne) scriviFonte(fonti, colonne[rango].nome, fonte);
  if (!fonti.empty()) radice.insert("colonne", std::move(fonti));
  toml::table tutti;
  for (const auto& [rango, valori] : mappa.mappatura.valori) {
    toml::table suoi;
    for (const auto& [scritto, valore] : valori) suoi.insert(scritto, valore);
    if (!suoi.empty()) tutti.insert(colonne[rango].nome, std::move(suoi));
  }
  if (!tutti.empty()) radice.insert("valori", std::move(tutti));
  std::ostringstream testo;
  testo << radice << '\n';
  return testo.str();
}

}  // namespace cu
