#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/error.h"
#include "host/filtri.h"

namespace cu {

class Conversioni;

// The statements of the work table, each as it is sent.

std::string fnNomeTabellaLavoro(std::int32_t idUtente);
std::string fnEliminaTabella(const std::string& nome);
std::string fnCreaTabella(const std::string& nome);

// What is said where another session of the same user has made the table anew: of a statement on one line
// that touches none, and of a write-back that stores another number of rows than it should have.
std::string fnRigaMancante();
std::string fnCorrezioniMancanti(std::int64_t righe, std::int64_t attese);
// The same of an error of the database that comes of it; nothing for any other error.
std::optional<std::string> fnAltraSessione(const DatabaseError& errore, const std::string& nome);

// The ranges of payees and payment reasons as conditions, each " AND ..."; `causale` is the column of the
// reason's code.
std::string fnIntervalli(const Filtri& filtri, const std::string& causale, const Conversioni& utilita);
// The SELECT that fills it, with the filter of the first step.
std::string fnSelectCompensi(const Filtri& filtri, std::int32_t idAzienda, const Conversioni& utilita);

}  // namespace cu
