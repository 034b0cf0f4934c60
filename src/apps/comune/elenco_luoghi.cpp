#include "apps/comune/elenco_luoghi.h"

#include <algorithm>

#include "base/codice_fiscale.h"
#include "liste/liste.h"

namespace cu {

ElencoLuoghi::ElencoLuoghi() {
  for (const ComuneInLista& comune : comuni()) {
    nomi_[std::string(comune.catasto)].push_back(lettereDiCodice(comune.nome));
  }
  for (const NazioneInLista& nazione : nazioni()) {
    if (!nazione.catasto.empty())
      nomi_[std::string(nazione.catasto)].push_back(lettereDiCodice(nazione.nome));
  }
}

std::optional<bool> ElencoLuoghi::haNome(std::string_view catastale, std::string_view nome) const {
  const auto suoi = nomi_.find(std::string(catastale));
  if (suoi == nomi_.end()) return std::nullopt;
  const auto suo = [&](std::string_view parte) {
    return std::find(suoi->second.begin(), suoi->second.end(), lettereDiCodice(parte)) != suoi->second.end();
  };
  const std::size_t barra = nome.find('/');
  if (suo(nome)) return true;
  return barra != std::string_view::npos && (suo(nome.substr(0, barra)) || suo(nome.substr(barra + 1)));
}

}  // namespace cu
