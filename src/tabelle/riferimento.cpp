#include "tabelle/riferimento.h"

#include "base/ascii.h"

namespace cu::tabelle {
namespace {

constexpr std::size_t kRigheFoglio = 1048576;
constexpr std::size_t kColonneFoglio = 16384;

}  // namespace

std::optional<Riferimento> analizzaRiferimento(std::string_view testo) {
  Riferimento riferimento;
  std::size_t i = 0;
  for (; i < testo.size() && isLetter(testo[i]); ++i) {
    riferimento.colonna = riferimento.colonna * 26 + static_cast<std::size_t>(upperAscii(testo[i]) - 'A' + 1);
    if (riferimento.colonna > kColonneFoglio) return std::nullopt;
  }
  for (; i < testo.size() && isDigit(testo[i]); ++i) {
    riferimento.riga = riferimento.riga * 10 + static_cast<std::size_t>(testo[i] - '0');
    if (riferimento.riga > kRigheFoglio) return std::nullopt;
  }
  if (i < testo.size() || riferimento.colonna == 0 || riferimento.riga == 0) return std::nullopt;
  return riferimento;
}

std::optional<Unione> analizzaUnione(std::string_view testo) {
  const std::size_t due = testo.find(':');
  if (due == std::string_view::npos) return std::nullopt;
  const auto prima = analizzaRiferimento(testo.substr(0, due));
  const auto ultima = analizzaRiferimento(testo.substr(due + 1));
  if (!prima || !ultima || ultima->riga < prima->riga || ultima->colonna < prima->colonna) {
    return std::nullopt;
  }
  return Unione{*prima, *ultima};
}

bool svuotaUnite(std::vector<RigaTabella>& righe, const std::vector<Unione>& unioni) {
  std::size_t larghezza = 0;
  for (const RigaTabella& riga : righe) larghezza = std::max(larghezza, riga.celle.size());
  std::size_t resto = righe.size() * larghezza;
  for (const Unione& unione : unioni) {
    if (unione.prima.colonna > larghezza) continue;
    auto riga =
        std::lower_bound(righe.begin(), righe.end(), unione.prima.riga,
                         [](const RigaTabella& una, std::size_t numero) { return una.numero < numero; });
    for (; riga != righe.end() && riga->numero <= unione.ultima.riga; ++riga) {
      const std::size_t fine = std::min(unione.ultima.colonna, larghezza);
      const std::size_t celle = fine - unione.prima.colonna + 1;
      if (celle > resto) return false;
      resto -= celle;
      std::size_t colonna = unione.prima.colonna - 1;
      if (riga->numero == unione.prima.riga) ++colonna;
      for (; colonna < std::min(fine, riga->celle.size()); ++colonna) riga->celle[colonna] = {};
    }
  }
  return true;
}

}  // namespace cu::tabelle
