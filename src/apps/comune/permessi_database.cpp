#include "apps/comune/permessi_database.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <utility>

#include "platform/owner_only.h"
#include "platform/user_folders.h"
#include "suite/platform_file.h"

namespace cu {
namespace {

std::function<void(const std::string&)> ascoltatore;

bool incorporato(const Profilo::Database& database) {
  return database.motore == Profilo::Motore::Sqlite && database.origine != ":memory:";
}

// By its real name, so that two ways to it are one database.
std::string veroNome(const Profilo::Database& database) {
  std::error_code errore;
  std::string nome = std::filesystem::canonical(database.origine, errore).string();
  return errore ? database.origine : nome;
}

}  // namespace

std::string PermessiDatabase::memoriaDelUtente() {
  const std::string cartella = stateFolder();
  return cartella.empty() ? cartella : cartella + "/cuwizard/permessi-segnalati";
}

std::optional<std::string> PermessiDatabase::daSegnalare(const Profilo::Database& database) const {
  // Of a folder or a device it would be a dangerous advice; that it is no database is said elsewhere.
  std::error_code ignorato;
  if (!incorporato(database) || !std::filesystem::is_regular_file(database.origine, ignorato))
    return std::nullopt;
  const OtherReaders altri = otherReaders(database.origine);
  if (altri == OtherReaders::None) return std::nullopt;
  const std::string nome = veroNome(database);
  std::ifstream file(memoria_);
  for (std::string riga; std::getline(file, riga);) {
    if (riga == nome) return std::nullopt;
  }
  return altri == OtherReaders::Group ? "dagli utenti del suo gruppo" : "da ogni utente di questo computer";
}

void PermessiDatabase::segnalato(const Profilo::Database& database) const {
  if (memoria_.empty() || !incorporato(database)) return;
  const std::string riga = veroNome(database) + '\n';
  try {
    createFolders(std::filesystem::path(memoria_).parent_path().string());
    int codice = 0;
    openForAppending(memoria_, NewFile::OwnerOnly).write(riga, codice);
  } catch (const FileError&) {
    // It is reported again.
    return;
  }
}

void riservaDatabase(const Profilo::Database& database) {
  for (const char* coda : {"", "-wal", "-shm", "-journal"}) {
    const std::string file = veroNome(database) + coda;
    const int codice = restrictToOwner(file);
    if (codice != 0 && (codice != ENOENT || *coda == '\0')) throw fileError(codice, file);
  }
}

void ascoltaPermessi(std::function<void(const std::string&)> avviso) { ascoltatore = std::move(avviso); }

void segnalaPermessi(const Profilo::Database& database) {
  if (!ascoltatore) return;
  // Companies are worked on in parallel.
  static std::mutex unoAllaVolta;
  const std::scoped_lock blocco(unoAllaVolta);
  const PermessiDatabase permessi;
  const auto altri = permessi.daSegnalare(database);
  if (!altri) return;
  permessi.segnalato(database);
  ascoltatore("Il database «" + database.origine + "», che contiene dati personali, può essere letto " +
              *altri + ". Se non è voluto: chmod go-rwx. Questo avviso non si ripete.");
}

}  // namespace cu
