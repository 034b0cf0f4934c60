#include "apps/comune/colonne_percipienti.h"

#include "apps/comune/connessioni.h"
#include "data/recordset.h"
#include "worklist/elenchi.h"

namespace cu {
namespace {

FurtherColumns::Texts leggi(Connection& connessione, const std::string& filtro, bool conNome) {
  Recordset righe;
  righe.Open(
      connessione,
      "SELECT Anagrafica.IDAnagrafica, Anagrafica.Nome, Anagrafica.CodiceFiscale FROM Anagrafica "
      "INNER JOIN Percipiente ON Anagrafica.IDAnagrafica = Percipiente.IDAnagrafica WHERE Percipiente." +
          filtro);
  FurtherColumns::Texts testi;
  testi.reserve(righe.RecordCount());
  for (; !righe.Eof(); righe.MoveNext()) {
    std::vector<std::string>& suoi = testi[righe.Get(0).integer()];
    if (conNome) suoi.push_back(righe.Get(1).toText());
    suoi.push_back(righe.Get(2).toText());
  }
  return testi;
}

}  // namespace

FurtherColumns colonnePercipienti(const Profilo::Database& database, const LookupTable& elenco) {
  const LookupTable percipienti = elencoPercipienti(0);
  if (elenco.table != percipienti.table || elenco.filter.empty() || chiedePassword(database)) return {};
  // A list whose descriptions are whole names has the first name already.
  const bool conNome = elenco.descriptionField == percipienti.descriptionField;
  FurtherColumns colonne;
  if (conNome) colonne.captions.emplace_back("Nome");
  colonne.captions.emplace_back("Codice fiscale");
  colonne.read = [database, filtro = elenco.filter, conNome] {
    return leggi(*apriConnessione(database), filtro, conNome);
  };
  return colonne;
}

}  // namespace cu
