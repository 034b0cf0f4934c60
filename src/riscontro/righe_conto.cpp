#include "riscontro/righe_conto.h"

#include <vector>

namespace cu::riscontro {

void perRiga(Connection& connessione, const std::string& domanda,
             const std::function<void(const Columns&)>& lega,
             const std::function<void(const RigaConto&)>& chiama) {
  RowStore righe;
  connessione.Query(domanda, righe);
  const Columns& colonne = *righe.columns();
  lega(colonne);
  std::vector<CellView> celle(colonne.size());
  for (std::size_t i = 0; i < righe.size(); ++i) {
    righe.read(i, celle.data());
    chiama(RigaConto(colonne, celle.data()));
  }
}

void perRiga(Connection& connessione, const std::string& domanda,
             const std::function<void(const RigaConto&)>& chiama) {
  perRiga(
      connessione, domanda, [](const Columns&) {}, chiama);
}

}  // namespace cu::riscontro
