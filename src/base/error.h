#pragma once

#include <new>
#include <stdexcept>
#include <string>

namespace cu {

// An error that propagates to the edge of an event or of the entry: a number and the text shown to the user.
class Error : public std::runtime_error {
 public:
  Error(int number, const std::string& description) : std::runtime_error(description), number_(number) {}
  int number() const { return number_; }
  std::string description() const { return what(); }

 private:
  int number_;
};

// Numbers of the platform's own errors.
inline constexpr int kErrorInvalidCall = 5;
inline constexpr int kErrorSubscript = 9;
inline constexpr int kErrorTypeMismatch = 13;
inline constexpr int kErrorBadFile = 52;
inline constexpr int kErrorFileNotFound = 53;
inline constexpr int kErrorFileOpen = 55;
inline constexpr int kErrorDeviceIo = 57;
inline constexpr int kErrorDiskFull = 61;
inline constexpr int kErrorFileInUse = 70;
inline constexpr int kErrorPathAccess = 75;
inline constexpr int kErrorPathNotFound = 76;
inline constexpr int kErrorObjectNotSet = 91;
inline constexpr int kErrorNoCurrentRow = 3021;
inline constexpr int kErrorReadOnly = 3251;
inline constexpr int kErrorItemNotFound = 3265;
inline constexpr int kErrorObjectClosed = 3704;
inline constexpr int kErrorObjectOpen = 3705;
inline constexpr int kErrorFilter = 3001;
inline constexpr int kErrorDatabase = -2147217900;  // base number of database errors
inline constexpr int kErrorRowGone = -2147217864;   // a row deleted by another session
inline constexpr int kErrorObjectBase = -2147221504;

// Converts any exception into an error with a text for the user.
inline Error asError(const std::exception& raised) {
  if (const auto* const error = dynamic_cast<const Error*>(&raised)) return *error;
  constexpr int kErrorMemory = 7;
  constexpr int kErrorInternal = 51;
  if (dynamic_cast<const std::bad_alloc*>(&raised) != nullptr)
    return {kErrorMemory, "Memoria insufficiente."};
  return {kErrorInternal, std::string("Errore interno: ") + raised.what()};
}

// A failed file operation; the number is one of those above.
class FileError : public Error {
 public:
  using Error::Error;
};

enum class DatabaseErrorKind {
  Unavailable,  // missing, unreadable, not a database, unreachable
  NoSchema,     // a database without the suite's tables
  Locked,       // held by another program
  Missing,      // missing table or view
  Exists,       // object exists already
  Duplicate,    // a second row with the same key
  Constraint,   // any other constraint, such as NOT NULL
  Syntax,       // a statement rejected by the engine
  Full,         // no space left
  ReadOnly,
  Corrupt,
  Timeout,
  Other,
};

// An error of a database. The text states the remedy; it never contains a value of the statement.
class DatabaseError : public Error {
 public:
  DatabaseError(DatabaseErrorKind kind, int nativeCode, const std::string& statementKind,
                const std::string& description)
      : Error(kErrorDatabase, description),
        kind_(kind),
        nativeCode_(nativeCode),
        statementKind_(statementKind) {}
  DatabaseErrorKind kind() const { return kind_; }
  int nativeCode() const { return nativeCode_; }
  const std::string& statementKind() const {
    return statementKind_;
  }  // "SELECT", "UPDATE", ...; may be empty

 private:
  DatabaseErrorKind kind_;
  int nativeCode_;
  std::string statementKind_;
};

}  // namespace cu
