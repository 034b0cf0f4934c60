#include "editors/somma_lordo.h"

#include <algorithm>
#include <set>

#include "base/text.h"
#include "modello/regole.h"

namespace cu {

bool addendoDelLordo(std::string_view colonna) {
  return std::find(modello::kAddendiLordo.begin(), modello::kAddendiLordo.end(), colonna) !=
         modello::kAddendiLordo.end();
}

std::string fnCaselleDelLordo(std::span<const CampoEditor> campi) {
  std::set<int> numeri;
  for (const CampoEditor& campo : campi) {
    if (addendoDelLordo(campo.colonna)) numeri.insert(campo.numero);
  }
  std::string testo;
  for (const int numero : numeri) testo.append(testo.empty() ? "" : " + ").append(fromInteger(numero));
  return testo;
}

std::string fnNotaLordo(const std::string& caselle, Decimal somma, Decimal moduli, const AmountBox& lordo) {
  const Decimal tutto = somma + moduli;
  const Decimal differenza = lordo.number() - tutto;
  std::string testo = caselle + (moduli.isZero() ? "" : " + moduli") + " = " + lordo.inFull(tutto);
  testo += "\r\ndifferenza: ";
  if (differenza > Decimal()) testo += "+";
  return testo + lordo.inFull(differenza);
}

}  // namespace cu
