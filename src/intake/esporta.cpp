#include "intake/esporta.h"

#include <map>
#include <unordered_map>
#include <utility>

#include "base/text.h"
#include "intake/altri_dati.h"
#include "intake/archivio_letto.h"
#include "intake/valori_scheda.h"
#include "schede/aziende.h"
#include "schede/conteggio.h"
#include "schede/percipienti.h"

namespace cu::intake {
namespace {

std::string detti(std::int64_t quanti, const char* uno, const char* piu) {
  return fromInteger(quanti) + " " + (quanti == 1 ? uno : piu);
}

using Somme = std::map<ChiaveConto, schede::Importi>;  // of the payments of each account

// What belongs to accounts and has no column.
void lasciati(Connection& connessione, const ArchivioLetto& archivio, std::int32_t idAzienda,
              std::optional<int> anno, const Somme& somme, std::vector<std::string>& tralasciati) {
  std::string suoi = " WHERE IDAzienda = " + fromInteger(idAzienda);
  if (anno) suoi += " AND Anno = " + fromInteger(*anno);
  std::int64_t senza = 0;
  std::int64_t corretti = 0;
  for (const auto& [chiave, conto] : archivio.conti) {
    if (!conto.importi || (anno && chiave.anno != *anno)) continue;
    const auto somma = somme.find(chiave);
    if (somma == somme.end()) {
      ++senza;
    } else if (somma->second != *conto.importi) {
      ++corretti;
    }
  }
  const auto lascia = [&](std::int64_t quanti, const char* uno, const char* piu) {
    if (quanti > 0) tralasciati.push_back(detti(quanti, uno, piu));
  };
  lascia(senza, "conto senza compensi", "conti senza compensi");
  lascia(corretti, "conto corretto a mano, del quale restano i compensi",
         "conti corretti a mano, dei quali restano i compensi");
  lascia(quantiAltriDati(connessione, suoi),
         "conto con dati aggiuntivi, del quale resta il codice delle somme non soggette",
         "conti con dati aggiuntivi, dei quali resta il codice delle somme non soggette");
  lascia(schede::quante(connessione, "ModuloXContoIndividuale", suoi), "modulo aggiuntivo",
         "moduli aggiuntivi");
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
  Somme somme;
  std::int64_t senzaPercipiente = 0;
  for (const schede::SchedaCompenso& compenso : archivio.compensi) {
    if (anno && compenso.pagamento.year() != *anno) continue;
    const auto suo = percipienti.find(compenso.idAnagrafica);
    if (suo == percipienti.end()) {
      ++senzaPercipiente;
      continue;
    }
    const ChiaveConto chiave{compenso.idAnagrafica, compenso.idCausale, compenso.pagamento.year()};
    schede::Importi& somma = somme[chiave];
    for (std::size_t i = 0; i < somma.size(); ++i) somma[i] = somma[i] + compenso.importi[i];
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
    esportazione.tralasciati.push_back(
        detti(senzaPercipiente, "compenso senza percipiente", "compensi senza percipiente"));
  }
  lasciati(connessione, archivio, idAzienda, anno, somme, esportazione.tralasciati);
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
