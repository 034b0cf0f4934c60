#include "apps/comune/file_letto.h"

#include <filesystem>
#include <system_error>

#include "sqlite/own_files.h"
#include "suite/support_log.h"

namespace cu {

void rifiutaFileDelDatabase(const std::string& percorso) {
  if (!belongsToOwnDatabase(percorso)) return;
  throw FileIlleggibile(
      percorso +
      ": è il database in uso, o un suo file di lavoro: qui non si può aprire. Scegliere un "
      "altro file.");
}

FileLetto::FileLetto(const std::string& percorso) : percorso_(percorso) {
  std::error_code errore;
  const auto stato = std::filesystem::status(percorso, errore);
  if (!std::filesystem::exists(stato)) throw FileIlleggibile(percorso + ": il file non esiste.");
  if (std::filesystem::is_directory(stato))
    throw FileIlleggibile(percorso + ": è una cartella, non un file.");
  rifiutaFileDelDatabase(percorso);
  file_.rdbuf()->pubsetbuf(nullptr, 0);
  file_.open(percorso, std::ios::binary);
  if (!file_) throw FileIlleggibile(percorso + ": il file non si può aprire.");
  dimensione_ = std::filesystem::file_size(percorso, errore);
  if (errore) dimensione_ = 0;
  if (SupportLog* const log = SupportLog::active(); log != nullptr)
    log->record({.operation = "file", .detail = "lettura", .bytes = dimensione_});
}

std::size_t FileLetto::leggi(char* dove, std::size_t quanti) {
  file_.read(dove, static_cast<std::streamsize>(quanti));
  if (file_.bad()) throw FileIlleggibile(percorso_ + ": la lettura si è interrotta.");
  return static_cast<std::size_t>(file_.gcount());
}

}  // namespace cu
