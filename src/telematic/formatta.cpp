#include "telematic/formatta.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <system_error>

#include "base/ascii.h"

namespace cu::telematico {
namespace {

bool soloCifre(std::string_view testo) { return std::all_of(testo.begin(), testo.end(), isDigit); }

void aDestra(std::string_view testo, char riempimento, char* out, std::size_t width) {
  const std::size_t n = std::min(testo.size(), width);
  std::memset(out, riempimento, width - n);
  if (n > 0) std::memcpy(out + (width - n), testo.data(), n);
}

constexpr bool separatore(char c) {
  return c == ' ' || c == '-' || c == '/' || c == '\\' || c == '(' || c == ')' || c == '.' || c == '+';
}

}  // namespace

void formatta(std::string_view valore, char* out, std::size_t width) {
  if (!soloCifre(valore)) {
    aDestra(valore, ' ', out, width);
    return;
  }
  valore.remove_prefix(std::min(valore.find_first_not_of('0'), valore.size()));
  aDestra(valore, '0', out, width);
}

void formatta(std::int64_t valore, char* out, std::size_t width) {
  std::array<char, 24> cifre{};
  const auto end = std::to_chars(cifre.data(), cifre.data() + cifre.size(), valore).ptr;
  const std::string_view testo(cifre.data(), static_cast<std::size_t>(end - cifre.data()));
  if (valore >= 0) {
    aDestra(testo, '0', out, width);
    return;
  }
  std::string negativo(std::max(testo.size(), width + 1), '0');
  aDestra(testo.substr(1), '0', negativo.data(), negativo.size());
  negativo.front() = '-';
  std::memcpy(out, negativo.data(), width);
}

std::string fnFormatta(std::int64_t valore, std::string_view maschera) {
  std::string testo(maschera.size(), ' ');
  formatta(valore, testo.data(), testo.size());
  return testo;
}

std::string fnFormatta(std::string_view valore, std::string_view maschera) {
  std::string testo(maschera.size(), ' ');
  formatta(valore, testo.data(), testo.size());
  return testo;
}

void giornoMeseAnno(Date data, char* out) {
  formatta(data.day(), out, 2);
  formatta(data.month(), out + 2, 2);
  formatta(data.year(), out + 4, 4);
}

std::string giornoMeseAnno(Date data) {
  std::string testo(8, ' ');
  giornoMeseAnno(data, testo.data());
  return testo;
}

std::size_t togliSeparatori(std::string_view testo, char* out) {
  char* const begin = out;
  for (const char c : testo) {
    if (!separatore(c)) *out++ = c;
  }
  return static_cast<std::size_t>(out - begin);
}

std::string togliSeparatori(std::string_view testo) {
  std::string pulito(testo.size(), '\0');
  pulito.resize(togliSeparatori(testo, pulito.data()));
  return pulito;
}

bool numerico(std::string_view testo) {
  if (testo.empty()) return false;
  if (soloCifre(testo)) return true;
  // Only a decimal comma and an exponent remain possible after the separators have been removed.
  std::string conPunto(testo);
  if (conPunto.find('.') != std::string::npos) return false;
  std::replace(conPunto.begin(), conPunto.end(), ',', '.');
  if (!isDigit(conPunto.front()) && conPunto.front() != '.') return false;
  double numero = 0;
  const char* const end = conPunto.data() + conPunto.size();
  const auto letto = std::from_chars(conPunto.data(), end, numero);
  return letto.ec == std::errc() && letto.ptr == end;
}

}  // namespace cu::telematico
