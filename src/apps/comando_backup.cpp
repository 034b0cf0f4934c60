#include <filesystem>
#include <iostream>

#include "apps/comune/copia_sicurezza.h"
#include "base/error.h"
#include "comandi.h"
#include "interruzione.h"
#include "sqlite/own_files.h"

namespace cu {

int comandoBackup(const OpzioniBackup& opzioni) {
  const auto database = databaseIndicato({opzioni.database, "", false});
  if (!database) return kUsoSbagliato;
  if (database->motore == Profilo::Motore::Sqlite && belongsToDatabase(opzioni.file, database->origine)) {
    std::cerr << opzioni.file << " è il database: per la copia serve un altro nome\n";
    return kUsoSbagliato;
  }
  try {
    DatabaseCopy copia;
    {
      LavoroAlTerminale lavoro;
      copia = copiaDatabase(*database, opzioni.file, opzioni.sostituisci,
                            [&lavoro](CopyStep passo, std::uint64_t fatto, std::uint64_t totale) {
                              lavoro.avanza(passo == CopyStep::Pages ? "Copia" : "Controllo della copia",
                                            fatto, totale);
                            });
    }
    std::cout << "Copia di sicurezza fatta e controllata: " << opzioni.file << " (" << dettaCopia(copia)
              << ")\n";
    return kRiuscito;
  } catch (const Interrotto&) {
    std::cerr << "Interrotto: non è stata fatta nessuna copia.\n";
  } catch (const DatabaseError& errore) {
    std::cerr << errore.what();
    std::error_code ignorato;
    if (errore.kind() == DatabaseErrorKind::Exists && !opzioni.sostituisci &&
        !std::filesystem::is_directory(opzioni.file, ignorato)) {
      std::cerr << " Con --force si sostituisce.";
    }
    std::cerr << '\n';
  }
  return kRifiutato;
}

}  // namespace cu
