#include "system/posto_support.h"

#include <algorithm>
#include <stdexcept>

#include "system/lettore_db_support.h"

namespace cu::test {
namespace {

constexpr const char* kFileDatabase = "demo.db";

const char* contenuto(Posto::Database database) {
  return database == Posto::Database::Vuoto ? "--empty" : "--demo";
}

// Created once for the whole program, copied for each test.
const std::string& modello(Posto::Database database) {
  static const TempFolder cartella;
  static std::map<Posto::Database, std::string> fatti;
  std::string& file = fatti[database];
  if (file.empty()) {
    file = cartella / (database == Posto::Database::Vuoto ? "vuoto.db" : kFileDatabase);
    const Esecuzione esito =
        esegui({CU_CUCTL, "create", "--database", "sqlite:" + file, contenuto(database)}, cartella.path());
    if (esito.codice != 0) throw std::runtime_error("cuctl create: " + esito.errori);
  }
  return file;
}

const DatabaseDelServer& modelloSulServer(Posto::Database database) {
  static std::map<Posto::Database, std::unique_ptr<Posto>> fatti;
  std::unique_ptr<Posto>& posto = fatti[database];
  if (posto == nullptr) {
    posto = std::make_unique<Posto>(Posto::Database::Nessuno);
    const Esecuzione esito = posto->crea({contenuto(database)});
    if (esito.codice != 0) throw std::runtime_error("cuctl create: " + esito.errori);
  }
  return *posto->databaseDelServer();
}

}  // namespace

Posto::Posto(Database database) {
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
  if (database == Database::Nessuno) return;
  if (sulServer()) {
    usa(std::make_unique<DatabaseDelServer>(modelloSulServer(database)));
  } else {
    std::filesystem::copy_file(modello(database), cartella_ / kFileDatabase);
  }
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

std::unique_ptr<Processo> Posto::guida(std::vector<std::string> altri) {
  altri.insert(altri.begin(), {CU_CUCTL, "drive", "--profile", profilo()});
  return std::make_unique<Processo>(altri, cartella_.path());
}

std::string Posto::indirizzo() const {
  return database_ == nullptr ? std::string("sqlite:") + kFileDatabase : database_->indirizzo();
}

Esecuzione Posto::crea(std::vector<std::string> argomenti) {
  database_.reset();
  std::filesystem::remove(cartella_ / kFileDatabase);
  if (sulServer()) usa(std::make_unique<DatabaseDelServer>());
  return sulDatabase("create", std::move(argomenti));
}

void Posto::usa(std::unique_ptr<DatabaseDelServer> database) {
  database_ = std::move(database);
  imposta("database.url", '"' + indirizzo() + '"');
  imposta("database.password_env", '"' + std::string(kVariabilePassword) + '"');
}

Esecuzione Posto::sulDatabase(const std::string& comando, std::vector<std::string> argomenti) {
  argomenti.insert(argomenti.begin(), {comando, "--database", indirizzo()});
  if (database_ != nullptr) argomenti.insert(argomenti.end(), {"--password-env", kVariabilePassword});
  return cuctl(argomenti);
}

std::unique_ptr<Lettore> Posto::lettore() const {
  if (database_ != nullptr) return database_->lettore();
  return std::make_unique<LettoreDb>(cartella_ / kFileDatabase);
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
