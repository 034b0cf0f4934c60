#include "modello/moduli.h"

#include "base/text.h"

namespace cu::modello {

std::string fnDoveConto(const ChiaveConto& chiave, std::string_view prefisso) {
  std::string testo;
  for (const ParteChiave& parte : chiave) {
    testo.append(testo.empty() ? " WHERE " : " AND ").append(prefisso).append(parte.colonna);
    testo.append(" = ").append(fromInteger(parte.valore));
  }
  return testo;
}

std::string fnSelectModuli(const ChiaveConto& chiave, std::string_view colonne, std::string_view legami) {
  std::string testo = "SELECT ModuloXContoIndividuale.*, CodicePerNonSoggetti.Codice AS CodicePerNonSoggetti";
  testo.append(colonne);
  testo +=
      " FROM ModuloXContoIndividuale LEFT JOIN CodicePerNonSoggetti"
      " ON ModuloXContoIndividuale.IDCodicePerNonSoggetti = CodicePerNonSoggetti.IDCodicePerNonSoggetti";
  return testo.append(legami).append(fnDoveConto(chiave, "ModuloXContoIndividuale."));
}

}  // namespace cu::modello
