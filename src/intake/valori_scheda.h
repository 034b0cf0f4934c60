#pragma once

#include <array>
#include <vector>

#include "base/value.h"
#include "intake/colonne.h"
#include "intake/piano.h"
#include "schede/elenchi.h"
#include "schede/luoghi.h"

namespace cu::intake {

// The columns of the amounts of a payment, in the order of schede::Importo.
inline constexpr auto kColonneImporti = std::to_array<ColonnaCompenso>(
    {ColonnaCompenso::Onorario, ColonnaCompenso::QuotaNonSoggetta, ColonnaCompenso::SommeNonSoggette,
     ColonnaCompenso::SommeRegimeConvenzionale, ColonnaCompenso::RitenutaAcconto,
     ColonnaCompenso::RitenutaImposta, ColonnaCompenso::ContributoPrevidenziale,
     ColonnaCompenso::ContributoPercipiente});
static_assert(kColonneImporti.size() == schede::kImporti);

// Records as rows of the tables that can be imported: one value for each column of the list, null for a cell
// without one. Read again, they give the same records.
std::vector<Value> valoriAzienda(const schede::SchedaAzienda& azienda, const AccantoAzienda& accanto,
                                 const schede::Luoghi& luoghi, const schede::Elenchi& elenchi);
std::vector<Value> valoriPercipiente(const schede::SchedaPercipiente& percipiente,
                                     const AccantoPercipiente& accanto, const schede::Luoghi& luoghi,
                                     const schede::Elenchi& elenchi);
std::vector<Value> valoriCompenso(const schede::SchedaCompenso& compenso,
                                  const schede::SchedaPercipiente* percipiente,
                                  std::int32_t idCodiceNonSoggette, const schede::Elenchi& elenchi);

}  // namespace cu::intake
