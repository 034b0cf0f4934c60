#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace cu::modello {

// The rows of the further modules of an account.
inline constexpr std::string_view kTabellaModuli = "ModuloXContoIndividuale";
inline constexpr std::string_view kIdModulo = "IDModuloXContoIndividuale";

// The account of a module: its four columns, in the order in which a statement names them.
struct ParteChiave {
  std::string_view colonna;
  std::int64_t valore = 0;
};
using ChiaveConto = std::array<ParteChiave, 4>;

// " WHERE Anno = 2016 AND ..."; each column behind `prefisso`.
std::string fnDoveConto(const ChiaveConto& chiave, std::string_view prefisso = {});

// The modules of an account with their codes of sums not subject to withholding. `colonne` and `legami` stand
// behind what the statement selects and joins by itself.
std::string fnSelectModuli(const ChiaveConto& chiave, std::string_view colonne = {},
                           std::string_view legami = {});

}  // namespace cu::modello
