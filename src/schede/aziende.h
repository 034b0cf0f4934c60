#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "schede/schede.h"
#include "schede/scrittura.h"

namespace cu::schede {

// The companies of a database, with every row that a company of the suite needs: name, representative,
// branch, activity and VAT periods, configurations, the default branch of each kind of print.
class Aziende {
 public:
  explicit Aziende(Connection& connessione) : connessione_(connessione) {}

  std::vector<SchedaAzienda> tutte() const;
  std::optional<SchedaAzienda> cerca(std::int32_t idAzienda) const;

  // What is required of a company's data; the places name members of the record.
  static std::vector<Finding> controlla(const SchedaAzienda& azienda);

  // Writes a company and all that belongs to it. Ids of 0 are new ones, others are taken as they are. Returns
  // the record with its ids.
  static SchedaAzienda aggiungi(Scrittura& scrittura, SchedaAzienda azienda);
  // Writes what differs; returns false where nothing does.
  static bool cambia(Scrittura& scrittura, SchedaAzienda azienda);
  // Adds the periods of the years that the company does not have.
  static void assicuraAnni(Scrittura& scrittura, std::int32_t idAzienda, const std::vector<int>& anni);
  // What depends on the company: refused, and nothing removed, where there is something.
  static Result<> togli(Scrittura& scrittura, const SchedaAzienda& azienda);

 private:
  Connection& connessione_;
};

}  // namespace cu::schede
