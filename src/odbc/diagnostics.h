#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "odbc/api.h"

namespace cu::odbc {

// What the API says of its last call: a state of five characters, a number, words.
struct Diagnostic {
  std::string state;
  int native = 0;
  std::string message;    // without the names of the drivers before it
  bool ofServer = false;  // the server's own number and words; the driver's or its manager's otherwise
};

// From the words as the API gives them, with the names of those who handed them on.
Diagnostic diagnosticOf(std::string state, int native, std::string message);
std::vector<Diagnostic> diagnosticsOf(SQLSMALLINT kind, SQLHANDLE handle);

// What was being done when it failed.
struct Circumstance {
  std::string statementKind;   // first word of the statement, in capitals; "" at the login
  std::string_view statement;  // of which no value may stand in an error
  int seconds = 0;             // the time that was allowed, 0 for none
  bool encrypted = false;      // whether the connection was to be encrypted
};

// The one of the diagnostics that says most, as an error: what happened, in Italian; then the number and
// words of the server or of the driver, without the values of the statement.
DatabaseError errorOf(const std::vector<Diagnostic>& diagnostics, const Circumstance& circumstance);
// Nobody answered in the time allowed.
DatabaseError timeoutOf(const Circumstance& circumstance);
// The connection was there and is no more.
DatabaseError droppedOf(const Circumstance& circumstance);
// Whether the server could not be reached or did not stay, whatever it would have said.
bool tellsOfWay(const std::vector<Diagnostic>& diagnostics);
bool tellsOfDrop(const std::vector<Diagnostic>& diagnostics);
bool tellsOfTimeout(const std::vector<Diagnostic>& diagnostics);

// First word of a statement in capitals.
std::string kindOf(std::string_view statement);

}  // namespace cu::odbc
