#include <algorithm>
#include <iostream>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "apps/comune/codici_uscita.h"
#include "apps/comune/tabella_sostituibile.h"
#include "apps/importa/database_importa.h"
#include "apps/importazione/scrittura_tabella.h"
#include "intake/esporta.h"

namespace cu {
namespace {

intake::Esportazione esporta(Connection& connessione, const OpzioniExport& opzioni) {
  std::optional<std::int32_t> azienda;
  if (!opzioni.azienda.empty()) azienda = aziendaDi(connessione, opzioni.azienda);
  switch (opzioni.elenco) {
    case intake::Elenco::Aziende:
      return intake::esportaAziende(connessione, azienda);
    case intake::Elenco::Percipienti:
      return intake::esportaPercipienti(connessione, azienda.value());
    case intake::Elenco::Compensi:
      break;
  }
  return intake::esportaCompensi(connessione, azienda.value(), opzioni.anno);
}

// The table that is written: without the rare columns that no row has a value for.
tabelle::TabellaDaScrivere tabellaDi(intake::Esportazione&& esportate) {
  tabelle::TabellaDaScrivere tabella;
  tabella.foglio = std::string(intake::nome(esportate.elenco));
  tabella.righe = std::move(esportate.righe);
  const std::span<const intake::Colonna> colonne = intake::colonne(esportate.elenco);
  for (std::size_t i = colonne.size(); i-- > 0;) {
    const bool vuota = std::none_of(tabella.righe.begin(), tabella.righe.end(),
                                    [i](const auto& riga) { return !riga[i].view().isNull(); });
    if (!colonne[i].rara || !vuota) {
      tabella.colonne.emplace(tabella.colonne.begin(), colonne[i].nome);
      continue;
    }
    for (std::vector<Value>& riga : tabella.righe) riga.erase(riga.begin() + static_cast<std::ptrdiff_t>(i));
  }
  return tabella;
}

}  // namespace

int comandoExport(const OpzioniExport& opzioni) {
  try {
    rifiutaDatabase("--output", opzioni.file, opzioni.database);
    if (const std::string motivo = tabellaRifiutata(opzioni.file); !motivo.empty()) {
      std::cerr << motivo << '\n';
      return kRifiutato;
    }
    DatabaseSuite database = apriDatabase(opzioni.database, &apriPerLeggere);
    intake::Esportazione esportate = esporta(database.ownConnection(), opzioni);
    const std::size_t righe = esportate.righe.size();
    const std::vector<std::string> tralasciati = std::move(esportate.tralasciati);
    scriviTabelle(opzioni.file, {tabellaDi(std::move(esportate))}, NewFile::OwnerOnly);
    for (const std::string& tralasciato : tralasciati) std::cerr << "Tralasciato: " << tralasciato << '\n';
    std::cout << "Righe esportate: " << righe << ", in " << opzioni.file << '\n';
    return kRiuscito;
  } catch (const UsoSbagliato& errore) {
    return rifiutaUso(errore);
  }
}

}  // namespace cu
