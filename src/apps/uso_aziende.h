#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>

#include "comandi.h"

namespace cu {

// The options with which a command works for several companies.
struct SceltaAziende {
  OpzioniAziende opzioni;
  bool tutte = false;
  // Nothing for the company of the profile. Raises CLI::ValidationError for what does not go together.
  std::optional<OpzioniAziende> scelta() const;
};
void aggiungiAziende(CLI::App& comando, SceltaAziende& scelta);
// --only-missing, with which the options of a range make no sense.
void aggiungiSoloMancanti(CLI::App& comando, SceltaAziende& scelta,
                          std::initializer_list<const char*> estremi);

// --jobs
void aggiungiLavori(CLI::App& comando, std::optional<std::int32_t>& lavori, const std::string& spiegazione);

}  // namespace cu
