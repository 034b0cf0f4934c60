#pragma once

#include <optional>
#include <string>
#include <vector>

#include "suite/profilo.h"

namespace cu {

// The options with which a command works for many companies, each with the profile's settings.
struct OpzioniAziende {
  std::vector<std::string> richieste;  // fiscal codes or numbers; none for all companies
  std::vector<std::string> indirizzi;  // of databases; none for the profile's
  std::string variabilePassword;
  bool inChiaro = false;
  bool soloMancanti = false;  // without those whose certificates are on record
};

// The databases that the options name. Nothing where an address is none, which is reported on standard error.
std::optional<std::vector<Profilo::Database>> databaseIndicati(const OpzioniAziende& opzioni,
                                                               const Profilo& profilo);

}  // namespace cu
