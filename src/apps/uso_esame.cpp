#include "uso_esame.h"

#include <memory>

#include "apps/esame/comandi_esame.h"
#include "uso.h"

namespace cu {

void aggiungiInspect(CLI::App& programma, Esecuzione& esegui) {
  CLI::App& comando = aggiungiComando(programma, "inspect", "Mostra che cosa contiene un file telematico");
  auto opzioni = std::make_shared<OpzioniInspect>();
  comando.add_option("file", opzioni->file, "Il file telematico")->required()->type_name("FILE");
  comando.add_flag("--json", opzioni->json, "In JSON");
  comando
      .add_option("--certificate", opzioni->certificazione,
                  "Solo questa certificazione, contata dall'inizio del file")
      ->check(fra(1, 2000000000))
      ->type_name("N");
  comando.callback([&esegui, opzioni] { esegui = [opzioni] { return comandoInspect(*opzioni); }; });
}

void aggiungiValidate(CLI::App& programma, Esecuzione& esegui) {
  CLI::App& comando = aggiungiComando(programma, "validate", "Controlla uno o più file telematici");
  auto opzioni = std::make_shared<OpzioniValidate>();
  comando.add_option("file", opzioni->file, "I file telematici")->required()->type_name("FILE");
  comando.add_flag("--json", opzioni->json, "In JSON");
  comando.add_flag("--strict", opzioni->severo, "Anche un avviso dà codice d'uscita 1");
  comando.callback([&esegui, opzioni] { esegui = [opzioni] { return comandoValidate(*opzioni); }; });
}

}  // namespace cu
