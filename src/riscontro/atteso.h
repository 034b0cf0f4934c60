#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "data/rowstore.h"
#include "lettura/certificato.h"
#include "modello/modello.h"

// What the accounts say that the cells of a certificate hold. It follows the form's table alone: how the
// telematic file is written is not known here, so that a mistake of the writer shows.
namespace cu::riscontro {

// The row of an account, or of a module.
class RigaConto {
 public:
  RigaConto(const Columns& colonne, const CellView* celle) : colonne_(colonne), celle_(celle) {}
  // Null for a column that the row has not.
  CellView operator[](std::string_view colonna) const;

 private:
  const Columns& colonne_;
  const CellView* celle_;
};

// The cells of a part of the form, in order of their codes, without those that have no value.
class CelleAttese {
 public:
  CelleAttese(modello::Record record, std::int32_t anno, bool primoModulo);
  std::vector<lettura::Valore> di(const RigaConto& riga) const;

 private:
  bool vale(modello::Condizione condizione, const RigaConto& riga) const;

  std::vector<const modello::Campo*> campi_;
};

}  // namespace cu::riscontro
