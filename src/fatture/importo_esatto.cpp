#include "fatture/importo_esatto.h"

#include <cstddef>
#include <limits>

#include "base/ascii.h"
#include "base/error.h"

namespace cu::fatture {
namespace {

constexpr int kDecimali = 8;
constexpr std::int64_t kInUno = 100'000'000;
constexpr std::int64_t kInUnCentesimo = 1'000'000;
constexpr int kOverflow = 6;

}  // namespace

std::optional<ImportoEsatto> ImportoEsatto::leggi(std::string_view testo) {
  const bool negativo = testo.starts_with('-');
  if (negativo || testo.starts_with('+')) testo.remove_prefix(1);
  const std::size_t punto = testo.find('.');
  const std::string_view interi = testo.substr(0, punto);
  const std::string_view decimali =
      punto == std::string_view::npos ? std::string_view() : testo.substr(punto + 1);
  if (interi.empty() || decimali.size() > kDecimali || (punto != std::string_view::npos && decimali.empty()))
    return std::nullopt;
  constexpr std::int64_t kMassimo = std::numeric_limits<std::int64_t>::max() / kInUno - 1;
  std::int64_t intero = 0;
  for (const char c : interi) {
    if (!isDigit(c)) return std::nullopt;
    intero = intero * 10 + (c - '0');
    if (intero > kMassimo) return std::nullopt;
  }
  std::int64_t parte = 0;
  for (std::size_t i = 0; i < kDecimali; ++i) {
    const char c = i < decimali.size() ? decimali[i] : '0';
    if (!isDigit(c)) return std::nullopt;
    parte = parte * 10 + (c - '0');
  }
  ImportoEsatto esito;
  esito.unita_ = intero * kInUno + parte;
  if (negativo) esito.unita_ = -esito.unita_;
  return esito;
}

Decimal ImportoEsatto::arrotondato() const {
  std::int64_t centesimi = unita_ / kInUnCentesimo;
  const std::int64_t resto = unita_ % kInUnCentesimo;
  if (resto >= kInUnCentesimo / 2) ++centesimi;
  if (resto <= -kInUnCentesimo / 2) --centesimi;
  return Decimal::fromScaled(centesimi * 100);
}

ImportoEsatto operator+(ImportoEsatto a, ImportoEsatto b) {
  constexpr std::int64_t kMassimo = std::numeric_limits<std::int64_t>::max();
  if (b.unita_ > 0 ? a.unita_ > kMassimo - b.unita_ : a.unita_ < -kMassimo - b.unita_)
    throw Error(kOverflow, "Gli importi del documento superano il limite.");
  a.unita_ += b.unita_;
  return a;
}

}  // namespace cu::fatture
