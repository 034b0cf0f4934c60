#include <iostream>

#include "apps/comune/codici_uscita.h"
#include "apps/esame/comandi_esame.h"
#include "apps/esame/operazioni_registro.h"

namespace cu {

int comandoUpgrade(const OpzioniUpgrade& opzioni) {
  const auto database = databaseIndicato(opzioni.database);
  if (!database) return kUsoSbagliato;
  if (opzioni.codici) {
    const auto aggiunti = aggiungiCodici(*database);
    if (!aggiunti) {
      std::cerr << aggiunti.refusals.front().text << '\n';
      return kRifiutato;
    }
    if (*aggiunti == 0) {
      std::cout << "Il database ha già le causali e i codici dei moduli dal 2019.\n";
    } else {
      std::cout << "Causali e codici dei moduli dal 2019 aggiunti: " << *aggiunti << ".\n";
    }
  }
  const std::size_t create = aggiungiTabelle(*database);
  if (create == 0) {
    std::cout << "Il database ha già le tabelle per seguire gli invii e le importazioni.\n";
  } else {
    std::cout << "Tabelle per seguire gli invii e le importazioni aggiunte: " << create << ".\n";
  }
  return kRiuscito;
}

}  // namespace cu
