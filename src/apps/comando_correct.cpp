#include <iostream>

#include "apps/comune/registro_programma.h"
#include "apps/esame/operazioni_registro.h"
#include "apps/esame/testo_rilievi.h"
#include "comandi.h"
#include "esito.h"

namespace cu {

int comandoCorrect(const OpzioniCorrect& opzioni) {
  const Profilo profilo = leggiProfiloConRegistro(opzioni.profilo);
  Terminale terminale;
  terminale.passaAvvisi = opzioni.passaAvvisi;
  EsitoCorreggi esito = correggi(
      profilo, {.anno = opzioni.anno,
                .cartella = opzioni.cartella,
                .firma = opzioni.firma,
                .prosegue = [&terminale](const std::string& avviso) { return terminale.conferma(avviso); }});
  for (const FileScritto& scritto : esito.file) {
    const riscontro::FileCorretto& file = scritto.file;
    std::cout << dettaFornitura(file.tipo) << ": " << file.percorso << " (" << file.certificazioni << ")\n";
    scriviRilievi(file.percorso, scritto.dopo.rilievi, std::cout);
    if (!scritto.dopo.guasto.empty()) std::cerr << file.percorso << ": " << scritto.dopo.guasto << '\n';
  }
  scriviAvvisi(terminale);
  terminale.messaggi = std::move(esito.messaggi);
  terminale.registri = std::move(esito.registri);
  scriviMessaggi(terminale);
  scriviRegistri(terminale);
  if (esito.riuscito && esito.file.empty()) {
    std::cout << "Nessuna certificazione è da inviare, sostituire o annullare.\n";
  }
  return esito.riuscito ? kRiuscito : kRifiutato;
}

}  // namespace cu
