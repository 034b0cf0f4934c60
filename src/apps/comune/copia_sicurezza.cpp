#include "apps/comune/copia_sicurezza.h"

#include <filesystem>
#include <system_error>

#include "archive/schema.h"
#include "base/error.h"
#include "base/text.h"
#include "base/thousands.h"
#include "schede/conteggio.h"
#include "sqlite/sqlite_connection.h"
#include "suite/support_log.h"

namespace cu {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void rifiutaCopia(DatabaseErrorKind genere, const std::string& testo) {
  throw DatabaseError(genere, 0, "", testo);
}

void soloIncorporato(const Profilo::Database& database) {
  if (database.motore == Profilo::Motore::Sqlite) return;
  rifiutaCopia(
      DatabaseErrorKind::Unavailable,
      "Il database è su un server: le copie di sicurezza si fanno e si ripristinano con gli strumenti del "
      "server. Questo programma copia solo un database incorporato, «sqlite:FILE».");
}

// A copy of anything else could not be restored. An empty file, which the engine takes for an empty database,
// is what remains of one that was lost.
void soloDellaSuite(const std::string& database) {
  std::error_code errore;
  if (fs::is_regular_file(database, errore) && fs::file_size(database, errore) == 0) {
    rifiutaCopia(DatabaseErrorKind::NoSchema,
                 "Il file «" + database + "» è vuoto: non c'è niente da copiare.");
  }
  if (contieneSuite(*SqliteConnection::openToRead(database))) return;
  rifiutaCopia(DatabaseErrorKind::NoSchema,
               "Il file «" + database +
                   "» è un database, ma non di questo programma: non contiene le "
                   "tabelle della suite.");
}

int versioneArchivio(Connection& connessione) {
  RowStore righe;
  connessione.Query("SELECT MAX(Versione) FROM CuArchivio", righe);
  CellView versione;
  righe.read(0, &versione);
  return static_cast<int>(versione.integer());
}

// "-2027-03-05-103000"
std::string momento(const Clock& orologio) {
  const Date giorno = orologio.today();
  const TimeOfDay ora = orologio.now();
  std::string testo = "-" + giorno.toIso() + "-";
  for (const int parte : {ora.hour, ora.minute, ora.second}) {
    testo += static_cast<char>('0' + parte / 10);
    testo += static_cast<char>('0' + parte % 10);
  }
  return testo;
}

std::string nomeLibero(const fs::path& cartella, const fs::path& database, const std::string& dopo) {
  const std::string radice = (cartella / database.stem()).string() + dopo;
  const std::string fine = database.has_extension() ? database.extension().string() : ".db";
  std::string nome = radice + fine;
  std::error_code errore;
  for (int i = 2; fs::exists(fs::symlink_status(nome, errore)); ++i)
    nome.assign(radice).append("-").append(fromInteger(i)).append(fine);
  return nome;
}

}  // namespace

DatabaseCopy copiaDatabase(const Profilo::Database& database, const std::string& file, bool sostituisci,
                           const CopyObserver& avanzamento) {
  soloIncorporato(database);
  LogEntry voce{.operation = "copia di sicurezza"};
  return logged(SupportLog::active(), voce, [&] {
    soloDellaSuite(database.origine);
    DatabaseCopy copia = backUpDatabase(database.origine, file, sostituisci, avanzamento);
    voce.rows = static_cast<std::int64_t>(copia.rows);
    voce.bytes = copia.bytes;
    return copia;
  });
}

void esaminaCopia(const std::string& file) {
  const auto connessione = SqliteConnection::open(file);
  if (!contieneSuite(*connessione)) {
    rifiutaCopia(DatabaseErrorKind::NoSchema,
                 "La copia è un database, ma non di questo programma: non contiene le tabelle della suite.");
  }
  if (!schede::archivioProprio(*connessione)) return;
  if (versioneArchivio(*connessione) > kVersioneArchivio) {
    rifiutaCopia(DatabaseErrorKind::Unavailable,
                 "La copia viene da una versione più nuova di questo programma, che non la saprebbe usare: "
                 "aggiornare il programma, poi ripristinarla.");
  }
}

bool ripristinaDatabase(const Profilo::Database& database, const std::string& copia,
                        const std::string& tenuto, const CopyObserver& avanzamento) {
  soloIncorporato(database);
  return logged({.operation = "ripristino"},
                [&] { return restoreDatabase(copia, database.origine, tenuto, esaminaCopia, avanzamento); });
}

std::string nomeCopia(const std::string& database, const std::string& cartella, const Clock& orologio) {
  return nomeLibero(cartella, fs::path(database).filename(), momento(orologio));
}

// Beside the file itself, where the database is a link.
std::string nomeTenuto(const std::string& database, const Clock& orologio) {
  std::error_code errore;
  const fs::path vero = fs::weakly_canonical(database, errore);
  const fs::path file = errore ? fs::path(database) : vero;
  return nomeLibero(file.parent_path(), file.filename(), "-prima-del-ripristino" + momento(orologio));
}

std::string dettaCopia(const DatabaseCopy& copia) {
  constexpr std::uint64_t kDecimiPerMega = std::uint64_t{1} << 20U;
  const std::uint64_t decimi = copia.bytes * 10 / kDecimiPerMega;
  const auto quanti = [](std::uint64_t numero, const char* uno, const char* piu) {
    return groupThousands(std::to_string(numero)) + (numero == 1 ? uno : piu);
  };
  return quanti(copia.tables, " tabella, ", " tabelle, ") + quanti(copia.rows, " riga, ", " righe, ") +
         groupThousands(std::to_string(decimi / 10) + "," + std::to_string(decimi % 10)) + " MB";
}

}  // namespace cu
