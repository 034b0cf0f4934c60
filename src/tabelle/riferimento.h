#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "tabelle/tabella.h"

namespace cu::tabelle {

// A cell's place in a sheet, from 1.
struct Riferimento {
  std::size_t riga = 0;
  std::size_t colonna = 0;
};

// "AB12"; nullopt for what is no place of a sheet.
std::optional<Riferimento> analizzaRiferimento(std::string_view testo);

struct Unione {
  Riferimento prima;
  Riferimento ultima;
};

// "A1:C3"; nullopt for any other text.
std::optional<Unione> analizzaUnione(std::string_view testo);

// Empties all merged cells but the first of each group. The rows are in order. Returns false when there is
// more to do than groups without a common cell can need.
bool svuotaUnite(std::vector<RigaTabella>& righe, const std::vector<Unione>& unioni);

}  // namespace cu::tabelle
