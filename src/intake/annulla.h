#pragma once

#include <cstdint>

#include "base/result.h"
#include "host/session.h"
#include "intake/colonne.h"

namespace cu::intake {

struct RichiestaAnnulla {
  std::int32_t lotto = 0;
  bool prova = true;
  std::string momento;  // "2018-03-05 10:30:00"
};

struct Annullato {
  Elenco elenco = Elenco::Compensi;  // what the batch wrote: companies, payees or payments
  std::size_t tolti = 0;             // of them, those removed
  std::size_t percipienti = 0;       // payees removed beside payments: those that invoices brought
  std::size_t riportati = 0;         // and those that have their former values again
};

// Takes a batch back, in one transaction: what it inserted is removed, what it updated has its former values
// again, and the accounts are those of before. Refused, with nothing written, where something of it was
// changed since or depends on it: one refusal for each such row.
Result<Annullato> annulla(DatabaseHost& database, RicostruzioneConti& ricostruzione,
                          const RichiestaAnnulla& richiesta);

}  // namespace cu::intake
