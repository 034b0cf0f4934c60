#include <iostream>

#include "apps/comune/codici_uscita.h"
#include "apps/comune/file_letto.h"
#include "apps/esame/impronta.h"
#include "apps/esame/comandi_esame.h"
#include "apps/esame/registro_del_profilo.h"
#include "data/transazione.h"
#include "suite/orologio.h"

namespace cu {

int comandoSent(const OpzioniSent& opzioni) {
  const Profilo profilo = leggiProfilo(opzioni.profilo);
  try {
    const std::string impronta = improntaFile(opzioni.file);
    RegistroDelProfilo registro(profilo);
    const auto invio = registro->cerca(impronta);
    if (!invio || invio->idAzienda != profilo.sessione.azienda) {
      std::cerr << opzioni.file
                << ": non è fra i file scritti per questa azienda, o è cambiato da allora. Non è stato "
                   "segnato nulla.\n";
      return kRifiutato;
    }
    if (!invio->dataInvio.empty()) {
      std::cout << "Invio " << invio->id << " (" << invio->nome << "): già segnato come inviato il "
                << Date::parseIso(invio->dataInvio).value_or(Date()).toItalian() << ".\n";
      return kRiuscito;
    }
    const Date giorno = opzioni.giorno.value_or(orologio(profilo)->today());
    Transazione transazione(registro->connessione());
    registro->segnaInviato(invio->id, giorno);
    transazione.conferma();
    std::cout << "Invio " << invio->id << " (" << invio->nome << "): segnato come inviato il "
              << giorno.toItalian() << ", certificazioni " << invio->certificazioni << ".\n";
    return kRiuscito;
  } catch (const FileIlleggibile& errore) {
    std::cerr << errore.what() << '\n';
    return kUsoSbagliato;
  }
}

}  // namespace cu
