#include "apps/importa/database_importa.h"

#include <filesystem>
#include <iostream>
#include <string_view>
#include <system_error>

#include "apps/comune/codici_uscita.h"
#include "intake/esporta.h"

namespace cu {

int rifiutaUso(const UsoSbagliato& errore) {
  const std::string testo = errore.what();
  if (!testo.empty()) std::cerr << testo << '\n';
  return kUsoSbagliato;
}

bool stessoFile(const std::string& uno, const std::string& altro) {
  std::error_code errore;
  return !uno.empty() && !altro.empty() && std::filesystem::equivalent(uno, altro, errore) && !errore;
}

void rifiutaDatabase(const char* opzione, const std::string& file, const OpzioniDatabase& database) {
  constexpr std::string_view kIncorporato = "sqlite:";
  if (!database.indirizzo.starts_with(kIncorporato)) return;
  if (stessoFile(file, database.indirizzo.substr(kIncorporato.size())))
    throw UsoSbagliato(std::string(opzione) + ": " + file + " è il database");
}

DatabaseSuite apriDatabase(const OpzioniDatabase& opzioni, AperturaDatabase apri) {
  const auto database = databaseIndicato(opzioni);
  if (!database) throw UsoSbagliato(std::string());
  return {apri(*database), nullptr};
}

std::int32_t aziendaDi(Connection& connessione, const std::string& codiceOId) {
  const auto azienda = intake::cercaAzienda(connessione, codiceOId);
  if (!azienda) throw UsoSbagliato("--company: nel database non c'è un'azienda " + codiceOId);
  return *azienda;
}

}  // namespace cu
