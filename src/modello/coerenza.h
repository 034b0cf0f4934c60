#pragma once

#include "modello/modello.h"

namespace cu::modello {

// In one year and module no box stands twice and codes grow, so that the order of the rows is that of the
// cells.
constexpr bool inOrdine(const Modello& modello, std::int32_t anno, bool primoModulo) {
  const Campo* ultimo = nullptr;
  for (const Campo& campo : modello.campi) {
    if (!vale(campo, anno, primoModulo)) continue;
    if (campo.numero < 0 || campo.numero > 999) return false;
    if (ultimo != nullptr && codice(campo) <= codice(*ultimo) &&
        record(campo.quadro) == record(ultimo->quadro)) {
      return false;
    }
    ultimo = &campo;
  }
  return true;
}

// What every form must be: ordered in each year, also beside the known ones, with one way of writing back for
// each column and a code for each year.
constexpr bool coerente(const Modello& modello) {
  for (std::int32_t anno = modello.noti.primo - 2; anno <= modello.noti.ultimo + 2; ++anno) {
    if (!inOrdine(modello, anno, true) || !inOrdine(modello, anno, false)) return false;
    if (codiceNonSoggetti(anno, modello).empty()) return false;
  }
  for (const Campo& campo : modello.campi) {
    for (const Campo& altro : modello.campi) {
      if (campo.colonna == altro.colonna && inModulo(campo, true) && inModulo(altro, true) &&
          campo.riscrittura != altro.riscrittura) {
        return false;
      }
    }
  }
  return true;
}
}  // namespace cu::modello
