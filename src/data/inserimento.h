#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/date.h"
#include "base/decimal.h"
#include "data/database.h"

namespace cu {

// Collects the rows of one table and sends several of them in one INSERT, which saves round trips to a
// server. Only rows with the same NULL fields share a statement: the statement then repeats with different
// values only, and an engine can reuse the prepared one. The order of the rows is not kept.
//
// The values of a row are passed in the order of the columns, 64 at most; riga() ends the row. chiudi() sends
// the remaining rows.
class Inserimento {
 public:
  // SQL Server accepts at most a thousand.
  static constexpr std::size_t kRighePerIstruzione = 20;

  Inserimento(Connection& connessione, std::string_view tabella,
              std::initializer_list<std::string_view> colonne);
  Inserimento(Connection& connessione, std::string_view tabella, const std::vector<std::string>& colonne);

  Inserimento& intero(std::int64_t valore);
  Inserimento& id(std::int64_t valore);  // 0 is NULL
  Inserimento& flag(bool valore) { return intero(valore ? 1 : 0); }
  Inserimento& testo(std::string_view valore);  // "" is NULL
  Inserimento& importo(Decimal valore);
  Inserimento& data(Date valore);  // day 0 is NULL
  Inserimento& nullo();
  void riga();  // raises std::logic_error when values are missing
  void chiudi();

  std::size_t righe() const { return totale_; }

 private:
  struct Gruppo {
    std::string istruzione;
    std::size_t righe = 0;
  };
  void prepara(std::string_view tabella, const std::vector<std::string_view>& colonne);
  std::string& posto();  // the buffer of the next value
  void manda(Gruppo& gruppo);

  Connection& connessione_;
  std::string testa_;
  std::string riga_;  // the current row
  std::size_t colonne_ = 0;
  std::size_t valori_ = 0;                  // in the current row
  std::uint64_t nulli_ = 0;                 // NULL fields of the current row, one bit each
  std::map<std::uint64_t, Gruppo> gruppi_;  // by NULL fields
  std::size_t totale_ = 0;
};

// Appends the value as a text literal, quotes doubled.
void appendTesto(std::string& istruzione, std::string_view valore);

}  // namespace cu
