#include "sqlite/errors.h"

#include <algorithm>
#include <cerrno>
#include <iterator>

#include "base/text.h"

namespace cu::sqlite {
namespace {

// System error codes for a lack of disk space.
#ifdef _WIN32
constexpr int kNoRoom[] = {39, 112};  // ERROR_HANDLE_DISK_FULL, ERROR_DISK_FULL
#else
constexpr int kNoRoom[] = {ENOSPC, EDQUOT, EFBIG};
#endif

// "NOT NULL constraint failed: Anagrafica.Anagrafica" -> "Anagrafica.Anagrafica"
std::string_view behindColon(std::string_view text) {
  const std::size_t colon = text.rfind(": ");
  return colon == std::string_view::npos ? std::string_view() : text.substr(colon + 2);
}

// "table [Azienda] already exists" -> "[Azienda]"
std::string existing(std::string_view text) {
  constexpr std::string_view kEnd = " already exists";
  text.remove_suffix(kEnd.size());
  return std::string(text.substr(text.find(' ') + 1));
}

bool isDuplicate(int code) {
  return code == SQLITE_CONSTRAINT_PRIMARYKEY || code == SQLITE_CONSTRAINT_UNIQUE ||
         code == SQLITE_CONSTRAINT_ROWID;
}

std::string constraint(int code, std::string_view text) {
  const std::string where(behindColon(text));
  switch (code) {
    case SQLITE_CONSTRAINT_NOTNULL:
      return "La colonna " + where + " non ammette il valore nullo.";
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_ROWID:
      return "Esiste già una riga con la stessa chiave (" + where + ").";
    default:
      return "Il database ha rifiutato i dati: " + std::string(text) + ".";
  }
}

struct Told {
  DatabaseErrorKind kind;
  std::string text;
};

Told tell(int code, std::string_view engineText, const std::string& of) {
  using enum DatabaseErrorKind;
  switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return {Locked,
              "Il database è occupato da un altro programma. Chiudere l'altro programma, o attendere che "
              "termini, e "
              "riprovare."};
    case SQLITE_CONSTRAINT:
      return {isDuplicate(code) ? Duplicate : Constraint, constraint(code, engineText)};
    case SQLITE_FULL:
      return {Full, "Il disco che contiene il database è pieno. Liberare spazio e ripetere l'operazione."};
    case SQLITE_READONLY:
      if (code == SQLITE_READONLY_DBMOVED) {
        return {Unavailable,
                "Il file del database non è più quello che è stato aperto: è stato spostato, sostituito o "
                "eliminato. Non è stato scritto nulla. Rimetterlo al suo posto e riaprire il programma."};
      }
      return {ReadOnly,
              "Il database è di sola lettura. Verificare i permessi del file e della sua cartella."};
    case SQLITE_CORRUPT:
      return {Corrupt, "Il file del database è danneggiato. Ripristinarlo da una copia di sicurezza."};
    case SQLITE_NOTADB:
      return {Unavailable, "Il file indicato non è un database."};
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return {Unavailable,
              "Il database non si può aprire. Verificare che il file e la sua cartella esistano e siano "
              "accessibili, e che sul disco ci sia spazio."};
    case SQLITE_IOERR:
      return {Other, "Errore di lettura o scrittura sul file del database. Verificare il disco e riprovare."};
    case SQLITE_NOMEM:
      return {Other, "Memoria insufficiente per l'operazione sul database."};
    case SQLITE_INTERRUPT:
      return {Timeout, "L'operazione sul database è stata interrotta."};
    case SQLITE_TOOBIG:
      return {Other, "Un testo è troppo lungo per il database."};
    case SQLITE_ERROR:
      if (engineText.starts_with("no such table: "))
        return {Missing,
                "Nel database manca una tabella o una vista: " + std::string(behindColon(engineText)) + "."};
      if (engineText.ends_with(" already exists"))
        return {Exists, "Nel database esiste già una tabella o una vista con questo nome: " +
                            existing(engineText) + "."};
      return {Syntax, "Il database non accetta l'istruzione" + of + ": " + std::string(engineText) + "."};
    default:
      return {Other, "Errore del database" + (of.empty() ? std::string() : " nell'istruzione" + of) + ": " +
                         std::string(engineText) + "."};
  }
}

std::string ofKind(std::string_view kind) {
  std::string text;
  if (!kind.empty()) text.append(1, ' ').append(kind);
  return text;
}

}  // namespace

DatabaseError errorOf(int extendedCode, std::string_view engineText, std::string_view kind) {
  const Told told = tell(extendedCode, engineText, ofKind(kind));
  return {told.kind, extendedCode, std::string(kind), told.text};
}

int codeOf(sqlite3* database) {
  const int code = sqlite3_extended_errcode(database);
  if ((code & 0xFF) != SQLITE_CANTOPEN && (code & 0xFF) != SQLITE_IOERR) return code;
  const int system = sqlite3_system_errno(database);
  return std::find(std::begin(kNoRoom), std::end(kNoRoom), system) == std::end(kNoRoom) ? code : SQLITE_FULL;
}

void raise(sqlite3* database, std::string_view kind) {
  throw errorOf(codeOf(database), sqlite3_errmsg(database), kind);
}

DatabaseError refused(const SqlError& error, std::string_view kind) {
  const bool missing = dynamic_cast<const UnknownTable*>(&error) != nullptr;
  return {missing ? DatabaseErrorKind::Missing : DatabaseErrorKind::Syntax, 0, std::string(kind),
          "Il database incorporato non accetta l'istruzione" + ofKind(kind) + ": " + error.what() +
              " (carattere " + fromInteger(static_cast<std::int64_t>(error.position()) + 1) + ")."};
}

DatabaseError unfit(const SqlError& error, std::string_view kind) {
  return {DatabaseErrorKind::Other, 0, std::string(kind),
          "Il database non accetta un valore dell'istruzione" + ofKind(kind) + ": " + error.what() + "."};
}

}  // namespace cu::sqlite
