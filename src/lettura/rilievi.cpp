#include "lettura/rilievi.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace cu::lettura {

void Rilievi::aggiungi(Rilievo rilievo) {
  const Regola regola = rilievo.regola;
  if (conserva(regola)) rilievi_.push_back(std::move(rilievo));
  conta(regola);
}

std::vector<Rilievo> Rilievi::ordinati() const {
  std::vector<Rilievo> ordinati = rilievi_;
  std::stable_sort(ordinati.begin(), ordinati.end(), [](const Rilievo& a, const Rilievo& b) {
    return std::tie(a.riga, a.posizione, a.regola) < std::tie(b.riga, b.posizione, b.regola);
  });
  return ordinati;
}

std::size_t Rilievi::somma(Gravita gravita) const {
  std::size_t somma = 0;
  for (const VoceRegola& voce : kVociRegole) {
    if (voce.gravita == gravita) somma += quanti(voce.regola);
  }
  return somma;
}

}  // namespace cu::lettura
