#include <filesystem>
#include <iostream>

#include "apps/comune/codici_uscita.h"
#include "apps/comune/connessioni.h"
#include "apps/esame/comandi_esame.h"
#include "apps/esame/operazioni_registro.h"

namespace cu {

int comandoUpgrade(const OpzioniUpgrade& opzioni) {
  auto database = analizzaIndirizzo(opzioni.database, std::filesystem::current_path().string());
  if (!database) {
    std::cerr << kIndirizzoAtteso;
    return kUsoSbagliato;
  }
  database->variabilePassword = opzioni.variabilePassword;
  database->cifrata = !opzioni.inChiaro;
  const std::size_t create = aggiungiTabelle(*database);
  if (create == 0) {
    std::cout << "Il database ha già le tabelle per seguire gli invii.\n";
  } else {
    std::cout << "Tabelle per seguire gli invii aggiunte: " << create << ".\n";
  }
  return kRiuscito;
}

}  // namespace cu
