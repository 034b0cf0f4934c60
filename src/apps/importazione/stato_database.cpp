#include "apps/importazione/stato_database.h"

#include <algorithm>

#include "apps/comune/connessioni.h"
#include "intake/storico.h"
#include "schede/aziende.h"
#include "schede/conteggio.h"

namespace cu {

StatoDatabase esaminaDatabase(const Profilo::Database& database) {
  const auto connessione = apriConnessione(database);
  StatoDatabase stato;
  stato.creatoQui = schede::archivioProprio(*connessione);
  stato.storico = intake::haStorico(*connessione);
  for (const schede::SchedaAzienda& azienda : schede::Aziende(*connessione).tutte()) {
    stato.aziende.push_back({azienda.id, nominativo(azienda.sede), azienda.sede.codiceFiscale});
  }
  std::sort(stato.aziende.begin(), stato.aziende.end(),
            [](const AziendaDelDatabase& a, const AziendaDelDatabase& b) { return a.nome < b.nome; });
  return stato;
}

}  // namespace cu
