#pragma once

#include <sqlite3.h>

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "archive/schema.h"
#include "base/error.h"
#include "base/text.h"
#include "sqlite/catalog.h"
#include "sqlite/errors.h"
#include "sqlite/sqlite_connection.h"

namespace cu::sqlite::test {

// Tables for testing the rewriting alone.
class TestCatalog : public Catalog {
 public:
  TestCatalog() {
    using enum ValueKind;
    add("Anagrafica",
        {{"IDAnagrafica", Integer},
         {"Anagrafica", Text},
         {"Nome", Text},
         {"PersonaFisica", Integer},
         {"CodiceFiscale", Text},
         {"PartitaIva", Text},
         {"DataNascita", Date, false, false}},
        {"IDAnagrafica"}, 0);
    add("Conto",
        {{"IDAnagrafica", Integer},
         {"Anno", Integer},
         {"Onorario", Decimal},
         {"Quota", Decimal},
         {"Codice", Text},
         {"Pagato", Date, false, false},
         {"Flag", Integer}},
        {"IDAnagrafica", "Anno"});
    add("tmp12",
        {{"Selezionato", Integer},
         {"Modificato", Integer},
         {"Protocollo", Text},
         {"Progressivo", Text},
         {"Codice", Text},
         {"Lordo", Decimal},
         {"IDAnagrafica", Integer},
         {"Anno", Integer}},
        {"IDAnagrafica", "Anno"});
    add("Vista", {{"IDAnagrafica", Integer}, {"Nome", Text}, {"Totale", Decimal}}, {});
    tables_["vista"]->view = true;
  }
  std::shared_ptr<const TableInfo> find(std::string_view name) const override {
    const auto found = tables_.find(lowerAscii(name));
    return found == tables_.end() ? nullptr : found->second;
  }

 private:
  void add(const std::string& name, std::vector<ColumnInfo> columns, std::vector<std::string> key,
           std::size_t rowNumber = TableInfo::kNone) {
    auto table = std::make_shared<TableInfo>();
    table->name = name;
    table->columns = std::move(columns);
    table->primaryKey = std::move(key);
    table->rowNumber = rowNumber;
    tables_[lowerAscii(name)] = table;
  }
  std::map<std::string, std::shared_ptr<TableInfo>> tables_;
};

// A result as texts: a null is "NULL", an amount its digits, a day "dd/mm/yyyy".
using Lines = std::vector<std::vector<std::string>>;

inline Lines linesOf(const RowStore& rows) {
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

inline Lines query(Connection& connection, std::string_view text) {
  RowStore rows;
  connection.Query(text, rows);
  return linesOf(rows);
}

// The first cell of the first row.
inline std::string single(Connection& connection, std::string_view text) {
  const Lines lines = query(connection, text);
  return lines.empty() ? "none" : lines.front().front();
}

inline std::vector<ValueType> typesOf(Connection& connection, std::string_view text) {
  RowStore rows;
  connection.Query(text, rows);
  std::vector<ValueType> types;
  std::vector<CellView> cells(rows.columns()->size());
  rows.read(0, cells.data());
  for (const CellView& cell : cells) types.push_back(cell.type());
  return types;
}

inline std::unique_ptr<SqliteConnection> suiteInMemory() {
  std::unique_ptr<SqliteConnection> connection = SqliteConnection::create(":memory:");
  creaSchema(*connection);
  return connection;
}

// The error that a call raises; of kind Other and without text when it raises none.
template <class Call>
DatabaseError errorOf(Call call) {
  try {
    call();
  } catch (const DatabaseError& error) {
    return error;
  }
  return {DatabaseErrorKind::Other, 0, "", "no error"};
}

// The file as seen by a tool without the program's functions.
class BareDatabase {
 public:
  explicit BareDatabase(const std::string& path) { sqlite3_open(path.c_str(), &database_); }
  ~BareDatabase() { sqlite3_close(database_); }
  BareDatabase(const BareDatabase&) = delete;
  BareDatabase& operator=(const BareDatabase&) = delete;

  bool run(const std::string& sql) {
    return sqlite3_exec(database_, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
  }
  std::string message() const { return sqlite3_errmsg(database_); }
  // Rows, with cells separated by "|".
  std::vector<std::string> read(const std::string& sql) {
    std::vector<std::string> rows;
    const auto collect = [](void* into, int count, char** values, char**) {
      std::string row;
      for (int i = 0; i < count; ++i)
        row += (i > 0 ? "|" : "") + std::string(values[i] == nullptr ? "NULL" : values[i]);
      static_cast<std::vector<std::string>*>(into)->push_back(row);
      return 0;
    };
    if (sqlite3_exec(database_, sql.c_str(), collect, &rows, nullptr) != SQLITE_OK)
      rows = {"error: " + message()};
    return rows;
  }

 private:
  sqlite3* database_ = nullptr;
};

}  // namespace cu::sqlite::test
