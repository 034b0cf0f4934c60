#include "suite/sessione.h"

#include "base/error.h"

namespace cu {

void SessioneProfilo::start(std::int32_t) {
  if (profilo_.sessione.rifiutaAvvio) {
    rifiutato_ = true;
    throw Error(kErrorSessionRefused, "La sessione di lavoro non può essere avviata.");
  }
  database_ = std::make_unique<DatabaseSuite>(apri_(), traccia_);
}

const Profilo::Sessione& SessioneProfilo::avviata() const {
  if (database_ == nullptr) throw Error(kErrorObjectNotSet, "La sessione di lavoro non è stata avviata.");
  return profilo_.sessione;
}

DatabaseHost& SessioneProfilo::database() {
  avviata();
  return *database_;
}

Valuta ValutaProfilo::valuta(Connection&, Date, std::int32_t, std::int32_t) {
  return {static_cast<std::int16_t>(valuta_.decimali ? 1 : 0), valuta_.simbolo, valuta_.separatoreDecimale,
          valuta_.separatoreMigliaia};
}

}  // namespace cu
