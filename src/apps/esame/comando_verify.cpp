#include <iostream>

#include "apps/comune/codici_uscita.h"
#include "apps/comune/connessioni.h"
#include "apps/comune/file_letto.h"
#include "apps/comune/registro_programma.h"
#include "apps/comune/terminale.h"
#include "apps/esame/comandi_esame.h"
#include "apps/esame/confronti.h"
#include "apps/esame/json_confronto.h"
#include "suite/utilita.h"

namespace cu {

int comandoVerify(const OpzioniVerify& opzioni) {
  constexpr ParoleConfronto kParole = {"nel file", "nei conti"};
  constexpr ParoleEsiti kEsiti = {"different", "missing in the accounts", "missing in the file"};
  constexpr ParoleEsiti kDetti = {"diversa", "manca nei conti", "manca nel file"};
  const Profilo profilo = leggiProfiloConRegistro(opzioni.profilo);
  try {
    FileLetto file(opzioni.file);
    const auto connessione = apriConnessione(profilo.database);
    Terminale terminale;
    const UtilitaItaliana utilita(terminale, profilo.documenti);
    ListaConfronto lista(opzioni.json);
    const auto esito = confrontaConConti(file, *connessione, profilo, utilita, [&](const Coppia& coppia) {
      lista.aggiungi(confrontata(coppia, kEsiti), detto(coppia.esito, kDetti), kParole);
    });
    if (!esito) {
      std::cerr << opzioni.file << ": il record A non dice di quale anno è la fornitura.\n";
      return kRifiutato;
    }
    lista.testate(esito->testate, {"nel file", "atteso"});
    lista.fine("diverse dai conti");
    if (esito->errori > 0) {
      std::cerr << opzioni.file << ": il file ha errori (" << esito->errori
                << "); «cuctl validate» li elenca.\n";
    }
    return lista.uguali() && esito->errori == 0 ? kRiuscito : kRifiutato;
  } catch (const FileIlleggibile& errore) {
    std::cerr << errore.what() << '\n';
    return kUsoSbagliato;
  }
}

}  // namespace cu
