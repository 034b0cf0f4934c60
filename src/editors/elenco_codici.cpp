#include "editors/elenco_codici.h"

#include <string_view>
#include <vector>

#include "liste/codici_per_anno.h"

namespace cu {

std::string fnElencoCodici(std::int32_t anno, const modello::Modello& modello) {
  std::string elenco =
      "SELECT IDCodicePerNonSoggetti, Codice + ' - ' + Descrizione AS Descrizione FROM CodicePerNonSoggetti";
  if (!modello::codiceDaScegliere(anno, modello)) return elenco;
  const CodiciPerAnno& codici = codiciNonSoggettiPerAnno();
  // Where the list is known in part, the database may have another code of the year.
  const bool completo = codici.completo(anno);
  std::string scelti;
  for (const std::string_view codice : codici.codici()) {
    if ((codici.di(codice, anno) == Validita::Nota) != completo) continue;
    scelti += scelti.empty() ? "'" : ", '";
    scelti += std::string(codice) + "'";
  }
  return elenco + " WHERE Codice " + (completo ? "IN (" : "NOT IN (") + scelti + ")";
}

}  // namespace cu
