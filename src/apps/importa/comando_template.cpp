#include <iostream>

#include "apps/comune/codici_uscita.h"
#include "apps/importa/comandi_importa.h"
#include "apps/importazione/modello_tabella.h"
#include "apps/importazione/scrittura_tabella.h"

namespace cu {

int comandoTemplate(const OpzioniTemplate& opzioni) {
  scriviTabelle(opzioni.file, modelloTabella(opzioni.elenco));
  std::cout << "Modello scritto: " << opzioni.file << '\n';
  return kRiuscito;
}

}  // namespace cu
