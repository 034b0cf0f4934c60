#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "intake/colonne.h"
#include "intake/mappatura.h"
#include "intake/messaggi.h"
#include "tabelle/tabella.h"

namespace cu::intake {

// Where the table at hand has a column.
struct ColonnaTrovata {
  const Colonna* colonna = nullptr;
  std::vector<std::size_t> posti;  // in the table; none for a constant
  std::string intestazione;        // as the table has it; several joined by " + "
  std::optional<std::string> costante;
  Segno segno = Segno::ComeScritto;
  const std::map<std::string, std::string>* valori = nullptr;
};

struct Corrispondenza {
  std::vector<ColonnaTrovata> colonne;  // ordered by rank
  std::optional<std::size_t> salto;     // the column that says which rows are none
  std::vector<Messaggio> messaggi;      // C01 of the heading, C02, C03

  bool ha(std::uint8_t rango) const;
};

// The headings of a table, cleaned. Of several that are alike each has its number, as a mapping can name it:
// "Importo (1)", "Importo (2)".
std::vector<std::string> titoliDistinti(const tabelle::Tabella& tabella);

// The column of a table written by this program with what is wrong in each row: it is nobody's.
inline constexpr std::string_view kColonnaErrori = "Errore";

// Finds the columns by the mapping, then by name. The mapping outlives the result.
Corrispondenza abbina(const tabelle::Tabella& tabella, Elenco elenco, const Mappatura& mappatura);

}  // namespace cu::intake
