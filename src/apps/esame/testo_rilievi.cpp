#include "apps/esame/testo_rilievi.h"

#include <string_view>

#include "base/text.h"

namespace cu {
namespace {

std::string quanti(std::size_t numero, std::string_view uno, std::string_view piu) {
  if (numero == 0) return "nessun " + std::string(uno);
  return fromInteger(static_cast<std::int64_t>(numero)) + " " + std::string(numero == 1 ? uno : piu);
}

}  // namespace

std::string dettoRilievo(const std::string& file, const lettura::Rilievo& rilievo) {
  const lettura::VoceRegola& voce = lettura::voce(rilievo.regola);
  std::string testo =
      file + ", riga " + fromInteger(rilievo.riga) + ", posizione " + fromInteger(rilievo.posizione);
  if (!rilievo.campo.empty()) testo += ", " + rilievo.campo;
  testo += ": " + rilievo.testo + " (" + std::string(voce.codice);
  return testo + (voce.gravita == lettura::Gravita::Errore ? ", errore)" : ", avviso)");
}

void scriviRilievi(const std::string& file, const lettura::Rilievi& rilievi, std::ostream& uscita) {
  for (const lettura::Rilievo& rilievo : rilievi.ordinati()) uscita << dettoRilievo(file, rilievo) << '\n';
  for (const lettura::VoceRegola& voce : lettura::kVociRegole) {
    const std::size_t tutti = rilievi.quanti(voce.regola);
    if (tutti <= lettura::Rilievi::kMassimoPerRegola) continue;
    uscita << file << ": altri " << tutti - lettura::Rilievi::kMassimoPerRegola << " casi di " << voce.codice
           << " (" << voce.titolo << ")\n";
  }
}

std::string dettoConteggio(const lettura::Rilievi& rilievi) {
  return quanti(rilievi.errori(), "errore", "errori") + ", " + quanti(rilievi.avvisi(), "avviso", "avvisi");
}

}  // namespace cu
