#include "data/presenza.h"

#include <string>

#include "data/inserimento.h"
#include "data/rowstore.h"

namespace cu {

bool haTabella(Connection& connessione, std::string_view nome) {
  std::string domanda = "SELECT COUNT(*) FROM dbo.sysobjects WHERE type = 'U' AND name = ";
  appendTesto(domanda, nome);
  RowStore righe;
  connessione.Query(domanda, righe);
  CellView quante;
  righe.read(0, &quante);
  return quante.integer() > 0;
}

}  // namespace cu
