#include "intake/esporta.h"

#include <map>
#include <set>
#include <unordered_map>
#include <utility>

#include "base/text.h"
#include "intake/archivio_letto.h"
#include "intake/valori_scheda.h"
#include "schede/aziende.h"
#include "schede/conteggio.h"
#include "schede/percipienti.h"

namespace cu::intake {
namespace {

std::string dettaLasciata(std::int64_t quante, const char* cosa) { return fromInteger(quante) + " " + cosa; }

// What belongs to accounts and has no column.
void lasciati(Connection& connessione, const ArchivioLetto& archivio, std::int32_t idAzienda,
              std::optional<int> anno, const std::set<ChiaveConto>& conPagamenti,
              std::vector<std::string>& tralasciati) {
  std::string suoi = " WHERE IDAzienda = " + fromInteger(idAzienda);
  if (anno) suoi += " AND Anno = " + fromInteger(*anno);
  std::int64_t senza = 0;
  for (const auto& [chiave, conto] : archivio.conti) {
    if (!conto.importi || (anno && chiave.anno != *anno)) continue;
    if (!conPagamenti.contains(chiave)) ++senza;
  }
  if (senza > 0) tralasciati.push_back(dettaLasciata(senza, "conti senza compensi"));
  const auto conta = [&](const char* tabella, const char* cosa) {
    const std::int64_t quante = schede::quante(connessione, tabella, suoi);
    if (quante > 0) tralasciati.push_back(dettaLasciata(quante, cosa));
  };
  conta("ContoIndividualeDatiAggiuntivi",
        "conti con dati aggiuntivi, dei quali resta il codice delle somme non soggette");
  conta("ModuloXContoIndividuale", "moduli aggiuntivi");
}

}  // namespace

Esportazione esportaAziende(Connection& connessione, std::optional<std::int32_t> idAzienda) {
  const schede::Luoghi luoghi(connessione);
  const schede::Elenchi elenchi(connessione);
  Esportazione esportazione;
  esportazione.elenco = Elenco::Aziende;
  for (const schede::SchedaAzienda& azienda : schede::Aziende(connessione).tutte()) {
    if (idAzienda && azienda.id != *idAzienda) continue;
    esportazione.righe.push_back(valoriAzienda(azienda, luoghi, elenchi));
  }
  return esportazione;
}

Esportazione esportaPercipienti(Connection& connessione, std::int32_t idAzienda) {
  const schede::Luoghi luoghi(connessione);
  const schede::Elenchi elenchi(connessione);
  Esportazione esportazione;
  esportazione.elenco = Elenco::Percipienti;
  for (const schede::SchedaPercipiente& percipiente : schede::Percipienti(connessione, idAzienda).tutti()) {
    esportazione.righe.push_back(valoriPercipiente(percipiente, {}, luoghi, elenchi));
  }
  return esportazione;
}

Esportazione esportaCompensi(Connection& connessione, std::int32_t idAzienda, std::optional<int> anno) {
  RichiestaPiano richiesta;
  richiesta.idAzienda = idAzienda;
  const ArchivioLetto archivio(connessione, Elenco::Compensi, richiesta);
  std::unordered_map<std::int32_t, const schede::SchedaPercipiente*> percipienti;
  for (const schede::SchedaPercipiente& p : archivio.percipienti) percipienti.emplace(p.anagrafica.id, &p);
  std::unordered_map<std::int32_t, std::string> riferimenti;
  for (const auto& [riferimento, id] : archivio.riferimenti) riferimenti.emplace(id, riferimento);
  Esportazione esportazione;
  esportazione.elenco = Elenco::Compensi;
  std::set<ChiaveConto> conPagamenti;
  std::int64_t senzaPercipiente = 0;
  for (const schede::SchedaCompenso& compenso : archivio.compensi) {
    if (anno && compenso.pagamento.year() != *anno) continue;
    const auto suo = percipienti.find(compenso.idAnagrafica);
    if (suo == percipienti.end()) {
      ++senzaPercipiente;
      continue;
    }
    const ChiaveConto chiave{compenso.idAnagrafica, compenso.idCausale, compenso.pagamento.year()};
    conPagamenti.insert(chiave);
    const auto conto = archivio.conti.find(chiave);
    const std::int32_t codice = conto == archivio.conti.end() ? 0 : conto->second.idCodiceNonSoggette;
    std::vector<Value> riga = valoriCompenso(compenso, suo->second, codice, archivio.elenchi);
    const auto riferimento = riferimenti.find(compenso.id);
    if (riferimento != riferimenti.end()) {
      riga[static_cast<std::size_t>(ColonnaCompenso::Riferimento)] = Value::ofText(riferimento->second);
    }
    esportazione.righe.push_back(std::move(riga));
  }
  if (senzaPercipiente > 0) {
    esportazione.tralasciati.push_back(dettaLasciata(senzaPercipiente, "compensi senza percipiente"));
  }
  lasciati(connessione, archivio, idAzienda, anno, conPagamenti, esportazione.tralasciati);
  return esportazione;
}

std::optional<std::int32_t> cercaAzienda(Connection& connessione, std::string_view codiceOId) {
  const std::vector<schede::SchedaAzienda> aziende = schede::Aziende(connessione).tutte();
  for (const schede::SchedaAzienda& azienda : aziende) {
    if (equalsNoCase(azienda.sede.codiceFiscale, trim(codiceOId))) return azienda.id;
  }
  for (const schede::SchedaAzienda& azienda : aziende) {
    if (azienda.sede.partitaIva == trim(codiceOId) || fromInteger(azienda.id) == trim(codiceOId))
      return azienda.id;
  }
  return std::nullopt;
}

}  // namespace cu::intake
