#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace cu::modello {

// Values of the form derived from other columns, the same for the file, the editor and the print.

// The payment reasons that require the year of the payment even without an advance.
constexpr bool chiedeAnno(std::string_view causale) {
  return causale == "G" || causale == "H" || causale == "I";
}
// The payment reason with regional and municipal surcharges.
constexpr bool haAddizionali(std::string_view causale) { return causale == "N"; }
// The payment reasons whose sums not subject to withholding are refunded expenses.
constexpr bool rimborsaSpese(std::string_view causale) { return causale == "M" || causale == "O"; }

// The index of the company's code at a fund among a box's other columns: two funds assign a code of the
// payer. 0 where the fund assigns none; that column contains the replacement written to the file.
constexpr std::size_t fontePressoEnte(std::int64_t ente) {
  constexpr std::int64_t kEnpam = 1;
  constexpr std::int64_t kEnpapi = 2;
  return ente == kEnpam ? 1 : ente == kEnpapi ? 2 : 0;
}

// The gross amount is the sum of these columns of the line and of one column of each further module. The
// order is that of the editor, which sums in double.
inline constexpr std::string_view kLordo = "AmmontareLordo";
inline constexpr std::array<std::string_view, 4> kAddendiLordo = {
    "SommeRegimeConvenzionale", "SommeNonSoggetteARitenuta", "Imponibile", "QuotaProvvigioniNonSoggette"};
inline constexpr std::string_view kAddendoLordoDelModulo = "SommeNonSoggette";

// The corresponding columns of the account, from which a line is loaded.
inline constexpr std::array<std::string_view, 3> kAddendiLordoDelConto = {
    "OnorarioProvvigioni", "SommeNonSoggette", "SommeNonSoggetteRegConv"};

}  // namespace cu::modello
