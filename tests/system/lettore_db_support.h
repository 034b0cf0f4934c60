#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <stdexcept>
#include <string>

namespace cu::test {

// A database as any other tool would read and change it.
class LettoreDb {
 public:
  explicit LettoreDb(const std::string& file) {
    if (sqlite3_open(file.c_str(), &database_) != SQLITE_OK) throw std::runtime_error("non si apre: " + file);
    sqlite3_busy_timeout(database_, 2000);
  }
  ~LettoreDb() { sqlite3_close(database_); }
  LettoreDb(const LettoreDb&) = delete;
  LettoreDb& operator=(const LettoreDb&) = delete;

  // The first value of the first row; "" when there is none.
  std::string testo(const std::string& domanda) {
    sqlite3_stmt* istruzione = nullptr;
    if (sqlite3_prepare_v2(database_, domanda.c_str(), -1, &istruzione, nullptr) != SQLITE_OK) {
      throw std::runtime_error(sqlite3_errmsg(database_));
    }
    std::string valore;
    if (sqlite3_step(istruzione) == SQLITE_ROW && sqlite3_column_text(istruzione, 0) != nullptr) {
      valore = reinterpret_cast<const char*>(sqlite3_column_text(istruzione, 0));
    }
    sqlite3_finalize(istruzione);
    return valore;
  }
  // All rows of a table in the order of their first four columns, as one text.
  std::string tavola(const std::string& nome) {
    sqlite3_stmt* istruzione = nullptr;
    const std::string domanda = "SELECT * FROM " + nome + " ORDER BY 1, 2, 3, 4";
    if (sqlite3_prepare_v2(database_, domanda.c_str(), -1, &istruzione, nullptr) != SQLITE_OK) {
      throw std::runtime_error(sqlite3_errmsg(database_));
    }
    std::string testo;
    int codice = 0;
    while ((codice = sqlite3_step(istruzione)) == SQLITE_ROW) {
      for (int colonna = 0; colonna < sqlite3_column_count(istruzione); ++colonna) {
        const auto* const cella = sqlite3_column_text(istruzione, colonna);
        testo += cella == nullptr ? "NULL" : reinterpret_cast<const char*>(cella);
        testo += '|';
      }
      testo += '\n';
    }
    sqlite3_finalize(istruzione);
    if (codice != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(database_));
    return testo;
  }
  std::int64_t numero(const std::string& domanda) { return std::stoll("0" + testo(domanda)); }
  void esegui(const std::string& istruzione) {
    if (sqlite3_exec(database_, istruzione.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
      throw std::runtime_error(sqlite3_errmsg(database_));
    }
  }

 private:
  sqlite3* database_ = nullptr;
};

}  // namespace cu::test
