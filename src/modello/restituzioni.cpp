#include "modello/restituzioni.h"

namespace cu::modello {

std::string fnColonnaPropria(std::string_view colonna, std::string_view vista, bool conTabella) {
  std::string testo = "NULL";
  if (conTabella) {
    testo = "(SELECT ";
    testo.append(colonna).append(" FROM ").append(kTabellaPropria).append(" CP WHERE ");
    std::string_view prima;
    for (const std::string_view chiave : {"IDAnagrafica", "IDCausalePagamento", "Anno", "IDAzienda"}) {
      testo.append(prima).append(vista).append(".").append(chiave).append(" = CP.").append(chiave);
      prima = " AND ";
    }
    testo += ")";
  }
  return testo.append(" AS ").append(colonna);
}

}  // namespace cu::modello
