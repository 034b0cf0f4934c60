#pragma once

#include <optional>

#include "data/database.h"
#include "host/conversioni.h"
#include "lettura/confronto.h"
#include "lettura/esame.h"
#include "riscontro/verifica.h"
#include "suite/profilo.h"

namespace cu {

using lettura::Coppia;
using lettura::EsitoConfronto;
using lettura::RiceviCoppia;

// The certificates of two files, in the order of the new one; then those that it does not have.
void confrontaFile(lettura::Sorgente& vecchio, lettura::Sorgente& nuovo, const RiceviCoppia& ricevi);

// A file (the old side) and the accounts of its year in the profile's form, in their order; then the
// certificates that the accounts do not have. Nothing where the file does not give its year. Errors of the
// database rise as they are.
std::optional<riscontro::EsitoVerifica> confrontaConConti(lettura::Sorgente& file, Connection& connessione,
                                                          const Profilo& profilo, const Conversioni& utilita,
                                                          const RiceviCoppia& ricevi);

}  // namespace cu
