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

void scriviRifiuti(const std::vector<Finding>& rifiuti, Terminale& terminale) {
  for (const Finding& rifiuto : rifiuti) {
    if (!rifiuto.text.empty()) terminale.messaggi.push_back(rifiuto.text);
  }
}

void scriviMessaggi(const Terminale& terminale) {
  for (const std::string& messaggio : terminale.messaggi) std::cerr << righeDiTesto(messaggio) << '\n';
}

void scriviStampe(const Terminale& terminale, const Profilo& profilo) {
  const bool registrate = profilo.stampa == Profilo::MotoreStampa::Registro;
  for (const PrintNote& stampa : terminale.stampe) {
    if (!stampa.written && !registrate) continue;
    std::cout << (stampa.written ? "Stampa: " : "Stampa registrata, non impaginata: ") << stampa.file << " ("
              << stampa.report << ")\n";
  }
}

}  // namespace cu
