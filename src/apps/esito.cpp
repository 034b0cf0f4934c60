#include "esito.h"

#include <iostream>

namespace cu {

std::string righeDiTesto(const std::string& testo) {
  std::string risultato;
  for (const char c : testo) {
    if (c != '\r') risultato += c;
  }
  while (!risultato.empty() && risultato.back() == '\n') risultato.pop_back();
  return risultato;
}

void scriviMessaggi(const Walker& walker) {
  for (const std::string& messaggio : walker.messages) std::cerr << righeDiTesto(messaggio) << '\n';
}

void scriviStampe(const Walker& walker, const Profilo& profilo) {
  const bool registrate = profilo.stampa == Profilo::MotoreStampa::Registro;
  for (const PrintNote& stampa : walker.prints) {
    if (!stampa.written && !registrate) continue;
    std::cout << (stampa.written ? "Stampa: " : "Stampa registrata, non impaginata: ") << stampa.file << " ("
              << stampa.report << ")\n";
  }
}

}  // namespace cu
