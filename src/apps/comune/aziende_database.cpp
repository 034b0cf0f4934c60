#include "apps/comune/aziende_database.h"

#include <set>

#include "data/recordset.h"

namespace cu {

std::vector<AziendaTrovata> aziendeDelDatabase(Connection& connessione) {
  Recordset righe;
  righe.Open(connessione,
             "SELECT Azienda.IDAzienda, Filiale.IDFiliale, Anagrafica.Anagrafica, CASE WHEN "
             "ISNULL(Anagrafica.CodiceFiscale, '') = '' THEN Anagrafica.PartitaIva ELSE "
             "Anagrafica.CodiceFiscale END "
             "AS CodFisc, (SELECT MAX(ContoIndividuale.Anno) FROM ContoIndividuale WHERE "
             "ContoIndividuale.IDAzienda = "
             "Azienda.IDAzienda) AS UltimoAnno FROM Azienda INNER JOIN Anagrafica "
             "ON Azienda.IDAnagrafica = Anagrafica.IDAnagrafica LEFT JOIN Filiale ON Filiale.IDAzienda = "
             "Azienda.IDAzienda ORDER BY Anagrafica.Anagrafica, Filiale.IDFiliale");
  std::vector<AziendaTrovata> aziende;
  std::set<std::int32_t> note;
  for (; !righe.Eof(); righe.MoveNext()) {
    const auto azienda = static_cast<std::int32_t>(righe.Get(0).integer());
    if (!note.insert(azienda).second) continue;
    aziende.push_back({azienda, static_cast<std::int32_t>(righe.Get(1).integer()), righe.Get(2).toText(),
                       righe.Get(3).toText(), righe.Get(4).toText()});
  }
  return aziende;
}

}  // namespace cu
