#include "tabelle/lettura.h"

#include "base/text.h"
#include "tabelle/csv.h"
#include "tabelle/errore.h"
#include "tabelle/formato.h"
#include "tabelle/xlsx.h"

namespace cu::tabelle {
namespace {

Contenitore contenitore(std::string_view byte, std::string_view nome, const Limiti& limiti) {
  if (byte.size() > limiti.byte) {
    throw ErroreTabella(
        "F05", {std::string(nome), {}, 0, 0},
        "Il file supera " + fromInteger(static_cast<std::int64_t>(limiti.byte >> 20U)) + " MB");
  }
  const Contenitore esito = riconosci(byte, nome);
  if (esito == Contenitore::Ole) rifiutaOle(byte, nome);
  return esito;
}

}  // namespace

Tabella leggiTabella(std::string_view byte, std::string_view nome, const OpzioniLettura& opzioni) {
  return contenitore(byte, nome, opzioni.limiti) == Contenitore::Zip ? leggiXlsx(byte, nome, opzioni)
                                                                     : leggiCsv(byte, nome, opzioni);
}

std::vector<Foglio> fogliDi(std::string_view byte, std::string_view nome, const Limiti& limiti) {
  if (contenitore(byte, nome, limiti) != Contenitore::Zip) return {};
  return fogliDiXlsx(byte, nome, limiti);
}

}  // namespace cu::tabelle
