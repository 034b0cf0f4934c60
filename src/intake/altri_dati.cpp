#include "intake/altri_dati.h"

#include <algorithm>
#include <string>
#include <vector>

#include "base/text.h"
#include "schede/tabelle_suite.h"

namespace cu::intake {
namespace {

constexpr std::string_view kColonnaCodice = "IDCodicePerNonSoggetti";

bool diChiave(std::string_view colonna) {
  const auto chiavi = schede::kDatiAggiuntivi.colonne.first(schede::kDatiAggiuntivi.chiavi);
  return std::any_of(chiavi.begin(), chiavi.end(),
                     [&](const auto& una) { return equalsNoCase(una.nome, colonna); });
}

bool vuota(const CellView& cella) {
  if (cella.isNull()) return true;
  return cella.type() == ValueType::Text ? cella.text().empty() : cella.decimal().isZero();
}

}  // namespace

std::int64_t quantiAltriDati(Connection& connessione, std::string_view condizione) {
  RowStore righe;
  connessione.Query("SELECT * FROM ContoIndividualeDatiAggiuntivi" + std::string(condizione), righe);
  std::vector<std::size_t> altre;
  for (std::size_t i = 0; i < righe.columns()->size(); ++i) {
    const std::string& colonna = (*righe.columns())[i].name;
    if (!diChiave(colonna) && !equalsNoCase(colonna, kColonnaCodice)) altre.push_back(i);
  }
  std::vector<CellView> celle(righe.columns()->size());
  std::int64_t quanti = 0;
  for (std::size_t i = 0; i < righe.size(); ++i) {
    righe.read(i, celle.data());
    if (std::any_of(altre.begin(), altre.end(), [&](std::size_t altra) { return !vuota(celle[altra]); }))
      ++quanti;
  }
  return quanti;
}

}  // namespace cu::intake
