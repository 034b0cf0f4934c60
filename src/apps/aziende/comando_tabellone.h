#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "apps/aziende/opzioni_aziende.h"

namespace cu {

// The board of many companies. docs/automazione.md describes its answer.
struct OpzioniTabellone {
  std::string profilo;
  OpzioniAziende aziende;
  std::optional<std::int32_t> anno;
  bool json = false;
};
int comandoTabellone(const OpzioniTabellone& opzioni);

}  // namespace cu
