#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "data/database.h"

namespace cu {

class Conversioni;

// The commitments that an intermediary may have, as a list shows them.
inline constexpr std::array<std::string_view, 2> kImpegni = {
    "Comunicazione predisposta dal contribuente", "Comunicazione predisposta da chi effettua l'invio"};

// How many characters of a fiscal code the screen takes.
inline constexpr std::size_t kMassimoCodiceIntermediario = 16;

// The intermediary as the screen shows it.
struct Intermediario {
  std::string codiceFiscale;
  // Of the list of commitments, -1 when none is chosen; stored plus 1. It may be one that the list has not.
  std::int64_t indiceImpegno = -1;
  std::string dataImpegno;  // "dd/mm/yyyy"; may be empty
};

// The company's stored intermediary; nothing when it has none.
std::optional<Intermediario> fnLeggiIntermediario(Connection& connessione, std::int32_t idAzienda,
                                                  const Conversioni& utilita);
void sbScriviIntermediario(Connection& connessione, std::int32_t idAzienda,
                           const Intermediario& intermediario, const Conversioni& utilita);

}  // namespace cu
