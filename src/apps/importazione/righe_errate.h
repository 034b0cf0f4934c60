#pragma once

#include <cstddef>
#include <vector>

#include "intake/piano.h"
#include "tabelle/scrittura.h"

namespace cu {

// The files of a plan, by their number, that have rows which stop the import: errors, what is to be decided,
// and rows that are there with other values unless the plan says what becomes of them.
std::vector<std::size_t> fileConRigheErrate(const intake::Piano& piano);

// Those rows of a file as they are in its table, with a column more, "Errore": what is wrong with them. Put
// right, the table can be imported by itself.
tabelle::TabellaDaScrivere righeErrate(const intake::Piano& piano, std::size_t file,
                                       const tabelle::Tabella& tabella);

}  // namespace cu
