#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "schede/schede.h"
#include "schede/scrittura.h"

namespace cu::schede {

// The payees of a company: their row of the company and their name.
class Percipienti {
 public:
  Percipienti(Connection& connessione, std::int32_t idAzienda)
      : connessione_(connessione), idAzienda_(idAzienda) {}

  // In the order of their ids, read in one statement.
  std::vector<SchedaPercipiente> tutti() const;
  std::optional<SchedaPercipiente> cerca(std::int32_t idAnagrafica) const;
  std::vector<SchedaPercipiente> conCodiceFiscale(std::string_view codice) const;

  static std::vector<Finding> controlla(const SchedaPercipiente& percipiente);

  // Writes name and payee; ids of 0 are new ones. Returns the record with its ids.
  static SchedaPercipiente aggiungi(Scrittura& scrittura, SchedaPercipiente percipiente);
  // Writes what differs; returns false where nothing does.
  static bool cambia(Scrittura& scrittura, const SchedaPercipiente& percipiente);
  // Refused where payments, accounts or modules name the payee. The name stays where something else uses it.
  static Result<> togli(Scrittura& scrittura, const SchedaPercipiente& percipiente);

 private:
  Connection& connessione_;
  std::int32_t idAzienda_;
};

}  // namespace cu::schede
