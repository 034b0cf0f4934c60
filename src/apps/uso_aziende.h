#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <optional>
#include <string>

#include "comandi.h"

namespace cu {

// The options with which a command works for several companies.
struct SceltaAziende {
  OpzioniAziende opzioni;
  bool tutte = false;
  CLI::Option* soloMancanti = nullptr;

  // Nothing for the company of the profile. Raises CLI::ValidationError for what does not go together.
  std::optional<OpzioniAziende> scelta() const;
};
void aggiungiAziende(CLI::App& comando, SceltaAziende& scelta);

// --jobs
void aggiungiLavori(CLI::App& comando, std::optional<std::int32_t>& lavori, const std::string& spiegazione);

}  // namespace cu
