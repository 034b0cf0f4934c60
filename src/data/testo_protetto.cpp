#include "data/testo_protetto.h"

#include <algorithm>

namespace cu {
namespace {

constexpr std::string_view kCifreProtette = "0123456789ABCDEF";

}  // namespace

void appendProtetto(std::string& testo, std::string_view valore) {
  const auto daProteggere = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == '\\'; };
  for (;;) {
    const auto* const trovato = std::find_if(valore.begin(), valore.end(), daProteggere);
    const auto prima = static_cast<std::size_t>(trovato - valore.begin());
    testo.append(valore.substr(0, prima));
    if (prima == valore.size()) return;
    const auto byte = static_cast<unsigned char>(*trovato);
    testo += {'\\', kCifreProtette[byte / 16], kCifreProtette[byte % 16]};
    valore.remove_prefix(prima + 1);
  }
}

std::string senzaProtezione(std::string_view testo) {
  const auto cifra = [](char c) { return static_cast<int>(kCifreProtette.find(c)); };
  std::string valore;
  for (std::size_t i = 0; i < testo.size(); ++i) {
    if (testo[i] == '\\' && i + 2 < testo.size()) {
      valore += static_cast<char>(cifra(testo[i + 1]) * 16 + cifra(testo[i + 2]));
      i += 2;
    } else {
      valore += testo[i];
    }
  }
  return valore;
}

}  // namespace cu
