#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/error.h"
#include "host/filtri.h"

namespace cu {

class Conversioni;

// The statements of the work table, each as sent.

std::string fnNomeTabellaLavoro(std::int32_t idUtente);
std::string fnEliminaTabella(const std::string& nome);
// `proprie`: with the columns of boxes that the suite does not have.
std::string fnCreaTabella(const std::string& nome, bool proprie = false);

// The error texts for a table recreated by another session of the same user: for a statement on one line that
// affects no row, and for a write-back that stores an unexpected number of rows.
std::string fnRigaMancante();
std::string fnCorrezioniMancanti(std::int64_t righe, std::int64_t attese);
// What identifies each line, and what the user has done to it; and the text for other lines than those
// loaded.
std::string fnRigheLavoro(const std::string& nome);
std::string fnTabellaAltrui();
// The corresponding text for a database error caused by it; nullopt for any other error.
std::optional<std::string> fnAltraSessione(const DatabaseError& errore, const std::string& nome);

// The ranges of payees and payment reasons as conditions, each " AND ..."; `causale` is the name of the
// reason's code column.
std::string fnIntervalli(const Filtri& filtri, const std::string& causale, const Conversioni& utilita);
// How the columns of the program's own boxes are loaded.
enum class CaselleProprie : std::uint8_t { Nessuna, Vuote, Lette };
// The SELECT that fills the table, with the filter of the first step.
std::string fnSelectCompensi(const Filtri& filtri, std::int32_t idAzienda, const Conversioni& utilita,
                             CaselleProprie proprie = CaselleProprie::Nessuna);

}  // namespace cu
