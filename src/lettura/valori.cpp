#include "lettura/valori.h"

#include <algorithm>

#include "base/ascii.h"
#include "base/windows1252.h"

namespace cu::lettura {

std::optional<Date> giorno(std::string_view ggmmaaaa) {
  if (ggmmaaaa.size() != 8 || !std::all_of(ggmmaaaa.begin(), ggmmaaaa.end(), isDigit)) return std::nullopt;
  const auto parte = [&](std::size_t da, std::size_t quante) {
    return static_cast<int>(numero(ggmmaaaa.substr(da, quante)));
  };
  return Date::fromYmd(parte(4, 4), parte(2, 2), parte(0, 2));
}

std::optional<std::int64_t> centesimi(std::string_view testo, bool conSegno) {
  const bool negativo = conSegno && !testo.empty() && testo.front() == '-';
  if (negativo) testo.remove_prefix(1);
  constexpr std::size_t kCifre = 16;
  if (testo.size() < 4 || testo.size() > kCifre || testo[testo.size() - 3] != ',') return std::nullopt;
  std::int64_t valore = 0;
  for (std::size_t i = 0; i < testo.size(); ++i) {
    if (i == testo.size() - 3) continue;
    if (!isDigit(testo[i])) return std::nullopt;
    valore = valore * 10 + (testo[i] - '0');
  }
  return negativo ? -valore : valore;
}

std::int64_t numero(std::string_view cifre) {
  constexpr std::size_t kCifre = 18;
  if (cifre.empty() || cifre.size() > kCifre) return -1;
  std::int64_t valore = 0;
  for (const char c : cifre) {
    if (!isDigit(c)) return -1;
    valore = valore * 10 + (c - '0');
  }
  return valore;
}

bool haMinuscole(std::string_view testo) {
  return std::any_of(testo.begin(), testo.end(), [](char c) { return maiuscola1252(c) != c; });
}

std::string euro(std::int64_t centesimi) {
  const std::int64_t assoluto = centesimi < 0 ? -centesimi : centesimi;
  std::string testo = std::to_string(assoluto / 100);
  for (std::size_t posto = testo.size(); posto > 3; posto -= 3) testo.insert(posto - 3, ".");
  const auto decimali = static_cast<int>(assoluto % 100);
  testo += ',';
  testo += static_cast<char>('0' + decimali / 10);
  testo += static_cast<char>('0' + decimali % 10);
  return centesimi < 0 ? "-" + testo : testo;
}

}  // namespace cu::lettura
