#include "uso_finestra.h"

#include "uso.h"

namespace cu {
namespace {

std::string coloriNoti(const std::string& colori) {
  for (const char* noti : {"sistema", "chiari", "scuri"}) {
    if (colori == noti) return {};
  }
  return "atteso sistema, chiari o scuri, non " + colori;
}

}  // namespace

void descriviFinestra(CLI::App& programma, OpzioniFinestra& opzioni,
                      const std::function<std::string()>& versione) {
  parlaItaliano(programma);
  aggiungiVersione(programma, versione);
  programma
      .add_option("--profile", opzioni.profilo, "Il profilo TOML; senza, una piccola finestra lo sostituisce")
      ->type_name("FILE.toml");
  programma
      .add_option("--colori", opzioni.colori,
                  "chiari, scuri, o quelli del sistema; senza, quelli scelti nel menu Aspetto")
      ->check(coloriNoti)
      ->type_name("sistema|chiari|scuri");
  aggiungiRegistro(programma);
  programma
      .add_option(
          "FILE", opzioni.file,
          "File telematici da leggere e controllare, ognuno in una finestra, invece di avviare la procedura")
      ->type_name("FILE.cur|TABELLA|FATTURA");
  programma.add_flag("--importa", opzioni.importa,
                     "I FILE sono tabelle o fatture elettroniche da importare: apre l'importazione guidata, "
                     "sul database del "
                     "profilo o dell'ultimo avvio");
}

}  // namespace cu
