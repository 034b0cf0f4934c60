#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/date.h"
#include "lettura/confronto.h"
#include "riscontro/ricevuta.h"
#include "riscontro/stato.h"
#include "suite/profilo.h"

namespace cu::strumenti {

inline constexpr std::size_t kOperazioni = 5;

// A certificate of a year, as the table shows it.
struct VoceMostrata {
  std::string percipiente;
  std::string nome;
  std::string causale;
  std::string stato;
  riscontro::Operazione operazione = riscontro::Operazione::Nessuna;
  std::string motivo;
  std::string protocollo;
  std::string progressivo;
  std::vector<lettura::CasellaDiversa> caselle;  // accepted and in the accounts
};

// The state of a year over a connection of its own. Errors of the database rise as they are.
struct StatoLetto {
  bool tabelle = false;            // otherwise nothing else is known
  std::vector<std::int32_t> anni;  // of the accounts and of the record, newest first
  std::int32_t anno = 0;
  std::vector<VoceMostrata> voci;
  std::array<std::size_t, kOperazioni> quante{};
};
// Of the newest year where none is asked for. `avanza` is called as it goes on, and may raise.
StatoLetto leggiStato(const Profilo& profilo, std::optional<std::int32_t> anno,
                      const std::function<void(const char* che, std::size_t fatti)>& avanza = {});

riscontro::PianoRicevuta pianoRicevuta(const Profilo& profilo,
                                       const std::vector<riscontro::RigaRicevuta>& righe);
// Plans again, and applies the plan where it is applicable; returns whether it was.
bool registraRicevuta(const Profilo& profilo, const std::vector<riscontro::RigaRicevuta>& righe);

// "+ nuova", "✓ nessuna": a sign and a word.
std::string detto(riscontro::Operazione operazione);
std::string detto(riscontro::EsitoRiga esito);

}  // namespace cu::strumenti
