#pragma once

#include <string>
#include <vector>

#include "intake/colonne.h"
#include "tabelle/scrittura.h"

namespace cu {

// The table of a kind to be filled in: its columns with an example row, and as a second one what each column
// accepts.
std::vector<tabelle::TabellaDaScrivere> modelloTabella(intake::Elenco elenco);

// Writes it as the file's ending asks (scrittura_tabella.h). Raises Error.
void scriviModello(const std::string& file, intake::Elenco elenco);

}  // namespace cu
