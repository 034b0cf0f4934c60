#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "base/result.h"
#include "fornitura/intorno.h"
#include "host/filtri.h"
#include "host/modi.h"
#include "worklist/compensi.h"

// Loading: selects the lines of a run. Database errors propagate unchanged.
namespace cu::fornitura {

// The years of the accounts, newest first; with `conModulo` only those that have their own form or a newer
// one.
std::string fnOrigineAnni(std::int32_t idAzienda, bool conModulo);

// Rejected without a year in the modes that require one.
Result<> controllaFiltri(ModoCorsa modo, const Filtri& filtri);

// The condition that selects the accounts to rebuild: " AND CodicePercipiente >= '...'", "" for all.
std::string fnFiltroConti(const Filtri& filtri, const Conversioni& utilita);

// Sums the payments again into the accounts of the filters' year; returns the number of accounts changed.
Result<std::size_t> ricostruisci(const Intorno& intorno, const Filtri& filtri);

// Fills the user's work table; returns the number of lines.
Result<std::size_t> carica(const Intorno& intorno, Compensi& compensi, const Filtri& filtri);

// The first name of a person, for a limit of the range; "" where it cannot be read.
std::string FindName(const Intorno& intorno, std::int64_t nID);

}  // namespace cu::fornitura
