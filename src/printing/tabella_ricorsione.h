#pragma once

#include <cstdint>
#include <string>

#include "base/date.h"
#include "data/recordset.h"

namespace cu {

class Conversioni;

// TabellaRicorsione2 carries the lines to print, by user and function, to the view behind the forms. The
// statements as they are before fnAnsi2jet.
namespace ricorsione {

// Takes the user's rows out.
std::string elimina(std::int32_t idUtente);

// What is the same for all rows of a run.
struct Corsa {
  std::int32_t idUtente = 0;
  std::string sTipoCom;  // "1", "2" or "3"
  bool intermediari = false;
  std::string dataFirma;  // as the box shows it
};
// Puts the current row of the worklist in.
std::string inserisci(const Recordset& riga, const Corsa& corsa, const Conversioni& utilita);

}  // namespace ricorsione

// The names of the forms' files: of one line, and of all lines of a run together. What stands in the row goes
// into the name as it stands.
struct NomeModulo {
  std::string sCodFisc;
  std::string anno;
  Date oggi;
  TimeOfDay ora;
  std::string diRiga(const Recordset& riga, const Conversioni& utilita) const;
  std::string cumulativo() const;
};

}  // namespace cu
