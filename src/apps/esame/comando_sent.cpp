#include <iostream>

#include "apps/comune/codici_uscita.h"
#include "apps/comune/file_letto.h"
#include "apps/comune/registro_programma.h"
#include "apps/esame/comandi_esame.h"
#include "apps/esame/operazioni_registro.h"

namespace cu {

int comandoSent(const OpzioniSent& opzioni) {
  const Profilo profilo = leggiProfiloConRegistro(opzioni.profilo);
  try {
    const EsitoInvio esito =
        segnaInviato(profilo, opzioni.file, opzioni.giorno, [](const std::string& avviso) {
          std::cerr << "Attenzione: " << avviso << '\n';
          return true;
        });
    (esito.riuscito ? std::cout : std::cerr) << esito.testo << '\n';
    return esito.riuscito ? kRiuscito : kRifiutato;
  } catch (const FileIlleggibile& errore) {
    std::cerr << errore.what() << '\n';
    return kUsoSbagliato;
  }
}

}  // namespace cu
