#pragma once

#include <array>
#include <string_view>

#include "modello/coerenza.h"
#include "modello/modello.h"

namespace cu::test {

// The form as a future year may have it: one more box in every module, one less, and its own code for sums
// not subject to withholding. The years between have the newest form.
inline constexpr std::int32_t kAnnoNuovo = 2031;
inline constexpr std::string_view kColonnaNuova = "NuovaIndennita";
inline constexpr std::int32_t kNumeroNuovo = 140;
inline constexpr std::string_view kColonnaTolta = "AltreIndennitaRitenuteOperate2";
inline constexpr std::int32_t kNumeroTolto = 138;

inline constexpr auto kCampi2031 = [] {
  std::array<modello::Campo, modello::kCampi.size() + 1> campi{};
  for (std::size_t i = 0; i < modello::kCampi.size(); ++i) {
    campi.at(i) = modello::kCampi.at(i);
    if (campi.at(i).colonna == kColonnaTolta) campi.at(i).anni.ultimo = kAnnoNuovo - 1;
  }
  campi.back() = {modello::Quadro::Autonomo,
                  kNumeroNuovo,
                  kColonnaNuova,
                  modello::Forma::Importo,
                  modello::Condizione::Sempre,
                  modello::dal(kAnnoNuovo),
                  modello::Moduli::Ogni,
                  modello::Riscrittura::Dati};
  return campi;
}();

inline constexpr auto kCodici2031 = std::to_array<modello::CodiceAnnuo>({{modello::finoAl(2015), "3"},
                                                                         {modello::nel(2016), "6"},
                                                                         {{2017, kAnnoNuovo - 1}, "7"},
                                                                         {modello::dal(kAnnoNuovo), "9"}});

inline constexpr modello::Modello kModello2031 = {kCampi2031, {2014, kAnnoNuovo}, kCodici2031};
static_assert(modello::coerente(kModello2031));

}  // namespace cu::test
