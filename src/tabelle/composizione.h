#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tabelle/lettura.h"

namespace cu::tabelle {

// Tests whether there are only blanks, line ends, tabs and no-break spaces.
bool soloBianchi(std::string_view testo);
bool haContenuto(const RigaTabella& riga);

// Completes a table that has its names from all rows with content: chooses the heading, drops what is above
// it and reports cells beyond it. Raises ErroreTabella F01.
void componi(Tabella& tabella, std::vector<RigaTabella> righe, const OpzioniLettura& opzioni);

// Raise ErroreTabella F05 at the place. `testo` is the text of a cell.
void verificaLunghezza(std::string_view testo, const Limiti& limiti, const Posto& posto,
                       const std::string& consiglio = {});
[[noreturn]] void troppeColonne(const Limiti& limiti, const Posto& posto);
[[noreturn]] void troppeRighe(const Limiti& limiti, const Posto& posto);

}  // namespace cu::tabelle
