#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "archive/casuale.h"
#include "archive/generatore_persone.h"

namespace cu {

// The eight amounts of an account or a payment, in cents.
struct ImportiConto {
  std::int64_t onorario = 0;
  std::int64_t quotaNonSoggetta = 0;
  std::int64_t nonSoggette = 0;
  std::int64_t regimeConvenzionale = 0;
  std::int64_t ritenutaAcconto = 0;
  std::int64_t ritenutaImposta = 0;
  std::int64_t contributo = 0;
  std::int64_t contributoPercipiente = 0;

  std::array<std::int64_t, 8> tutti() const {
    return {onorario,        quotaNonSoggetta, nonSoggette, regimeConvenzionale,
            ritenutaAcconto, ritenutaImposta,  contributo,  contributoPercipiente};
  }
  void aggiungi(const ImportiConto& altri);
};

// The usual payment reason of that kind of payee.
std::string_view causaleTipica(TipoPercipiente tipo, Casuale& caso);

// Invents one payment for that reason, with its withholding.
ImportiConto inventaCompenso(std::string_view causale, bool residente, Casuale& caso);

}  // namespace cu
