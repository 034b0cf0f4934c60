#include <filesystem>
#include <iostream>

#include "apps/comune/codici_uscita.h"
#include "apps/importa/comandi_importa.h"
#include "apps/importazione/modello_tabella.h"

namespace cu {

// A table that somebody has filled in looks like an empty one: none is replaced.
int comandoTemplate(const OpzioniTemplate& opzioni) {
  std::error_code ignorato;
  if (std::filesystem::exists(opzioni.file, ignorato) && !std::filesystem::is_empty(opzioni.file, ignorato)) {
    std::cerr << "Il file «" << opzioni.file
              << "» esiste già: il modello non lo sostituisce. Indicare un altro nome.\n";
    return kRifiutato;
  }
  scriviModello(opzioni.file, opzioni.elenco);
  std::cout << "Modello scritto: " << opzioni.file << '\n';
  return kRiuscito;
}

}  // namespace cu
