#pragma once

#include <string_view>
#include <vector>

#include "tabelle/lettura.h"

namespace cu::tabelle {

// Of an archive that is known to be one. Raise ErroreTabella.
Tabella leggiXlsx(std::string_view byte, std::string_view nome, const OpzioniLettura& opzioni);
std::vector<Foglio> fogliDiXlsx(std::string_view byte, std::string_view nome, const Limiti& limiti);

}  // namespace cu::tabelle
