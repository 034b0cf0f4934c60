#pragma once

#include "system/posto_support.h"

namespace cu::test {

// Leaves in the place's synthetic accounts only what every published form can write, and lets it be written
// in these forms, on a day when each of them is out.
inline void usaModelliPubblicati(Posto& posto) {
  const auto database = posto.lettore();
  for (const char* istruzione :
       {"UPDATE ContoIndividuale SET SommeNonSoggette = 0, QuotaProvvigioniNonSoggette = 0,"
        " ContributoPrevidenziale = 0, RitenutaPrevidenziale13 = 0",
        "DELETE FROM ContoIndividuale WHERE IDCausalePagamento IN"
        " (SELECT IDCausalePagamento FROM CausalePagamento WHERE Codice LIKE 'N%')",
        "DELETE FROM ContoIndividualeDatiAggiuntivi", "DELETE FROM ModuloXContoIndividuale",
        "UPDATE Percipiente SET NonResidenteSchumacker = 0"}) {
    database->esegui(istruzione);
  }
  posto.imposta("session.today", "2027-03-05T10:30:00");
  posto.imposta("telematic.forms", "\"published\"");
}

}  // namespace cu::test
