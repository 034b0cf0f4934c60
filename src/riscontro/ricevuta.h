#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/date.h"
#include "riscontro/registro.h"

// The authority's answer on the certificates that were sent: a plan first, then its application.
namespace cu::riscontro {

// A row of the receipt as it was read; texts without blanks at their ends.
struct RigaRicevuta {
  std::int64_t riga = 0;  // in the table, its header counted
  std::string codiceFiscale;
  std::string causale;  // may be empty
  std::string protocollo;
  std::string progressivo;
  std::string esito;
  std::string motivo;
};

enum class EsitoRiga : std::uint8_t { Nuovo, Uguale, DaDecidere, Errore };
inline constexpr std::size_t kEsitiRiga = 4;

struct RigaPiano {
  RigaRicevuta letta;
  EsitoRiga esito = EsitoRiga::Nuovo;
  std::string colonna;  // of the message
  std::string codice;   // of the message; "" without one
  std::string testo;
  std::size_t registrata = 0;  // of the plan's, where the outcome is new or equal
};

struct PianoRicevuta {
  std::vector<Invio> invii;  // the company's
  std::vector<RigaPiano> righe;
  std::vector<Registrata> registrate;   // as they will be
  std::vector<std::size_t> cambiate;    // of these
  std::vector<std::int64_t> daSegnare;  // files that are not marked as sent yet
  std::size_t quanti(EsitoRiga esito) const;
  bool applicabile() const { return quanti(EsitoRiga::Errore) + quanti(EsitoRiga::DaDecidere) == 0; }
  std::size_t nuovi(
      std::string_view esito) const;          // the new rows with that answer, "accettata" or "scartata"
  const Invio& invio(std::int64_t id) const;  // of these; it must be there
  // The file that the row answers; null where the row is an error or to be decided.
  const Invio* invioDi(const RigaPiano& riga) const;
};

// A row belongs to the latest sent certificate of its payee and reason.
PianoRicevuta pianifica(Registro& registro, std::int32_t idAzienda, const std::vector<RigaRicevuta>& righe);

// In one transaction. Only for a plan that is applicable.
void applica(Registro& registro, const PianoRicevuta& piano, Date giorno);

}  // namespace cu::riscontro
