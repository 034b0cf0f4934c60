#include "intake/testo_cella.h"

#include <algorithm>
#include <array>

#include "base/ascii.h"
#include "base/text.h"
#include "base/windows1252.h"
#include "intake/colonne.h"

namespace cu::intake {
namespace {

// The bytes of the blank at `i`; 0 for any other character.
std::size_t bianco(std::string_view testo, std::size_t i) {
  const char c = testo[i];
  if (c == ' ' || c == '\t' || c == '\r' || c == '\n') return 1;
  return testo.substr(i, 2) == "\xc2\xa0" ? 2 : 0;
}

std::string_view senzaEstremi(std::string_view testo) {
  while (!testo.empty()) {
    const std::size_t lungo = bianco(testo, 0);
    if (lungo == 0) break;
    testo.remove_prefix(lungo);
  }
  while (!testo.empty()) {
    if (bianco(testo, testo.size() - 1) == 1) {
      testo.remove_suffix(1);
    } else if (testo.ends_with("\xc2\xa0")) {
      testo.remove_suffix(2);
    } else {
      break;
    }
  }
  return testo;
}

}  // namespace

std::string_view pulito(std::string_view testo, std::string& appoggio) {
  testo = senzaEstremi(testo);
  bool buono = true;
  for (std::size_t i = 0; i < testo.size() && buono; ++i) {
    const std::size_t lungo = bianco(testo, i);
    if (lungo > 0) buono = testo[i] == ' ' && bianco(testo, i + 1) == 0;
  }
  if (buono) return testo;
  appoggio.clear();
  for (std::size_t i = 0; i < testo.size();) {
    const std::size_t lungo = bianco(testo, i);
    if (lungo == 0) {
      appoggio += testo[i++];
      continue;
    }
    if (appoggio.back() != ' ') appoggio += ' ';
    i += lungo;
  }
  return appoggio;
}

bool conControlli(std::string_view testo) {
  for (std::size_t i = 0; i < testo.size(); ++i) {
    const auto c = static_cast<unsigned char>(testo[i]);
    if (c < 0x20 || c == 0x7F) return true;
    // U+0080 to U+009F.
    if (c == 0xC2 && i + 1 < testo.size() && static_cast<unsigned char>(testo[i + 1]) < 0xA0) return true;
  }
  return false;
}

std::string_view fuoriDa1252(std::string_view testo) {
  if (soloAscii(testo)) return {};
  for (std::size_t i = 0; i < testo.size();) {
    const std::size_t inizio = i;
    nextCodePoint(testo, i);
    const std::string_view carattere = testo.substr(inizio, i - inizio);
    std::array<char, 4> byte{};
    a1252(carattere, byte.data());
    if (byte[0] == '?' && carattere != "?") return carattere;
  }
  return {};
}

bool cifrePerse(std::string_view testo) {
  std::size_t i = 0;
  const auto cifre = [&] {
    const std::size_t prima = i;
    while (i < testo.size() && isDigit(testo[i])) ++i;
    return i - prima;
  };
  if (cifre() != 1) return false;
  if (i < testo.size() && (testo[i] == ',' || testo[i] == '.')) {
    ++i;
    if (cifre() == 0) return false;
  }
  if (i >= testo.size() || upperAscii(testo[i]) != 'E') return false;
  ++i;
  if (i >= testo.size() || testo[i] != '+') return false;
  ++i;
  return cifre() == 2 && i == testo.size();
}

bool erroreDiFoglio(std::string_view testo) {
  if (!testo.starts_with('#')) return false;
  constexpr auto kErrori = std::to_array<std::string_view>(
      {"#N/A", "#N/D", "#DIV/0!", "#REF!", "#RIF!", "#VALUE!", "#VALORE!", "#NAME?", "#NOME?", "#NUM!",
       "#NULL!", "#NULLO!", "#SPILL!", "#CALC!", "#GETTING_DATA"});
  const std::string grande = upperAscii(testo);
  return std::find(kErrori.begin(), kErrori.end(), grande) != kErrori.end() ||
         testo.find_first_not_of('#') == std::string_view::npos;
}

std::optional<DifettoTesto> difettoDelTesto(std::string_view testo) {
  if (conControlli(testo)) return DifettoTesto{Codice::V10, "il testo ha caratteri di controllo", true};
  if (testo.size() > kMassimoCaratteri && codePoints(testo) > kMassimoCaratteri) {
    return DifettoTesto{Codice::V06,
                        "il testo ha " + fromInteger(static_cast<std::int64_t>(codePoints(testo))) +
                            " caratteri, al più " + fromInteger(kMassimoCaratteri),
                        true};
  }
  if (const std::string_view fuori = fuoriDa1252(testo); !fuori.empty()) {
    return DifettoTesto{
        Codice::V07,
        "il carattere " + std::string(fuori) + " nel file telematico diventa un punto interrogativo", false};
  }
  return std::nullopt;
}

std::string mostrato(std::string_view testo) {
  constexpr std::size_t kMassimo = 60;
  const std::string_view inizio = leftCodePoints(testo, kMassimo);
  std::string esito(inizio);
  for (char& c : esito) {
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = ' ';
  }
  return inizio.size() < testo.size() ? esito + "…" : esito;
}

}  // namespace cu::intake
