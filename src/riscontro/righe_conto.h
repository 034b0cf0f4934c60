#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "data/database.h"
#include "data/rowstore.h"

namespace cu::riscontro {

// The row of an account, of a module or of a company. Null for a column that the row has not.
class RigaConto {
 public:
  RigaConto(const Columns& colonne, const CellView* celle) : colonne_(colonne), celle_(celle) {}
  CellView operator[](std::string_view colonna) const { return a(colonne_.find(colonna)); }
  // By its place, which is the same in all rows of a result.
  CellView a(std::size_t posto) const { return posto == Columns::kNone ? CellView() : celle_[posto]; }

 private:
  const Columns& colonne_;
  const CellView* celle_;
};

// Calls `lega` with the columns of a query, then `chiama` with each of its rows.
void perRiga(Connection& connessione, const std::string& domanda,
             const std::function<void(const Columns&)>& lega,
             const std::function<void(const RigaConto&)>& chiama);
void perRiga(Connection& connessione, const std::string& domanda,
             const std::function<void(const RigaConto&)>& chiama);

}  // namespace cu::riscontro
