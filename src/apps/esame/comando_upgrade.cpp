#include <iostream>

#include "apps/comune/codici_uscita.h"
#include "apps/esame/comandi_esame.h"
#include "apps/esame/operazioni_registro.h"

namespace cu {

int comandoUpgrade(const OpzioniDatabase& opzioni) {
  const auto database = databaseIndicato(opzioni);
  if (!database) return kUsoSbagliato;
  const std::size_t create = aggiungiTabelle(*database);
  if (create == 0) {
    std::cout << "Il database ha già le tabelle per seguire gli invii e le importazioni.\n";
  } else {
    std::cout << "Tabelle per seguire gli invii e le importazioni aggiunte: " << create << ".\n";
  }
  return kRiuscito;
}

}  // namespace cu
