#include <iostream>

#include "apps/comune/codici_uscita.h"
#include "apps/importa/database_importa.h"
#include "apps/importazione/esecuzione.h"
#include "apps/importazione/resoconto.h"

namespace cu {

int comandoUndo(const OpzioniUndo& opzioni) {
  try {
    DatabaseSuite database = apriDatabase(opzioni.database);
    const auto annullato = annullaLotto(database, opzioni.lotto, !opzioni.applica);
    for (const Finding& rifiuto : annullato.refusals) std::cerr << rifiuto.text << '\n';
    if (!annullato) {
      std::cout << "Importazione " << opzioni.lotto << ": non si può annullare. Non è stato scritto nulla.\n";
      return kRifiutato;
    }
    std::cout << (opzioni.applica ? "Importazione " : "Prova: importazione ") << opzioni.lotto
              << (opzioni.applica ? " annullata: " : " da annullare: ") << dettoAnnullato(*annullato) << '.';
    std::cout << (opzioni.applica ? "\n" : " Non è stato scritto nulla.\n");
    return kRiuscito;
  } catch (const UsoSbagliato& errore) {
    return rifiutaUso(errore);
  }
}

}  // namespace cu
