#include "archive/archivio.h"

#include "archive/codici_pubblicati.h"
#include "archive/demo.h"
#include "archive/riempi_liste.h"
#include "archive/schema.h"
#include "data/transazione.h"

namespace cu {

void creaArchivio(Connection& connessione, ContenutoArchivio contenuto, const OpzioniGeneratore& opzioni,
                  ModuliArchivio moduli) {
  if (contenuto == ContenutoArchivio::Sintetico) controlla(opzioni);
  if (contieneSuite(connessione)) {
    throw ArchivioEsistente(
        "Il database contiene già le tabelle della suite: non è stato modificato. Indicare un database "
        "vuoto.");
  }
  Transazione transazione(connessione);
  creaSchema(connessione);
  creaRegistro(connessione);
  creaMarca(connessione);
  riempiListe(connessione);
  if (moduli == ModuliArchivio::Pubblicati) {
    static_cast<void>(aggiungiCodiciPubblicati(connessione));
    segnaModuliPubblicati(connessione);
  }
  switch (contenuto) {
    case ContenutoArchivio::Vuoto:
      break;
    case ContenutoArchivio::Dimostrativo:
      riempiDemo(connessione);
      break;
    case ContenutoArchivio::Sintetico:
      generaAzienda(connessione, opzioni);
      break;
  }
  transazione.conferma();
}

}  // namespace cu
