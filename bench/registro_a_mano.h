#pragma once

// The record of a file by hand: the rows that a run has written about it, written again into another database
// with a prepared INSERT for each table.

#include <array>
#include <string>
#include <vector>

#include "bare_database.h"

namespace cu::bench {

// The rows of the last file of a database, as its engine holds them.
class RegistroAMano {
 public:
  explicit RegistroAMano(BareDatabase& made) {
    const std::string last = " WHERE IDInvio = (SELECT MAX(IDInvio) FROM CuInvio)";
    read(made, tables_[0], "CuInvio", last);
    read(made, tables_[1], "CuCertificazione", last);
    read(made, tables_[2], "CuModulo",
         " WHERE IDCertificazione IN (SELECT IDCertificazione FROM CuCertificazione" + last + ")");
  }
  ~RegistroAMano() {
    for (const Rows& table : tables_) {
      for (sqlite3_value* cell : table.cells) sqlite3_value_free(cell);
    }
  }
  RegistroAMano(const RegistroAMano&) = delete;
  RegistroAMano& operator=(const RegistroAMano&) = delete;

  // The certificates of the file.
  std::size_t certificates() const {
    return tables_[1].cells.size() / static_cast<std::size_t>(tables_[1].columns);
  }
  void write(BareDatabase& target) const {
    for (const Rows& table : tables_) insert(target, table);
  }

 private:
  struct Rows {
    std::string name;
    int columns = 0;
    std::vector<sqlite3_value*> cells;
  };
  static void read(BareDatabase& made, Rows& table, const std::string& name, const std::string& condition) {
    const BareStatement rows(made, "SELECT * FROM " + name + condition);
    table.name = name;
    table.columns = sqlite3_column_count(rows.get());
    while (rows.step()) {
      for (int i = 0; i < table.columns; ++i)
        table.cells.push_back(sqlite3_value_dup(sqlite3_column_value(rows.get(), i)));
    }
  }
  static void insert(BareDatabase& target, const Rows& table) {
    std::string values = "?1";
    for (int i = 2; i <= table.columns; ++i) values += ", ?" + std::to_string(i);
    const BareStatement into(target, "INSERT INTO " + table.name + " VALUES (" + values + ")");
    for (std::size_t at = 0; at < table.cells.size();) {
      for (int i = 1; i <= table.columns; ++i, ++at) sqlite3_bind_value(into.get(), i, table.cells[at]);
      into.drain();
    }
  }

  std::array<Rows, 3> tables_;
};

}  // namespace cu::bench
