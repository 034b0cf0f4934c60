#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>

#include "apps/comune/copia_sicurezza.h"
#include "base/error.h"
#include "base/text.h"
#include "comandi.h"
#include "interruzione.h"
#include "sqlite/database_copy.h"
#include "sqlite/own_files.h"
#include "suite/orologio.h"

namespace cu {
namespace {

bool confermato(const OpzioniRestore& opzioni, const std::string& domanda) {
  std::cerr << domanda;
  if (opzioni.passaAvvisi || !conPersona()) {
    std::cerr << (opzioni.passaAvvisi ? " Sì (--yes)\n" : " No (--yes per proseguire)\n");
    return opzioni.passaAvvisi;
  }
  std::cerr << " Proseguire? [s/N] " << std::flush;
  std::string risposta;
  std::getline(std::cin, risposta);
  const std::string minuscola = lowerAscii(trim(risposta));
  return minuscola == "s" || minuscola == "si" || minuscola == "sì";
}

}  // namespace

int comandoRestore(const OpzioniRestore& opzioni) {
  const auto database = databaseIndicato({opzioni.database, "", false});
  if (!database) return kUsoSbagliato;
  const bool incorporato = database->motore == Profilo::Motore::Sqlite;
  if (incorporato && belongsToDatabase(opzioni.file, database->origine)) {
    std::cerr << opzioni.file << " è il database stesso: serve una sua copia\n";
    return kUsoSbagliato;
  }
  if (incorporato) {
    try {
      requireCopy(opzioni.file, database->origine);
    } catch (const DatabaseError& rifiuto) {
      std::cerr << rifiuto.what() << '\n';
      return kRifiutato;
    }
  }
  const std::string& origine = database->origine;
  const std::string tenuto = nomeTenuto(origine, OrologioSistema());
  std::error_code errore;
  const bool presente = incorporato && std::filesystem::exists(origine, errore);
  const std::string domanda =
      presente ? "Il database " + origine + " viene sostituito dalla copia " + opzioni.file +
                     "; quello di adesso resta come " + tenuto + "."
               : "Il database " + origine + " viene creato dalla copia " + opzioni.file + ".";
  if (incorporato && !confermato(opzioni, domanda)) {
    std::cerr << "Non è stato cambiato nulla.\n";
    return kRifiutato;
  }
  try {
    bool sostituito = false;
    {
      LavoroAlTerminale lavoro;
      sostituito = ripristinaDatabase(
          *database, opzioni.file, tenuto,
          [&lavoro](CopyStep passo, std::uint64_t fatto, std::uint64_t totale) {
            lavoro.avanza(passo == CopyStep::Pages ? "Copia" : "Controllo della copia", fatto, totale);
          });
    }
    std::cout << "Database ripristinato: " << origine << '\n';
    if (sostituito) std::cout << "Quello di prima: " << tenuto << '\n';
    return kRiuscito;
  } catch (const Interrotto&) {
    std::cerr << "Interrotto: non è stato cambiato nulla.\n";
  } catch (const DatabaseError& rifiuto) {
    std::cerr << rifiuto.what() << '\n';
  }
  return kRifiutato;
}

}  // namespace cu
