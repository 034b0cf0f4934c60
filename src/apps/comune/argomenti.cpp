#include "apps/comune/argomenti.h"

#include <algorithm>

#include "base/ascii.h"
#include "base/text.h"

namespace cu {
namespace {

constexpr std::size_t kCifreAnno = 4;

std::optional<int> anno(std::string_view testo) {
  const bool cifre = std::all_of(testo.begin(), testo.end(), isDigit);
  if (testo.size() != kCifreAnno || !cifre) return {};
  return static_cast<int>(leadingInteger(testo));
}

}  // namespace

std::optional<Date> leggiData(std::string_view testo) {
  constexpr std::size_t kLunghezza = 10;
  if (testo.size() != kLunghezza) return {};
  return testo[2] == '/' ? Date::parseItalian(testo) : Date::parseIso(testo);
}

std::optional<std::pair<int, int>> leggiAnni(std::string_view testo) {
  const std::size_t trattino = testo.find('-');
  const auto primo = anno(testo.substr(0, trattino));
  const auto ultimo = trattino == std::string_view::npos ? primo : anno(testo.substr(trattino + 1));
  if (!primo || !ultimo || *ultimo < *primo) return {};
  return std::pair(*primo, *ultimo);
}

}  // namespace cu
