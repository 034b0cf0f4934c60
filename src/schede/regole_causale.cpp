#include "schede/regole_causale.h"

#include <algorithm>
#include <array>

namespace cu::schede {
namespace {

constexpr auto kRegole = std::to_array<RegolaCausale>({
    {.causale = "A", .aliquota = 20},
    {.causale = "B", .aliquota = 20, .imponibile = 100, .altroImponibile = 75},
    {.causale = "E", .aliquota = 20, .imponibile = 100, .altroImponibile = 85},
    {.causale = "L", .aliquota = 20},
    {.causale = "L1", .aliquota = 20},
    {.causale = "M", .aliquota = 20},
    {.causale = "M1", .aliquota = 20},
    {.causale = "M2", .aliquota = 20},
    {.causale = "O", .aliquota = 20},
    {.causale = "O1", .aliquota = 20},
    {.causale = "Q", .aliquota = 23, .imponibile = 50, .altroImponibile = 20},
    {.causale = "R", .aliquota = 23, .imponibile = 50, .altroImponibile = 20},
    {.causale = "S", .aliquota = 23, .imponibile = 50, .altroImponibile = 20},
    {.causale = "T", .aliquota = 23, .imponibile = 50, .altroImponibile = 20},
    {.causale = "U", .aliquota = 23, .imponibile = 50, .altroImponibile = 20},
    {.causale = "V", .aliquota = 23, .imposta = true, .imponibile = 78},
    {.causale = "W", .aliquota = 4},
});

}  // namespace

std::optional<RegolaCausale> regolaDi(std::string_view causale, bool nonResidente) {
  if (causale.empty()) return std::nullopt;
  if (nonResidente) {
    constexpr int kAliquotaEstero = 30;
    return RegolaCausale{.causale = {}, .aliquota = kAliquotaEstero, .imposta = true};
  }
  const auto sua = std::find_if(kRegole.begin(), kRegole.end(),
                                [&](const RegolaCausale& una) { return una.causale == causale; });
  if (sua == kRegole.end()) return std::nullopt;
  return *sua;
}

}  // namespace cu::schede
