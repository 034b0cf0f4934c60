#include "worklist/restituzioni.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "base/error.h"
#include "base/text.h"
#include "data/inserimento.h"
#include "data/presenza.h"
#include "data/recordset.h"
#include "data/transazione.h"
#include "modello/restituzioni.h"

namespace cu {
namespace {

using modello::ChiaveConto;

constexpr std::string_view kImportoRestituito = "SommeRestituite";

ChiaveConto contoDi(const Recordset& riga) {
  const auto id = [&](std::string_view colonna) {
    return modello::ParteChiave{colonna, riga.Get(colonna).integer()};
  };
  return {id("Anno"), id("IDAnagrafica"), id("IDAzienda"), id("IDCausalePagamento")};
}

bool stesso(const ChiaveConto& uno, const ChiaveConto& altro) {
  return std::equal(uno.begin(), uno.end(), altro.begin(),
                    [](const auto& a, const auto& b) { return a.valore == b.valore; });
}

// Of one company, in one year or all.
std::vector<Restituzione> memorizzate(Connection& connessione, const Ambito& ambito, std::string_view anno) {
  std::string domanda = "SELECT IDAnagrafica, IDCausalePagamento, Anno, IDAzienda, SommeRestituite FROM ";
  domanda += modello::kTabellaPropria;
  domanda += " WHERE IDAzienda = " + fromInteger(ambito.idAzienda);
  if (!anno.empty()) domanda.append(" AND Anno = ").append(anno);
  Recordset righe;
  righe.Open(connessione, domanda);
  std::vector<Restituzione> trovate;
  for (; !righe.Eof(); righe.MoveNext()) {
    trovate.push_back({contoDi(righe), righe.Get(kImportoRestituito).decimal()});
  }
  return trovate;
}

}  // namespace

void riempiRestituzioni(const Ambito& ambito, const std::string& tabella, const Filtri& filtri) {
  Connection& connessione = ambito.database->ownConnection();
  if (!haTabella(connessione, modello::kTabellaPropria)) return;
  for (const Restituzione& una : memorizzate(connessione, ambito, trim(filtri.anno))) {
    connessione.Execute("UPDATE " + tabella + " SET SommeRestituite = " + una.importo.toFixed(4, '.') +
                        modello::fnDoveConto(una.conto));
  }
}

std::vector<Restituzione> restituzioniCambiate(const Ambito& ambito, const Recordset& righe) {
  std::vector<Restituzione> cambiate;
  if (!righe.IsOpen()) return cambiate;
  Connection& connessione = ambito.database->ownConnection();
  const bool conTabella = haTabella(connessione, modello::kTabellaPropria);
  std::vector<Restituzione> prima;
  if (conTabella) prima = memorizzate(connessione, ambito, {});
  const auto scelte = righe.Clone();
  scelte->SetFilter("Modificato <> 0 AND Selezionato <> 0");
  for (; !scelte->Eof(); scelte->MoveNext()) {
    const Restituzione adesso{contoDi(*scelte), scelte->Get(kImportoRestituito).decimal()};
    const auto sua = std::find_if(prima.begin(), prima.end(),
                                  [&](const Restituzione& una) { return stesso(una.conto, adesso.conto); });
    if (adesso.importo != (sua == prima.end() ? Decimal() : sua->importo)) cambiate.push_back(adesso);
  }
  if (!cambiate.empty() && !conTabella) {
    throw Error(kErrorItemNotFound,
                "Nel database manca la tabella della casella 22, le somme restituite: la aggiunge «cuctl "
                "upgrade». Non è stata memorizzata nessuna correzione.");
  }
  return cambiate;
}

void scriviRestituzioni(const Ambito& ambito, const std::vector<Restituzione>& cambiate) {
  Connection& connessione = ambito.database->ownConnection();
  Transazione transazione(connessione);
  Inserimento inserimento(connessione, modello::kTabellaPropria,
                          {"Anno", "IDAnagrafica", "IDAzienda", "IDCausalePagamento", kImportoRestituito});
  for (const Restituzione& una : cambiate) {
    connessione.Execute("DELETE FROM " + std::string(modello::kTabellaPropria) +
                        modello::fnDoveConto(una.conto));
    if (una.importo.isZero()) continue;
    for (const modello::ParteChiave& parte : una.conto) inserimento.intero(parte.valore);
    inserimento.importo(una.importo).riga();
  }
  inserimento.chiudi();
  transazione.conferma();
}

}  // namespace cu
