#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "data/database.h"

namespace cu {

// The persons present in every archive made by this project, and the office of the second one.
inline constexpr std::int32_t kIdSede = 1;
inline constexpr std::int32_t kIdRappresentante = 2;
inline constexpr std::int32_t kRappresentanteLegale = 1;

// The data of an archive's company except names and payees.
struct DatiAzienda {
  std::int32_t idAzienda = 0;
  std::int32_t idFiliale = 0;
  std::int32_t idAnagrafica = 0;
  std::int32_t idRappresentante = 0;
  std::int32_t idCarica = 0;
  int primoAnno = 0;   // VAT periods, from this year
  int ultimoAnno = 0;  // to this one
};

// Company, branch, activity, VAT periods and configuration; the default branch of the three kinds of print.
void riempiAzienda(Connection& connessione, const DatiAzienda& dati);

// Foreign places in which payees of the invented companies live; the lists contain only Italian
// municipalities.
struct LocalitaEstera {
  std::int32_t id = 0;
  std::string_view nome;
  std::int32_t idNazione = 0;
};
std::vector<LocalitaEstera> localitaEstere();
void riempiLocalitaEstere(Connection& connessione);

}  // namespace cu
