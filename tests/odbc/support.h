#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "odbc/odbc_connection.h"
#include "server/tds_server.h"
#include "server/tds_tokens.h"
#include "support/postgres_server.h"

namespace cu::odbc::test {

using cu::test::PostgresServer;
using cu::test::TdsServer;
namespace tds = cu::test::tds;

inline constexpr const char* kDropped =
    "La connessione con il server del database è caduta. I dati presentati restano a video: verificare il "
    "server e la rete, poi ripetere l'operazione.";

// Started by the first test that needs it.
inline PostgresServer& server() {
  static PostgresServer shared;
  return shared;
}

inline OdbcSettings settingsOf(const PostgresServer& of, const std::string& driver = "PostgreSQL Unicode") {
  OdbcSettings settings;
  settings.text = of.text(driver);
  settings.password = PostgresServer::kPassword;
  return settings;
}

inline void ignore(const std::string&) {}

inline std::unique_ptr<OdbcConnection> opened(const std::string& driver = "PostgreSQL Unicode") {
  return OdbcConnection::open(settingsOf(server(), driver), ignore);
}

// A result as texts: a null is "NULL", an amount its digits, a day "dd/mm/yyyy".
using Lines = std::vector<std::vector<std::string>>;

inline Lines query(Connection& connection, std::string_view text) {
  RowStore rows;
  connection.Query(text, rows);
  Lines lines;
  std::vector<CellView> cells(rows.columns() == nullptr ? 0 : rows.columns()->size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    rows.read(i, cells.data());
    std::vector<std::string> line;
    for (const CellView& cell : cells) line.push_back(cell.isNull() ? "NULL" : cell.toText());
    lines.push_back(std::move(line));
  }
  return lines;
}

inline std::string single(Connection& connection, std::string_view text) {
  const Lines lines = query(connection, text);
  return lines.empty() ? "none" : lines.front().front();
}

// The error that a call raises; of kind Other and without text when it raises none.
inline DatabaseError errorOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const DatabaseError& error) {
    return error;
  }
  return {DatabaseErrorKind::Other, 0, "", "no error"};
}

}  // namespace cu::odbc::test
