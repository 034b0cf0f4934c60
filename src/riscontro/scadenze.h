#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "base/date.h"

// When the certificates of a year are due at the authority.
namespace cu::riscontro {

// A row of data/liste/scadenze.tsv.
struct Scadenza {
  std::int32_t anno = 0;             // of the payments
  bool alPercipiente = false;        // the copy of the payee; otherwise the authority's
  std::vector<std::string> causali;  // that have this date of their own; none: it holds for the others
  Date entro;
  std::string condizione;  // "se ..."; "" where it always holds
  std::string fonte;
};
// In the order of the file; years without a known date are missing.
std::vector<Scadenza> scadenze();

// A date, and the certificates for which it may hold.
struct Termine {
  Date entro;
  std::string condizione;
  std::string fonte;
  std::vector<std::string> causali;
  std::size_t certificazioni = 0;
};

struct Termini {
  std::vector<Termine> tutti;      // by date
  std::size_t inRitardo = 0;       // certificates all of whose dates are past
  std::size_t forseInRitardo = 0;  // those of which a later date depends on its condition
};
// What is due of a year, by reason, on a day; the last day of a date is not late.
Termini termini(const std::vector<Scadenza>& scadenze, std::int32_t anno,
                const std::map<std::string, std::size_t>& daInviare, Date oggi);

}  // namespace cu::riscontro
