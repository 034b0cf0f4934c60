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

// The possible commitments of an intermediary, as shown in a list.
inline constexpr std::array<std::string_view, 2> kImpegni = {
    "Comunicazione predisposta dal contribuente", "Comunicazione predisposta da chi effettua l'invio"};

// The maximum length of a fiscal code on the screen.
inline constexpr std::size_t kMassimoCodiceIntermediario = 16;

// The intermediary as shown on the screen.
struct Intermediario {
  std::string codiceFiscale;
  // Index in the list of commitments, -1 when none is chosen; stored plus 1. The stored value may be outside
  // the list.
  std::int64_t indiceImpegno = -1;
  std::string dataImpegno;  // "dd/mm/yyyy"; may be empty
};

// The company's stored intermediary; nullopt when there is none.
std::optional<Intermediario> fnLeggiIntermediario(Connection& connessione, std::int32_t idAzienda,
                                                  const Conversioni& utilita);
void sbScriviIntermediario(Connection& connessione, std::int32_t idAzienda,
                           const Intermediario& intermediario, const Conversioni& utilita);

}  // namespace cu
