#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "odbc/api.h"

namespace cu::odbc {

// A diagnostic of the API's last call: a state of five characters, a number, a text.
struct Diagnostic {
  std::string state;
  int native = 0;
  std::string message;    // without the leading names of the drivers
  bool ofServer = false;  // number and text are the server's; otherwise those of the driver or its manager
};

// From the API's text, which begins with the names of the components that passed it on.
Diagnostic diagnosticOf(std::string state, int native, std::string message);
std::vector<Diagnostic> diagnosticsOf(SQLSMALLINT kind, SQLHANDLE handle);

// The operation that failed.
struct Circumstance {
  std::string statementKind;   // first word of the statement, in capitals; "" at the login
  std::string_view statement;  // none of its values may be part of an error
  int seconds = 0;             // time limit, 0 for none
  bool encrypted = false;      // whether encryption was requested
};

// Converts the most specific diagnostic to an error: what happened, in Italian; then number and text of the
// server or of the driver, without the values of the statement.
DatabaseError errorOf(const std::vector<Diagnostic>& diagnostics, const Circumstance& circumstance);
// The error for a time-out.
DatabaseError timeoutOf(const Circumstance& circumstance);
// The error for a lost connection.
DatabaseError droppedOf(const Circumstance& circumstance);
// Whether the server could not be reached or the connection was lost, whatever the server would have
// answered.
bool tellsOfWay(const std::vector<Diagnostic>& diagnostics);
bool tellsOfDrop(const std::vector<Diagnostic>& diagnostics);
bool tellsOfTimeout(const std::vector<Diagnostic>& diagnostics);

// First word of a statement in capitals.
std::string kindOf(std::string_view statement);

}  // namespace cu::odbc
