#pragma once

#include <algorithm>
#include <array>
#include <string_view>

#include "modello/coerenza.h"
#include "modello/modello.h"

namespace cu::test {

// The form as a future year may have it behind that of 2017: one more box in every module, one less, and its
// own code for sums not subject to withholding. The years between have the form of 2017.
inline constexpr std::int32_t kAnnoNuovo = 2031;
inline constexpr std::string_view kColonnaNuova = "NuovaIndennita";
inline constexpr std::int32_t kNumeroNuovo = 140;
inline constexpr std::string_view kColonnaTolta = "AltreIndennitaRitenuteOperate2";
inline constexpr std::int32_t kNumeroTolto = 138;

constexpr bool nota2017(const modello::Campo& campo) {
  return campo.anni.primo <= modello::kModello.noti.ultimo;
}

inline constexpr auto kCampi2031 = [] {
  constexpr auto kNoti = std::count_if(modello::kCampi.begin(), modello::kCampi.end(), nota2017);
  std::array<modello::Campo, kNoti + 1> campi{};
  std::size_t quanti = 0;
  for (const modello::Campo& campo : modello::kCampi) {
    if (!nota2017(campo)) continue;
    campi.at(quanti) = campo;
    modello::Anni& anni = campi.at(quanti++).anni;
    if (anni.ultimo > modello::kModello.noti.ultimo) anni.ultimo = modello::kTutti.ultimo;
    if (campo.colonna == kColonnaTolta) anni.ultimo = kAnnoNuovo - 1;
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
