#pragma once

// The record of a file by hand: the rows that a run has written about it, written again with a prepared
// INSERT for each table in one transaction.

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "bare_database.h"
#include "misura.h"

namespace cu::bench {

// The rows of the last file, read with their texts.
class RegistroAMano {
 public:
  explicit RegistroAMano(BareDatabase& bare) : bare_(bare) {
    const std::string last = "(SELECT MAX(IDInvio) FROM CuInvio)";
    read(tables_[0], "CuCertificazione", "IDInvio = " + last);
    read(tables_[1], "CuModulo",
         "IDCertificazione IN (SELECT IDCertificazione FROM CuCertificazione WHERE IDInvio = " + last + ")");
  }

  // Seconds; the copies are dropped afterwards.
  double write() {
    for (const Rows& table : tables_) {
      bare_.execute("DROP TABLE IF EXISTS Nudo" + table.name);
      bare_.execute("CREATE TABLE Nudo" + table.name + " AS SELECT * FROM " + table.name + " LIMIT 0");
    }
    bare_.execute("CREATE INDEX IX_NudoCertificazione ON NudoCuCertificazione (IDInvio)");
    const double spent = seconds([this] {
      bare_.execute("BEGIN IMMEDIATE");
      for (const Rows& table : tables_) insert(table);
      bare_.execute("COMMIT");
    });
    for (const Rows& table : tables_) bare_.execute("DROP TABLE Nudo" + table.name);
    return spent;
  }

 private:
  struct Rows {
    std::string name;
    int columns = 0;
    std::vector<std::string> cells;
  };
  void read(Rows& table, const std::string& name, const std::string& condition) {
    const BareStatement rows(bare_, "SELECT * FROM " + name + " WHERE " + condition);
    table.name = name;
    table.columns = sqlite3_column_count(rows.get());
    while (rows.step()) {
      for (int i = 0; i < table.columns; ++i) {
        const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(rows.get(), i));
        table.cells.emplace_back(text == nullptr ? "" : text);
      }
    }
  }
  void insert(const Rows& table) {
    std::string values = "?1";
    for (int i = 2; i <= table.columns; ++i) values += ", ?" + std::to_string(i);
    const BareStatement into(bare_, "INSERT INTO Nudo" + table.name + " VALUES (" + values + ")");
    for (std::size_t at = 0; at < table.cells.size();) {
      for (int i = 1; i <= table.columns; ++i, ++at) {
        const std::string& cell = table.cells[at];
        sqlite3_bind_text64(into.get(), i, cell.data(), cell.size(), SQLITE_STATIC, SQLITE_UTF8);
      }
      into.drain();
    }
  }

  BareDatabase& bare_;
  std::array<Rows, 2> tables_;
};

// Reads a file in blocks; seconds.
inline double bareRead(const std::string& path) {
  std::vector<char> block(std::size_t{1} << 20U);
  return seconds([&] {
    std::ifstream file(path, std::ios::binary);
    while (file.read(block.data(), static_cast<std::streamsize>(block.size())) || file.gcount() > 0) {
    }
  });
}

}  // namespace cu::bench
