#include "sqlite/open.h"

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "base/text.h"
#include "platform/owner_only.h"
#include "sqlite/errors.h"
#include "sqlite/own_files.h"
#include "sqlite/own_functions.h"

namespace cu::sqlite {
namespace {

constexpr int kPatience = 5000;  // milliseconds

// SQLite 3.38 adds a Bloom filter to its automatic join index, which treats texts of different length as
// different: "Rossi" and "Rossi " would not match. This is the engine's flag for that filter.
constexpr int kBloomFilter = 0x00080000;

// Uses the system call instead of opening the file: closing a file releases every lock of the process on it,
// including another connection's.
bool allows(const std::string& path, bool writing) {
#ifdef _WIN32
  return ::_access(path.c_str(), writing ? 6 : 4) == 0;
#else
  return ::access(path.c_str(), writing ? R_OK | W_OK : R_OK) == 0;
#endif
}

std::string inGuillemets(const std::string& path) { return "«" + path + "»"; }

[[noreturn]] void unavailable(int code, const std::string& text) {
  throw DatabaseError(DatabaseErrorKind::Unavailable, code, "", text);
}

[[noreturn]] void readOnly(const std::string& path) {
  throw DatabaseError(
      DatabaseErrorKind::ReadOnly, SQLITE_READONLY, "",
      "Il database " + inGuillemets(path) + " è di sola lettura. Verificare i permessi del file.");
}

// Returns whether the file is to be created.
bool examine(const std::string& path, bool create) {
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(path, error);
  if (status.type() == std::filesystem::file_type::not_found) {
    if (create) return true;
    unavailable(SQLITE_CANTOPEN, "Il database " + inGuillemets(path) +
                                     " non esiste. Correggere l'indirizzo nel profilo, o crearlo con "
                                     "«cuctl create --database sqlite:" +
                                     path + "».");
  }
  if (error) {
    unavailable(SQLITE_CANTOPEN,
                "Il database " + inGuillemets(path) + " non si può leggere: " + error.message() + ".");
  }
  if (status.type() == std::filesystem::file_type::directory) {
    unavailable(SQLITE_CANTOPEN, inGuillemets(path) + " è una cartella, non un database. Indicare un file.");
  }
  if (!allows(path, false)) {
    unavailable(SQLITE_CANTOPEN,
                "Il database " + inGuillemets(path) + " non si può leggere. Verificare i permessi del file.");
  }
  if (!allows(path, true)) readOnly(path);
  return false;
}

bool run(sqlite3* database, const char* sql) {
  return sqlite3_exec(database, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

// Whether the index, or the key that is the table itself, of that name has a text among its key columns.
bool hasTextKey(sqlite3* database, std::string_view name) {
  const StatementHandle columns = preparePragma(database, "index_xinfo", name);
  constexpr int kCollation = 4;
  constexpr int kKey = 5;
  // The key's columns come first.
  while (sqlite3_step(columns.get()) == SQLITE_ROW && sqlite3_column_int(columns.get(), kKey) != 0) {
    if (equalsNoCase(columnText(columns.get(), kCollation), "NOCASE")) return true;
  }
  return false;
}

// Only a table WITHOUT ROWID is its own key.
bool mayBeKey(std::string_view definition) {
  constexpr std::string_view kWord = "rowid";
  const auto same = [](char a, char b) { return (a | 0x20) == b; };
  return std::search(definition.begin(), definition.end(), kWord.begin(), kWord.end(), same) !=
         definition.end();
}

// Asked of one name at a time: the join that gives the name of the table too takes three times as long.
bool hasTextIndex(sqlite3* database) {
  const StatementHandle names =
      prepare(database, "SELECT name, type, sql FROM sqlite_schema WHERE type IN ('index', 'table')", "");
  while (sqlite3_step(names.get()) == SQLITE_ROW) {
    const bool index = columnText(names.get(), 1) == "index";
    if ((index || mayBeKey(columnText(names.get(), 2))) && hasTextKey(database, columnText(names.get(), 0))) {
      return true;
    }
  }
  return false;
}

}  // namespace

void explain(sqlite3* database, const std::string& path) {
  const int code = database == nullptr ? SQLITE_NOMEM : codeOf(database);
  if ((code & 0xFF) == SQLITE_NOTADB) {
    unavailable(code,
                "Il file " + inGuillemets(path) +
                    " non è un database. Correggere l'indirizzo nel profilo, o indicare un altro file.");
  }
  if ((code & 0xFF) == SQLITE_CANTOPEN || (code & 0xFF) == SQLITE_PERM || (code & 0xFF) == SQLITE_AUTH) {
    unavailable(code,
                "Il database " + inGuillemets(path) +
                    " non si può aprire. Verificare i permessi del file e della sua cartella, e che sul "
                    "disco ci sia spazio.");
  }
  const DatabaseError told = errorOf(code, sqlite3_errmsg(database), "");
  throw DatabaseError(told.kind(), code, "", "Database " + inGuillemets(path) + ": " + told.what());
}

void prepareConnection(sqlite3* database) {
  sqlite3_extended_result_codes(database, 1);
  sqlite3_busy_timeout(database, kPatience);
  sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_test_control(SQLITE_TESTCTRL_OPTIMIZATIONS, database, kBloomFilter);
  installFunctions(database);
}

void refuseTextIndexes(sqlite3* database, const std::string& path) {
  if (!hasTextIndex(database)) return;
  const StatementHandle query =
      prepare(database,
              "SELECT t.name, i.name FROM sqlite_schema AS t, "
              "pragma_index_list(t.name) AS i, pragma_index_xinfo(i.name) AS c "
              "WHERE t.type = 'table' AND c.key = 1 AND upper(c.coll) = 'NOCASE' LIMIT 1",
              "");
  if (sqlite3_step(query.get()) != SQLITE_ROW) return;
  throw DatabaseError(DatabaseErrorKind::Unavailable, 0, "",
                      "Il database " + inGuillemets(path) +
                          " ha un indice su una colonna di testo, fatto da un altro " + "programma: «" +
                          std::string(columnText(query.get(), 1)) + "» sulla tabella " +
                          std::string(columnText(query.get(), 0)) + ". Eliminarlo con quel programma.");
}

DatabaseHandle openFile(const std::string& path, bool create) {
  // The engine's memory statistics are not used, and cost a lock per allocation. The setting has no effect
  // once the engine is in use.
  static const int counting = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
  static_cast<void>(counting);
  const bool memory = path == ":memory:";
  const bool isNew = !memory && examine(path, create);
  rememberOwnDatabase(path);
  sqlite3* raw = nullptr;
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | (create ? SQLITE_OPEN_CREATE : 0);
  // A file name that looks like a URI is still a file name.
  const std::string name = path.starts_with("file:") ? "./" + path : path;
  // The engine gives the files next to a database the mode that the database has. An error here is one of its
  // own, too, which it explains.
  if (isNew) createOwnerOnlyFile(name);
  const int code = sqlite3_open_v2(name.c_str(), &raw, flags, nullptr);
  DatabaseHandle database(raw);
  if (code != SQLITE_OK) explain(raw, path);
  if (isNew) restrictToOwner(name);  // the engine has created what a link named
  prepareConnection(raw);
  // The first read of the file shows whether it is a database.
  if (!run(raw, "SELECT count(*) FROM sqlite_schema")) explain(raw, path);
  // It may have waited for somebody who put another file in the place; the files beside it are the other's.
  int moved = 0;
  if (!memory && sqlite3_file_control(raw, "main", SQLITE_FCNTL_HAS_MOVED, &moved) == SQLITE_OK && moved != 0)
    throw errorOf(SQLITE_READONLY_DBMOVED, "", "");
  if (sqlite3_db_readonly(raw, "main") == 1) {
    throw DatabaseError(
        DatabaseErrorKind::ReadOnly, SQLITE_READONLY, "",
        "Il database " + inGuillemets(path) + " è di sola lettura. Verificare i permessi del file.");
  }
  // A change is complete or absent whenever the process ends, and readers do not wait for writers.
  // Overwriting the pages of dropped tables with zeros is not worth its cost.
  const bool set = run(raw, "PRAGMA journal_mode = WAL") && run(raw, "PRAGMA synchronous = NORMAL") &&
                   run(raw, "PRAGMA foreign_keys = OFF") && run(raw, "PRAGMA secure_delete = OFF") &&
                   run(raw, "PRAGMA temp_store = MEMORY") && run(raw, "PRAGMA cache_size = -12288") &&
                   run(raw, "PRAGMA journal_size_limit = 67108864");
  if (!set) explain(raw, path);
  refuseTextIndexes(raw, path);
  return database;
}

}  // namespace cu::sqlite
