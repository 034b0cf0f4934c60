#pragma once

#include <string>
#include <vector>

#include "riscontro/ricevuta.h"

namespace cu {

// The rows of a receipt: a text with separators or a workbook with the columns CodiceFiscale, Causale (may be
// missing), Protocollo, Progressivo, Esito, Motivo (may be missing). FileIlleggibile, tabelle::ErroreTabella.
std::vector<riscontro::RigaRicevuta> righeRicevuta(const std::string& percorso);

}  // namespace cu
