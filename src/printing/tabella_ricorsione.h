#pragma once

#include <cstdint>
#include <string>

#include "base/date.h"
#include "data/recordset.h"

namespace cu {

class Conversioni;

// TabellaRicorsione2 passes the lines to print, by user and function, to the view of the forms. These are the
// statements before fnAnsi2jet.
namespace ricorsione {

// Deletes the user's rows.
std::string elimina(std::int32_t idUtente);

// The values common to all rows of a run.
struct Corsa {
  std::int32_t idUtente = 0;
  std::string sTipoCom;  // "1", "2" or "3"
  bool intermediari = false;
  std::string dataFirma;  // as shown in the box
};
// Inserts the current row of the worklist.
std::string inserisci(const Recordset& riga, const Corsa& corsa, const Conversioni& utilita);

}  // namespace ricorsione

// The names of the forms' files: for one line, and for all lines of a run together. The row's texts are used
// unchanged.
struct NomeModulo {
  std::string sCodFisc;
  std::string anno;
  Date oggi;
  TimeOfDay ora;
  std::string diRiga(const Recordset& riga, const Conversioni& utilita) const;
  std::string cumulativo() const;
};

}  // namespace cu
