#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "modello/modello.h"

namespace cu {

class Recordset;
class Conversioni;

// How a column of the edited row is written in the statement.
enum class Scrittura {
  Testo,       // quoted literal
  Assoluto,    // absolute value: a boolean's -1 becomes 1
  Numero,      // number literal
  TestoNullo,  // null-safe text
};
constexpr Scrittura scrittura(modello::Genere genere) {
  switch (genere) {
    case modello::Genere::Testo:
      return Scrittura::Testo;
    case modello::Genere::Flag:
      return Scrittura::Assoluto;
    case modello::Genere::Importo:
    case modello::Genere::Elenco:
    case modello::Genere::Numero:
      break;
  }
  return Scrittura::Numero;
}

struct ColonnaRiscritta {
  std::string_view nome;
  Scrittura scrittura;
};

// The columns of a line that an editor can change, in the order of the UPDATE of the work table: references,
// the boxes of the amounts in the order of the form, municipalities.
std::vector<ColonnaRiscritta> colonneRiscritte(const modello::Modello& modello);

// The additional data of a line, in the order of the MERGE into the accounts.
std::vector<std::string_view> datiAggiuntivi(const modello::Modello& modello);

// " WHERE Anno = ... AND IDAnagrafica = ... AND IDAzienda = ... AND IDCausalePagamento = ..." of the current
// row.
std::string fnChiaveRiga(const Recordset& riga);

// The UPDATE that stores the current row of the recordset in the work table. `proprie`: with the columns of
// boxes that the suite does not have.
std::string fnAggiornaRiga(const std::string& tabella, const Recordset& riga, const Conversioni& utilita,
                           bool proprie = false);

// The two statements that write the changed and selected rows back to the accounts.
std::string fnAggiornaConti(const std::string& tabella);
std::string fnAggiornaDatiAggiuntivi(const std::string& tabella);

}  // namespace cu
