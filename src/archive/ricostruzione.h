#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "data/database.h"
#include "host/session.h"

namespace cu {

// The amounts of a payment that are summed into the columns of the same names of its account.
inline constexpr std::string_view kImportiConto[] = {"OnorarioProvvigioni",     "QuotaProvvigioniNonSoggette",
                                                     "SommeNonSoggette",        "SommeNonSoggetteRegConv",
                                                     "RitenutaAcconto",         "RitenutaImposta",
                                                     "ContributoPrevidenziale", "RitenutaPrevidenziale13"};

// Sums the payments of a year into the accounts of the payees and reasons selected by the filter; creates
// missing accounts. Accounts without payments and all additional data are not changed. Runs statements within
// the caller's transaction.
void sommaCompensi(Connection& connessione, std::int32_t idAzienda, int anno, std::string_view filtro = {});

// "Ricostruzione conti individuali" on the database's own connection, in one transaction.
class RicostruzioneContiIndividuali : public RicostruzioneConti {
 public:
  void setDatabase(DatabaseHost& database) override { database_ = &database; }
  void setAzienda(std::int32_t idAzienda) override { idAzienda_ = idAzienda; }
  // The flag is defined by the suite's own component; it has no effect here.
  void setFlag(bool) override {}
  void setFiltro(const std::string& filtro) override { filtro_ = filtro; }
  // Raises Error 91 without a database.
  void ricostruisci(std::int16_t anno) override;
  std::size_t contiCambiati() const override { return cambiati_; }

 private:
  DatabaseHost* database_ = nullptr;
  std::int32_t idAzienda_ = 0;
  std::string filtro_;
  std::size_t cambiati_ = 0;
};

}  // namespace cu
