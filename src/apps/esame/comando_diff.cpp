#include <iostream>

#include "apps/comune/codici_uscita.h"
#include "apps/comune/file_letto.h"
#include "apps/esame/comandi_esame.h"
#include "apps/esame/confronti.h"
#include "apps/esame/json_confronto.h"

namespace cu {

int comandoDiff(const OpzioniDiff& opzioni) {
  constexpr ParoleConfronto kParole = {"nel vecchio", "nel nuovo"};
  constexpr ParoleEsiti kEsiti = {"changed", "only in old", "only in new"};
  constexpr ParoleEsiti kDetti = {"cambiata", "solo nel vecchio", "solo nel nuovo"};
  try {
    FileLetto vecchio(opzioni.vecchio);
    FileLetto nuovo(opzioni.nuovo);
    ListaConfronto lista(opzioni.json);
    confrontaFile(vecchio, nuovo, [&](const Coppia& coppia) {
      lista.aggiungi(confrontata(coppia, kEsiti), detto(coppia.esito, kDetti), kParole);
    });
    lista.fine("diverse");
    return lista.uguali() ? kRiuscito : kRifiutato;
  } catch (const FileIlleggibile& errore) {
    std::cerr << errore.what() << '\n';
    return kUsoSbagliato;
  }
}

}  // namespace cu
