#include <filesystem>
#include <iostream>
#include <stdexcept>

#include "apps/comune/argomenti.h"
#include "apps/comune/connessioni.h"
#include "archive/archivio.h"
#include "comandi.h"
#include "suite/profilo.h"

namespace cu {
namespace {

// For the embedded engine: deletes a new file, and the files of the engine next to it, unless its creation
// completes.
class FileNuovo {
 public:
  explicit FileNuovo(const Profilo::Database& database) {
    std::error_code errore;
    if (database.motore == Profilo::Motore::Sqlite && !std::filesystem::exists(database.origine, errore)) {
      percorso_ = database.origine;
    }
  }
  void togli() const {
    if (percorso_.empty()) return;
    for (const char* coda : {"", "-wal", "-shm", "-journal"}) {
      std::error_code errore;
      std::filesystem::remove(percorso_ + coda, errore);
    }
  }

 private:
  std::string percorso_;
};

ContenutoArchivio contenuto(const OpzioniCreate& opzioni) {
  if (opzioni.percipienti) return ContenutoArchivio::Sintetico;
  return opzioni.vuoto ? ContenutoArchivio::Vuoto : ContenutoArchivio::Dimostrativo;
}

const char* descrizione(ContenutoArchivio contenuto, bool piu) {
  switch (contenuto) {
    case ContenutoArchivio::Vuoto:
      return "vuoto, con le liste comuni a ogni azienda";
    case ContenutoArchivio::Dimostrativo:
      return "con l'azienda dimostrativa";
    case ContenutoArchivio::Sintetico:
      return piu ? "con aziende sintetiche" : "con un'azienda sintetica";
  }
  return "";
}

}  // namespace

int comandoCreate(const OpzioniCreate& opzioni) {
  const auto database = databaseIndicato(opzioni.database);
  if (!database) return kUsoSbagliato;
  const auto anni = leggiAnni(opzioni.anni);
  if (!anni) {
    std::cerr << "--years: atteso un anno o un intervallo, come 2014-2017\n";
    return kUsoSbagliato;
  }
  const OpzioniGeneratore generatore{opzioni.percipienti.value_or(0), anni->first, anni->second, opzioni.seme,
                                     opzioni.aziende};
  const FileNuovo nuovo(*database);
  try {
    creaArchivio(*creaConnessione(*database), contenuto(opzioni), generatore);
  } catch (const std::invalid_argument& errore) {
    nuovo.togli();
    std::cerr << errore.what() << '\n';
    return kUsoSbagliato;
  } catch (const std::exception& errore) {
    nuovo.togli();
    std::cerr << errore.what() << '\n';
    return kRifiutato;
  }
  std::cout << "Database creato, " << descrizione(contenuto(opzioni), opzioni.aziende > 1) << ": "
            << opzioni.database.indirizzo << '\n';
  return kRiuscito;
}

}  // namespace cu
