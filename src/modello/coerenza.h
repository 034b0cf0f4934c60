#pragma once

#include "modello/modello.h"

namespace cu::modello {

// Whether both boxes exist in some year and module of a record.
constexpr bool insieme(const Campo& a, const Campo& b) {
  const bool moduli = a.moduli == b.moduli || a.moduli == Moduli::Ogni || b.moduli == Moduli::Ogni;
  return moduli && record(a.quadro) == record(b.quadro) && siToccano(a.anni, b.anni);
}

// The invariants of every form. Of two boxes that coexist, the second has the greater number or belongs to a
// later part: numbers are therefore unique, and the order of the rows is that of the cells. A column is
// written back in one way only. Each year has a code of sums not subject to withholding, also outside the
// known years, unless its form requires a chosen one.
constexpr bool coerente(const Modello& modello) {
  for (const Campo* primo = modello.campi.data(); primo != modello.campi.data() + modello.campi.size();
       ++primo) {
    if (primo->numero < 0 || primo->numero > 999) return false;
    for (const Campo* altro = modello.campi.data(); altro != primo; ++altro) {
      if (insieme(*altro, *primo) && (altro->quadro > primo->quadro ||
                                      (altro->quadro == primo->quadro && altro->numero >= primo->numero))) {
        return false;
      }
      if (altro->riscrittura != primo->riscrittura && inModulo(*altro, true) && inModulo(*primo, true) &&
          altro->colonna == primo->colonna) {
        return false;
      }
    }
  }
  for (std::int32_t anno = modello.noti.primo - 2; anno <= modello.noti.ultimo + 2; ++anno) {
    if (codiceNonSoggetti(anno, modello).empty() && !codiceDaScegliere(anno, modello)) return false;
  }
  return true;
}

}  // namespace cu::modello
