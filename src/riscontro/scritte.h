#pragma once

#include <cstddef>

#include "host/conversioni.h"
#include "riscontro/conti.h"
#include "riscontro/registro.h"

namespace cu::riscontro {

// How many certificates the accounts of a year give, and how many of them are on record.
struct Scritte {
  std::size_t conti = 0;
  std::size_t scritte = 0;   // in a file of any state
  std::size_t inviate = 0;   // of these, in one that was sent
  std::size_t presso = 0;    // of these, sent and not rejected, annulled or replaced since
  std::size_t scartate = 0;  // of these, rejected and not written anew since
};
// Ordinary certificates only. Errors of the database rise as they are.
Scritte scritte(Registro& registro, const Esercizio& esercizio, const Conversioni& utilita);

}  // namespace cu::riscontro
