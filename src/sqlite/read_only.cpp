#include "sqlite/read_only.h"

#include <filesystem>
#include <system_error>

#include "sqlite/errors.h"
#include "sqlite/open.h"
#include "sqlite/own_files.h"

namespace cu::sqlite {
namespace {

bool presentFile(const std::string& file) {
  std::error_code error;
  return std::filesystem::exists(file, error);
}

// A file's name as an address of the engine.
std::string unchangingAddress(const std::string& name) {
  std::string address = "file:";
  for (const char c : name) {
    if (c == '%' || c == '?' || c == '#') {
      constexpr const char* kDigits = "0123456789ABCDEF";
      const auto byte = static_cast<unsigned char>(c);
      address += '%';
      address += kDigits[byte >> 4U];
      address += kDigits[byte & 0xFU];
    } else {
      address += c;
    }
  }
  return address + "?immutable=1";
}

[[noreturn]] void cannotRead(sqlite3* database, const std::string& path) {
  const int code = codeOf(database);
  for (const char* const ending : {"-wal", "-journal"}) {
    const std::string side = realFileName(path) + ending;
    const int kind = code & 0xFF;
    if (!presentFile(side) || (kind != SQLITE_CANTOPEN && kind != SQLITE_READONLY)) continue;
    std::string text = "Il database «";
    text.append(path).append("» è di sola lettura, e accanto c'è «").append(side);
    text +=
        "» con modifiche che non sono ancora nel file: si legge solo dopo che chi lo può "
        "scrivere lo ha aperto e chiuso, o copiando tutti e due i file in un'altra cartella.";
    throw DatabaseError(DatabaseErrorKind::ReadOnly, code, "", text);
  }
  explain(database, path);
}

}  // namespace

DatabaseHandle openPatiently(const std::string& name, int flags, int& code) {
  sqlite3* raw = nullptr;
  code = sqlite3_open_v2(name.c_str(), &raw, flags | SQLITE_OPEN_NOMUTEX, nullptr);
  DatabaseHandle handle(raw);
  if (raw == nullptr) throw errorOf(SQLITE_NOMEM, "", "");
  sqlite3_extended_result_codes(raw, 1);
  constexpr int kPatienceForWriter = 5000;  // milliseconds
  sqlite3_busy_timeout(raw, kPatienceForWriter);
  return handle;
}

DatabaseHandle openUnwritten(const std::string& file, bool unchanging, int& code) {
  // A file name that looks like a URI is still a file name.
  const std::string name = file.starts_with("file:") ? "./" + file : file;
  return unchanging ? openPatiently(unchangingAddress(name), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, code)
                    : openPatiently(name, SQLITE_OPEN_READONLY, code);
}

ReadDatabase openToRead(const std::string& path) {
  rememberOwnDatabase(path);
  try {
    return {openFile(path, false), false};
  } catch (const DatabaseError& refusal) {
    if (refusal.kind() != DatabaseErrorKind::ReadOnly) throw;
  }
  // Whoever writes it has one of these files beside it. Without them the engine would have to make them.
  const std::string real = realFileName(path);
  const bool unchanging = !presentFile(real + "-wal") && !presentFile(real + "-journal");
  int code = SQLITE_OK;
  ReadDatabase database{openUnwritten(path, unchanging, code), unchanging};
  sqlite3* const raw = database.handle.get();
  if (code != SQLITE_OK) cannotRead(raw, path);
  prepareConnection(raw);
  for (const char* const sql : {"SELECT count(*) FROM sqlite_schema", "PRAGMA temp_store = MEMORY"}) {
    if (sqlite3_exec(raw, sql, nullptr, nullptr, nullptr) != SQLITE_OK) cannotRead(raw, path);
  }
  refuseTextIndexes(raw, path);
  return database;
}

}  // namespace cu::sqlite
