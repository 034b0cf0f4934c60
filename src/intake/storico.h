#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/result.h"
#include "data/database.h"
#include "intake/piano.h"

namespace cu::intake {

struct FileImportato {
  std::string nome;
  std::uint64_t dimensione = 0;
  std::string sha256;
};

// A batch of the history.
struct Lotto {
  std::int32_t id = 0;
  Elenco elenco = Elenco::Compensi;
  std::int32_t idAzienda = 0;  // 0 for companies
  std::string momento;         // "2018-03-05 10:30:00"
  std::string utente;
  bool annullato = false;
  std::array<std::size_t, kStatiRiga> conteggi{};
  std::vector<FileImportato> file;
};

// The batches of a company and those of companies, or all; the first one first. Empty where the database has
// no history.
std::vector<Lotto> storico(Connection& connessione, std::optional<std::int32_t> idAzienda);

// Whether the database has the tables by which batches are listed and undone: one that was made before
// invoices could be imported lacks that of their contents.
bool haStoricoLeggibile(Connection& connessione);

// Whether the database has all tables of the history, which an import needs.
bool haStorico(Connection& connessione);

// Refused: a database that this program has not created unless the request says so, one without history, and
// a company that is not there.
Result<> prontoPerImportare(Connection& connessione, Elenco elenco, const RichiestaPiano& richiesta);

}  // namespace cu::intake
