#include "system/posto_support.h"

#include <algorithm>
#include <stdexcept>

namespace cu::test {
namespace {

// Made once for the whole program, copied for each test.
const std::string& modello(Posto::Database database) {
  static const TempFolder cartella;
  static std::map<Posto::Database, std::string> fatti;
  std::string& file = fatti[database];
  if (file.empty()) {
    const bool vuoto = database == Posto::Database::Vuoto;
    file = cartella / (vuoto ? "vuoto.db" : "demo.db");
    const Esecuzione esito = esegui(
        {CU_CUCTL, "create", "--database", "sqlite:" + file, vuoto ? "--empty" : "--demo"}, cartella.path());
    if (esito.codice != 0) throw std::runtime_error("cuctl create: " + esito.errori);
  }
  return file;
}

}  // namespace

Posto::Posto(Database database) {
  if (database != Database::Nessuno) {
    std::filesystem::copy_file(modello(database), cartella_ / "demo.db");
  }
  std::filesystem::create_directory(cartella_ / "Documenti");
  chiavi_ = {
      {"session",
       {{"user", "12"},
        {"company", "1"},
        {"branch", "1"},
        {"title", "\"Quadrivio\""},
        {"help_folder", "\"/guida\""},
        {"help_context", "100"},
        {"settings_section", "\"Sessione12\""},
        {"processes", "[ { name = \"Wizard stampa\", function = 247 } ]"},
        {"today", "2017-03-05T10:30:00"}}},
      {"database", {{"url", "\"sqlite:demo.db\""}}},
      {"currency", {{"decimals", "true"}, {"symbol", "\"€\""}, {"decimal", "\",\""}, {"thousands", "\".\""}}},
      {"folders", {{"documents", "\"Documenti\""}, {"settings", "\"settings.toml\""}}},
      {"printing", {{"engine", "\"record\""}}},
      {"trace", {{"sql", "\"trace.sql\""}}}};
}

void Posto::imposta(const std::string& chiave, const std::string& valore) {
  const std::size_t punto = chiave.find('.');
  auto& sezione = chiavi_[chiave.substr(0, punto)];
  if (valore.empty()) {
    sezione.erase(chiave.substr(punto + 1));
  } else {
    sezione[chiave.substr(punto + 1)] = valore;
  }
}

std::string Posto::profilo() {
  std::string testo;
  for (const auto& [sezione, valori] : chiavi_) {
    testo += "[" + sezione + "]\n";
    for (const auto& [chiave, valore] : valori) testo += chiave + " = " + valore + "\n";
  }
  return cartella_.write("profilo.toml", testo);
}

Esecuzione Posto::cuctl(std::vector<std::string> argomenti, const std::string& ingresso) {
  argomenti.insert(argomenti.begin(), CU_CUCTL);
  return esegui(argomenti, cartella_.path(), ingresso);
}

std::unique_ptr<Processo> Posto::guida() {
  return std::make_unique<Processo>(std::vector<std::string>{CU_CUCTL, "drive", "--profile", profilo()},
                                    cartella_.path());
}

std::vector<std::string> Posto::file(const std::string& sotto) const {
  std::vector<std::string> nomi;
  for (const auto& voce : std::filesystem::directory_iterator(cartella_ / sotto)) {
    nomi.push_back(voce.path().filename().string());
  }
  std::sort(nomi.begin(), nomi.end());
  return nomi;
}

}  // namespace cu::test
