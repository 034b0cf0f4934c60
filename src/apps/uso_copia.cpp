#include "uso_copia.h"

#include <memory>

#include "comandi.h"
#include "uso.h"

namespace cu {
namespace {

void aggiungiIncorporato(CLI::App& comando, std::string& indirizzo, const char* spiegazione) {
  comando.add_option("--database", indirizzo, spiegazione)->required()->type_name("URL");
}

}  // namespace

void aggiungiBackup(CLI::App& programma, Esecuzione& esegui) {
  CLI::App& comando = aggiungiComando(programma, "backup",
                                      "Fa una copia di sicurezza di un database, anche mentre lo si usa");
  auto opzioni = std::make_shared<OpzioniBackup>();
  comando.add_option("file", opzioni->file, "Il file della copia")->required()->type_name("FILE");
  aggiungiIncorporato(comando, opzioni->database, "sqlite:FILE, il database da copiare");
  comando.add_flag("--force", opzioni->sostituisci, "Sostituisce un file che esiste già");
  comando.callback([&esegui, opzioni] { esegui = [opzioni] { return comandoBackup(*opzioni); }; });
}

void aggiungiRestore(CLI::App& programma, Esecuzione& esegui) {
  CLI::App& comando = aggiungiComando(
      programma, "restore", "Rimette una copia di sicurezza al posto di un database, che resta accanto");
  auto opzioni = std::make_shared<OpzioniRestore>();
  comando.add_option("file", opzioni->file, "Il file della copia")->required()->type_name("FILE");
  aggiungiIncorporato(comando, opzioni->database, "sqlite:FILE, il database da sostituire o da creare");
  comando.add_flag("--yes", opzioni->passaAvvisi, "Ripristina senza chiedere conferma");
  comando.callback([&esegui, opzioni] { esegui = [opzioni] { return comandoRestore(*opzioni); }; });
}

}  // namespace cu
