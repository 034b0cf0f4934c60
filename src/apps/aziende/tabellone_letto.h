#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "apps/aziende/scelta_aziende.h"
#include "base/date.h"
#include "modello/modello.h"
#include "riscontro/scadenze.h"
#include "riscontro/tabellone.h"

namespace cu {

// A line of the board: a year of a company, and what is due of it.
struct VoceTabellone {
  std::size_t database = 0;  // its place in the list
  AziendaTrovata azienda;
  riscontro::RigaTabellone riga;
  riscontro::Termini termini;
  bool registro = false;  // whether the database keeps what was written
};

struct RichiestaTabellone {
  std::vector<std::string> richieste;                   // companies, as for scegliAziende
  std::optional<std::int32_t> anno;                     // all years without it
  Date oggi;                                            // for what is late
  const modello::Modello& modello = modello::kModello;  // the form of the files
  // How many lines there will be, how many are read; may raise.
  std::function<void(std::size_t righe, std::size_t lette)> avanza = {};
};
// By database, company, and year with the newest first. SceltaErrata and errors of the database rise as they
// are.
std::vector<VoceTabellone> leggiTabellone(const std::vector<DatabaseScelto>& database,
                                          const RichiestaTabellone& richiesta);

// "7/3/2018 A, M (12); 31/10/2018 se non utilizzabili nel 730 (12)"
std::string dettiTermini(const riscontro::Termini& termini);

}  // namespace cu
