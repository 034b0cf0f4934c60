#include <iostream>

#include "apps/comune/file_letto.h"
#include "apps/comune/registro_programma.h"
#include "apps/esame/operazioni_registro.h"
#include "comandi.h"
#include "esito.h"

namespace cu {

int comandoDiscard(const OpzioniDiscard& opzioni) {
  const Profilo profilo = leggiProfiloConRegistro(opzioni.profilo);
  Terminale terminale;
  terminale.passaAvvisi = opzioni.passaAvvisi;
  try {
    const EsitoInvio esito = togliDalRegistro(profilo, opzioni.file, [&terminale](const std::string& avviso) {
      return terminale.conferma(avviso);
    });
    scriviAvvisi(terminale);
    (esito.riuscito ? std::cout : std::cerr) << esito.testo << '\n';
    return esito.riuscito ? kRiuscito : kRifiutato;
  } catch (const FileIlleggibile& errore) {
    std::cerr << errore.what() << '\n';
    return kUsoSbagliato;
  }
}

}  // namespace cu
