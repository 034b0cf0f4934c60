#pragma once

#include <cstdint>
#include <optional>

#include "data/database.h"
#include "host/conversioni.h"
#include "lettura/confronto.h"
#include "lettura/esame.h"
#include "riscontro/verifica.h"

namespace cu {

using lettura::Coppia;
using lettura::EsitoConfronto;
using lettura::RiceviCoppia;

// The certificates of two files, in the order of the new one; then those that it does not have.
void confrontaFile(lettura::Sorgente& vecchio, lettura::Sorgente& nuovo, const RiceviCoppia& ricevi);

// A file (the old side) and the accounts of its year, in their order; then the certificates that the accounts
// do not have. Nothing where the file does not give its year. Errors of the database rise as they are.
std::optional<riscontro::EsitoVerifica> confrontaConConti(lettura::Sorgente& file, Connection& connessione,
                                                          std::int32_t idAzienda, const Conversioni& utilita,
                                                          const RiceviCoppia& ricevi);

}  // namespace cu
