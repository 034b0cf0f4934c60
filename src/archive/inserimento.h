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

// Gathers the rows of one table and sends several of them in one INSERT, so that a server is asked less
// often. Only rows with the same fields left NULL go together: the statement then comes again and again with
// nothing but other values in it, and an engine that knows it need not prepare it anew. Rows are not sent in
// the order in which they are given.
//
// The values of a row are given in the order of the columns, 64 at most; riga() ends it. chiudi() sends what
// is left.
class Inserimento {
 public:
  // SQL Server takes a thousand at most.
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
  void riga();  // std::logic_error when values are missing
  void chiudi();

  std::size_t righe() const { return totale_; }

 private:
  struct Gruppo {
    std::string istruzione;
    std::size_t righe = 0;
  };
  void prepara(std::string_view tabella, const std::vector<std::string_view>& colonne);
  std::string& posto();  // where the next value goes
  void manda(Gruppo& gruppo);

  Connection& connessione_;
  std::string testa_;
  std::string riga_;  // the row begun
  std::size_t colonne_ = 0;
  std::size_t valori_ = 0;                  // of the row begun
  std::uint64_t nulli_ = 0;                 // its NULL fields, a bit each
  std::map<std::uint64_t, Gruppo> gruppi_;  // by NULL fields
  std::size_t totale_ = 0;
};

// The value as a text literal, quotes doubled.
void appendTesto(std::string& istruzione, std::string_view valore);

}  // namespace cu
