#pragma once

#include <vector>

#include "tabelle/cartella_xlsx.h"
#include "tabelle/deposito.h"
#include "tabelle/lettura.h"

namespace cu::tabelle {

struct RigheFoglio {
  std::vector<RigaTabella> righe;     // with content, in order
  std::vector<std::size_t> nascoste;  // numbers of the hidden ones, in order
};

// Reads the cells of a sheet; texts of its own are put into the store. Raises ErroreTabella.
RigheFoglio leggiFoglio(CartellaXlsx& cartella, const FoglioXlsx& foglio, const Posto& posto,
                        Deposito& deposito, const Limiti& limiti);

}  // namespace cu::tabelle
