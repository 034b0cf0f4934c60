#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace cu::modello {

// The rows of the further modules of an account.
inline constexpr std::string_view kTabellaModuli = "ModuloXContoIndividuale";
inline constexpr std::string_view kIdModulo = "IDModuloXContoIndividuale";

// The key of a module's account: its four columns, in statement order.
struct ParteChiave {
  std::string_view colonna;
  std::int64_t valore = 0;
};
using ChiaveConto = std::array<ParteChiave, 4>;

// " WHERE Anno = 2016 AND ..."; each column is preceded by `prefisso`.
std::string fnDoveConto(const ChiaveConto& chiave, std::string_view prefisso = {});

// Selects the modules of an account with their codes of sums not subject to withholding. `colonne` and
// `legami` are appended to its select list and to its joins.
std::string fnSelectModuli(const ChiaveConto& chiave, std::string_view colonne = {},
                           std::string_view legami = {});

}  // namespace cu::modello
