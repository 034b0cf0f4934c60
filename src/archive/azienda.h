#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "schede/schede.h"
#include "schede/scrittura.h"

namespace cu {

// The persons present in every archive made by this project, and the office of the second one.
inline constexpr std::int32_t kIdSede = 1;
inline constexpr std::int32_t kIdRappresentante = 2;
inline constexpr std::int32_t kRappresentanteLegale = 1;

// What every invented company has in common: activity, office of the representative, and VAT periods from the
// year before the first one to the second after the last one.
schede::SchedaAzienda aziendaInventata(int primoAnno, int ultimoAnno);

// Foreign places in which payees of the invented companies live; the lists contain only Italian
// municipalities.
struct LocalitaEstera {
  std::int32_t id = 0;
  std::string_view nome;
  std::int32_t idNazione = 0;
};
std::vector<LocalitaEstera> localitaEstere();
void riempiLocalitaEstere(schede::Scrittura& scrittura);

}  // namespace cu
