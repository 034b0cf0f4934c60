#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "schede/schede.h"
#include "schede/scrittura.h"

namespace cu::schede {

// The payments of a company. The accounts are not changed: the rebuild sums the payments into them.
class Compensi {
 public:
  Compensi(Connection& connessione, std::int32_t idAzienda)
      : connessione_(connessione), idAzienda_(idAzienda) {}

  // Of the years, or all without one; in the order of their ids, read in one statement.
  std::vector<SchedaCompenso> degliAnni(const std::vector<int>& anni) const;
  // The years of payment, the first one first.
  std::vector<int> anni() const;
  std::optional<SchedaCompenso> cerca(std::int32_t idCompenso) const;

  static std::vector<Finding> controlla(const SchedaCompenso& compenso);

  static SchedaCompenso aggiungi(Scrittura& scrittura, SchedaCompenso compenso);
  // Writes what differs; returns false where nothing does.
  static bool cambia(Scrittura& scrittura, const SchedaCompenso& compenso);
  static void togli(Scrittura& scrittura, std::int32_t idCompenso);

 private:
  Connection& connessione_;
  std::int32_t idAzienda_;
};

}  // namespace cu::schede
