#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/value.h"

// The rows that the user keeps: companies, payees, payments, and everything beside them that a company needs.
namespace cu::schede {

enum class TipoColonna : std::uint8_t { Intero, Id, Flag, Testo, Importo, Giorno };

struct ColonnaSuite {
  std::string_view nome;
  TipoColonna tipo = TipoColonna::Testo;
};

// A table whose rows this program writes: its first `chiavi` columns are the key.
struct TabellaSuite {
  std::string_view nome;
  std::size_t chiavi = 1;
  std::span<const ColonnaSuite> colonne;

  std::size_t posto(std::string_view colonna) const;  // raises std::logic_error for an unknown column
};

// A row: one value for each column of its table, in their order. An empty text, an id of 0 and day 0 are
// null.
using Riga = std::vector<Value>;

extern const TabellaSuite kAzienda;
extern const TabellaSuite kAnagrafica;
extern const TabellaSuite kComune;
extern const TabellaSuite kConfigurazioneGenerale;
extern const TabellaSuite kConfigurazioneCompensi;
extern const TabellaSuite kConfigurazioneContabile;
extern const TabellaSuite kConfigurazioneElenco;
extern const TabellaSuite kFiliale;
extern const TabellaSuite kAttivitaAzienda;
extern const TabellaSuite kAttivitaPerPeriodo;
extern const TabellaSuite kPeriodoIva;
extern const TabellaSuite kCodiceAttivita;
extern const TabellaSuite kFilialePredefinita;
extern const TabellaSuite kEnte;
extern const TabellaSuite kCategoriaEnte;
extern const TabellaSuite kCategoriaParticolare;
extern const TabellaSuite kEventoEccezionale;
extern const TabellaSuite kPercipiente;
extern const TabellaSuite kCompenso;
extern const TabellaSuite kConto;
extern const TabellaSuite kDatiAggiuntivi;  // the key and the code of the sums not subject only

// All of them.
std::span<const TabellaSuite* const> tabelleSuite();
// Null for a name that is none of them.
const TabellaSuite* tabellaSuite(std::string_view nome);

}  // namespace cu::schede
