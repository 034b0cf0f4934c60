#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "data/rowstore.h"
#include "lettura/certificato.h"
#include "modello/modello.h"
#include "riscontro/righe_conto.h"

// What the accounts say that the cells of a certificate hold. It follows the form's table alone: how the
// telematic file is written is not known here, so that a mistake of the writer shows.
namespace cu::riscontro {

// A text as the code page of the file keeps it, without the blanks at its end; in UTF-8.
std::string testoNelFile(const CellView& cella);

// The cells of a part of the form, in order of their codes, without those that have no value.
class CelleAttese {
 public:
  CelleAttese(modello::Record record, std::int32_t anno, bool primoModulo,
              const modello::Modello& modello = modello::kModello);
  // Finds the columns of a result, before its first row.
  void lega(const Columns& colonne);
  std::vector<lettura::Valore> di(const RigaConto& riga) const;

 private:
  struct Casella {
    const modello::Campo* campo = nullptr;
    std::string codice;
    std::size_t colonna = Columns::kNone;
    std::array<std::size_t, 3> altre{};
  };
  // The columns that decide whether a box is present.
  struct Condizioni {
    std::size_t personaFisica = Columns::kNone;
    std::size_t nonResidente = Columns::kNone;
    std::size_t schumacker = Columns::kNone;
    std::size_t anticipazione = Columns::kNone;
    std::size_t causale = Columns::kNone;
  };
  bool vale(modello::Condizione condizione, const RigaConto& riga) const;
  std::string valore(const RigaConto& riga, const Casella& casella) const;
  std::string codiceNonSoggetti(const RigaConto& riga, const Casella& casella) const;

  const modello::Modello& modello_;
  std::vector<Casella> caselle_;
  std::vector<std::size_t> contributi_;  // columns of the amounts of the contributions' block
  Condizioni condizioni_;
};

}  // namespace cu::riscontro
