#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "modello/modello.h"

namespace cu::modello {

// The boxes of the later forms that no column of the suite holds. Their amounts lie in a table of this
// program's own, one row an account; the database may not have it.
inline constexpr std::string_view kTabellaPropria = "CuRestituzione";

// Whether the form has such boxes.
constexpr bool haCaselleProprie(const Modello& modello) {
  return std::any_of(modello.campi.begin(), modello.campi.end(), [&](const Campo& campo) {
    return campo.riscrittura == Riscrittura::Propria && raggiunge(modello, campo);
  });
}

// "(SELECT ...) AS SommeRestituite" for a row of the view, or "NULL AS SommeRestituite" without the table.
std::string fnColonnaPropria(std::string_view colonna, std::string_view vista, bool conTabella);

}  // namespace cu::modello
