#include <filesystem>
#include <iostream>

#include "apps/comune/codici_uscita.h"
#include "apps/comune/connessioni.h"
#include "apps/esame/comandi_esame.h"
#include "archive/schema.h"
#include "data/transazione.h"

namespace cu {

int comandoUpgrade(const OpzioniUpgrade& opzioni) {
  auto database = analizzaIndirizzo(opzioni.database, std::filesystem::current_path().string());
  if (!database) {
    std::cerr << kIndirizzoAtteso;
    return kUsoSbagliato;
  }
  database->variabilePassword = opzioni.variabilePassword;
  database->cifrata = !opzioni.inChiaro;
  const auto connessione = apriConnessione(*database);
  Transazione transazione(*connessione);
  const std::size_t create = creaRegistro(*connessione);
  transazione.conferma();
  if (create == 0) {
    std::cout << "Il database ha già le tabelle per seguire gli invii.\n";
  } else {
    std::cout << "Tabelle per seguire gli invii aggiunte: " << create << ".\n";
  }
  return kRiuscito;
}

}  // namespace cu
