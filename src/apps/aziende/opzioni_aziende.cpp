#include "apps/aziende/opzioni_aziende.h"

#include <utility>

#include "apps/comune/connessioni.h"

namespace cu {

std::optional<std::vector<Profilo::Database>> databaseIndicati(const OpzioniAziende& opzioni,
                                                               const Profilo& profilo) {
  if (opzioni.indirizzi.empty()) return std::vector{profilo.database};
  std::vector<Profilo::Database> database;
  for (const std::string& indirizzo : opzioni.indirizzi) {
    auto uno = databaseIndicato({indirizzo, opzioni.variabilePassword, opzioni.inChiaro});
    if (!uno) return std::nullopt;
    uno->secondiAccesso = profilo.database.secondiAccesso;
    uno->secondiIstruzione = profilo.database.secondiIstruzione;
    database.push_back(std::move(*uno));
  }
  return database;
}

}  // namespace cu
