#include <iostream>
#include <utility>

#include "apps/comune/codici_uscita.h"
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

}  // namespace

int comandoExport(const OpzioniExport& opzioni) {
  try {
    rifiutaDatabase("--output", opzioni.file, opzioni.database);
    DatabaseSuite database = apriDatabase(opzioni.database);
    intake::Esportazione esportate = esporta(database.ownConnection(), opzioni);
    tabelle::TabellaDaScrivere tabella;
    tabella.foglio = std::string(intake::nome(opzioni.elenco));
    for (const intake::Colonna& colonna : intake::colonne(opzioni.elenco))
      tabella.colonne.emplace_back(colonna.nome);
    tabella.righe = std::move(esportate.righe);
    const std::size_t righe = tabella.righe.size();
    scriviTabelle(opzioni.file, {std::move(tabella)});
    for (const std::string& tralasciato : esportate.tralasciati)
      std::cerr << "Tralasciato: " << tralasciato << '\n';
    std::cout << "Righe esportate: " << righe << ", in " << opzioni.file << '\n';
    return kRiuscito;
  } catch (const UsoSbagliato& errore) {
    return rifiutaUso(errore);
  }
}

}  // namespace cu
