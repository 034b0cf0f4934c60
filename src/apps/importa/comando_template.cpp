#include <iostream>

#include "apps/comune/codici_uscita.h"
#include "apps/importa/comandi_importa.h"
#include "apps/importazione/modello_tabella.h"

namespace cu {

int comandoTemplate(const OpzioniTemplate& opzioni) {
  scriviModello(opzioni.file, opzioni.elenco);
  std::cout << "Modello scritto: " << opzioni.file << '\n';
  return kRiuscito;
}

}  // namespace cu
