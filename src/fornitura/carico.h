#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "base/result.h"
#include "fornitura/intorno.h"
#include "host/filtri.h"
#include "host/modi.h"
#include "worklist/compensi.h"

// Loading: which lines a run is about. Errors of the database rise as they are.
namespace cu::fornitura {

// The years of the accounts, newest first; with `conModulo` those alone that have a form of their own or a
// newer one.
std::string fnOrigineAnni(std::int32_t idAzienda, bool conModulo);

// Refused without a year in the modes that need one.
Result<> controllaFiltri(ModoCorsa modo, const Filtri& filtri);

// The condition that selects the accounts to be rebuilt: " AND CodicePercipiente >= '...'", "" for all.
std::string fnFiltroConti(const Filtri& filtri, const Conversioni& utilita);

// Sums the payments into the accounts of the filters' year anew; the number of accounts changed.
Result<std::size_t> ricostruisci(const Intorno& intorno, const Filtri& filtri);

// Fills the user's work table; the number of lines.
Result<std::size_t> carica(const Intorno& intorno, Compensi& compensi, const Filtri& filtri);

// The first name of a person, as a bound of the range is looked up; "" where it cannot be read.
std::string FindName(const Intorno& intorno, std::int64_t nID);

}  // namespace cu::fornitura
