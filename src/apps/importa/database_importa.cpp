#include "apps/importa/database_importa.h"

#include <iostream>

#include "apps/comune/codici_uscita.h"
#include "intake/esporta.h"

namespace cu {

int rifiutaUso(const UsoSbagliato& errore) {
  const std::string testo = errore.what();
  if (!testo.empty()) std::cerr << testo << '\n';
  return kUsoSbagliato;
}

DatabaseSuite apriDatabase(const OpzioniDatabase& opzioni) {
  const auto database = databaseIndicato(opzioni);
  if (!database) throw UsoSbagliato(std::string());
  return {apriConnessione(*database), nullptr};
}

std::int32_t aziendaDi(Connection& connessione, const std::string& codiceOId) {
  const auto azienda = intake::cercaAzienda(connessione, codiceOId);
  if (!azienda) throw UsoSbagliato("--company: nel database non c'è un'azienda " + codiceOId);
  return *azienda;
}

}  // namespace cu
