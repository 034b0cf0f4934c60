#pragma once

#include <cstdint>
#include <vector>

#include "controls/grid.h"
#include "data/recordset.h"

namespace cu {

// The rows of a grid, held in memory: the first column is the key and is not shown.
class RigheElenco {
 public:
  using Riga = std::vector<Value>;

  RigheElenco(Grid& griglia, std::vector<GridColumn> colonne);
  RigheElenco(const RigheElenco&) = delete;
  RigheElenco& operator=(const RigheElenco&) = delete;
  ~RigheElenco() { griglia_.bind(nullptr); }

  // The current row stays the one with the same key, otherwise the one in its place, the last one at most.
  void mostra(const std::vector<Riga>& righe);
  std::int64_t chiave() const;  // of the current row; 0 for none
  void vai(std::int64_t chiave);

 private:
  Grid& griglia_;
  Recordset righe_;
};

// The columns of such grids: the key, a text, an amount, a day, a number.
GridColumn colonnaChiave();
GridColumn colonnaTesto(const char* campo, const char* didascalia, int larghezza);
GridColumn colonnaImporto(const char* campo, const char* didascalia);
GridColumn colonnaGiorno(const char* campo, const char* didascalia);
GridColumn colonnaNumero(const char* campo, const char* didascalia);

}  // namespace cu
