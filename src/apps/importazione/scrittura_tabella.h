#pragma once

#include <string>
#include <vector>

#include "suite/platform_file.h"
#include "tabelle/scrittura.h"

namespace cu {

// Whether a name ends in .csv or .xlsx, in any case.
bool fileDiTabella(const std::string& file);
// Whether the file of that name holds one table alone: it ends in .csv.
bool fileDiUnaTabella(const std::string& file);

// Writes tables as the file's ending asks: a workbook with a sheet for each, or the first as a text.
// `lettori` can read a new file. Raises Error.
void scriviTabelle(const std::string& file, const std::vector<tabelle::TabellaDaScrivere>& tabelle,
                   NewFile lettori);

}  // namespace cu
