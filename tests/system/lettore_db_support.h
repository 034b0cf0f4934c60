#pragma once

#include <sqlite3.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

#include "system/lettore_support.h"

namespace cu::test {

// Reads the embedded engine's file.
class LettoreDb final : public Lettore {
 public:
  explicit LettoreDb(const std::string& file) {
    if (sqlite3_open(file.c_str(), &database_) != SQLITE_OK) throw std::runtime_error("non si apre: " + file);
    sqlite3_busy_timeout(database_, 2000);
  }
  ~LettoreDb() override { sqlite3_close(database_); }
  LettoreDb(const LettoreDb&) = delete;
  LettoreDb& operator=(const LettoreDb&) = delete;

  Tavola leggi(const std::string& domanda) override {
    Istruzione istruzione(*this, domanda);
    Tavola tavola;
    for (int i = 0; i < istruzione.colonne(); ++i) tavola.colonne.push_back(istruzione.nome(i));
    while (istruzione.avanza()) {
      Riga& riga = tavola.righe.emplace_back();
      for (int i = 0; i < istruzione.colonne(); ++i) riga.push_back(istruzione.valore(i));
    }
    return tavola;
  }
  // All rows of a table in the order of their first columns, four at most, as one text.
  std::string tavola(const std::string& nome) {
    sqlite3_stmt* istruzione = nullptr;
    std::string domanda = "SELECT * FROM " + nome;
    const int colonne = Istruzione(*this, domanda).colonne();
    for (int i = 1; i <= std::min(colonne, 4); ++i)
      domanda += (i == 1 ? " ORDER BY " : ", ") + std::to_string(i);
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
  void esegui(const std::string& istruzione) override {
    if (sqlite3_exec(database_, istruzione.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
      throw std::runtime_error(sqlite3_errmsg(database_));
    }
  }
  void esegui(const std::string& domanda, const std::vector<std::string>& testi) override {
    Istruzione istruzione(*this, domanda);
    istruzione.lega(testi);
    istruzione.avanza();
  }
  std::vector<std::string> tavole() override {
    return elenco("SELECT name FROM sqlite_master WHERE type IN ('table', 'view') ORDER BY name");
  }
  std::string nellAnno(const std::string& colonna, const std::string& anno) const override {
    return colonna + " LIKE '" + anno + "-%'";
  }

 private:
  class Istruzione {
   public:
    Istruzione(LettoreDb& lettore, const std::string& testo) : database_(lettore.database_) {
      if (sqlite3_prepare_v2(database_, testo.c_str(), -1, &istruzione_, nullptr) != SQLITE_OK) fallisci();
    }
    ~Istruzione() { sqlite3_finalize(istruzione_); }
    Istruzione(const Istruzione&) = delete;
    Istruzione& operator=(const Istruzione&) = delete;

    void lega(const std::vector<std::string>& testi) {
      int posto = 0;
      for (const std::string& testo : testi) {
        sqlite3_bind_text(istruzione_, ++posto, testo.data(), static_cast<int>(testo.size()), SQLITE_STATIC);
      }
    }
    bool avanza() {
      const int codice = sqlite3_step(istruzione_);
      if (codice != SQLITE_ROW && codice != SQLITE_DONE) fallisci();
      return codice == SQLITE_ROW;
    }
    int colonne() const { return sqlite3_column_count(istruzione_); }
    std::string nome(int colonna) const { return sqlite3_column_name(istruzione_, colonna); }
    std::string valore(int colonna) const {
      const auto* const testo = reinterpret_cast<const char*>(sqlite3_column_text(istruzione_, colonna));
      return testo == nullptr ? std::string() : testo;
    }

   private:
    [[noreturn]] void fallisci() const { throw std::runtime_error(sqlite3_errmsg(database_)); }

    sqlite3* database_;
    sqlite3_stmt* istruzione_ = nullptr;
  };

  sqlite3* database_ = nullptr;
};

}  // namespace cu::test
