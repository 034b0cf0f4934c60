#include <algorithm>
#include <iostream>

#include "apps/comune/connessioni.h"
#include "apps/comune/tavola.h"
#include "base/text.h"
#include "comandi.h"

namespace cu {

int comandoCheck(const OpzioniDatabase& opzioni) {
  const auto database = databaseIndicato(opzioni);
  if (!database) return kUsoSbagliato;
  std::vector<std::vector<std::string>> tavola = {{"Oggetto", "Nome", "Occorre", "Stato"}};
  std::int64_t mancanti = 0;
  for (VoceControllo& voce : controllaDatabase(*database)) {
    if (voce.manca) ++mancanti;
    tavola.push_back({std::move(voce.oggetto), std::move(voce.nome), std::move(voce.occorre),
                      (voce.manca ? "* " : "  ") + voce.stato});
  }
  stampaTavola(tavola, std::cout);
  if (mancanti == 0) {
    std::cout << "Il database ha tutto quello che occorre.\n";
    return kRiuscito;
  }
  std::cout << std::flush;
  std::cerr << (mancanti == 1 ? std::string("Una voce non va") : fromInteger(mancanti) + " voci non vanno")
            << ": sono segnate con un asterisco.\n";
  return kRifiutato;
}

}  // namespace cu
