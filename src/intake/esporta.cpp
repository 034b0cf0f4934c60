#include "intake/esporta.h"

#include <map>
#include <tuple>
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

// Payments that only their reference can tell apart: those of one document that are there more than once. The
// history may know it; otherwise it is made of what they share and their place among them, so that it is the
// same at every export.
class Riferimenti {
 public:
  explicit Riferimenti(const ArchivioLetto& archivio) : archivio_(archivio) {
    for (const auto& [riferimento, id] : archivio.riferimenti) noti_.emplace(id, riferimento);
    for (const schede::SchedaCompenso& compenso : archivio.compensi) {
      if (!trim(compenso.numero).empty()) ++quanti_[documento(compenso)];
    }
  }

  // To be called for each payment, in the order of the archive; "" where it needs none.
  std::string di(const schede::SchedaCompenso& compenso, const std::string& percipiente) {
    const auto quanti = quanti_.find(documento(compenso));
    const bool ripetuto = quanti != quanti_.end() && quanti->second > 1;
    const std::size_t posto = ripetuto ? ++visti_[quanti->first] : 0;
    const auto noto = noti_.find(compenso.id);
    if (noto != noti_.end()) return noto->second;
    if (!ripetuto) return {};
    return percipiente + " " + archivio_.elenchi.causali.codice(compenso.idCausale) + " " +
           compenso.pagamento.toIso() + " " + fromInteger(static_cast<std::int64_t>(posto)) + "/" +
           lowerAscii(trim(compenso.numero));
  }

 private:
  using Documento = std::tuple<std::int32_t, std::int32_t, std::int32_t, std::string>;
  // Rows without the date of the document are compared by its number alone.
  static Documento documento(const schede::SchedaCompenso& compenso) {
    return {compenso.idAnagrafica, compenso.idCausale, compenso.pagamento.serial(),
            lowerAscii(trim(compenso.numero))};
  }

  const ArchivioLetto& archivio_;
  std::unordered_map<std::int32_t, std::string> noti_;
  std::map<Documento, std::size_t> quanti_;
  std::map<Documento, std::size_t> visti_;
};

// An empty cell would leave what another database has.
void scriviZeri(std::vector<Value>& riga) {
  using enum ColonnaCompenso;
  for (const ColonnaCompenso colonna :
       {QuotaNonSoggetta, SommeNonSoggette, SommeRegimeConvenzionale, RitenutaAcconto, RitenutaImposta,
        ContributoPrevidenziale, ContributoPercipiente}) {
    Value& valore = riga[static_cast<std::size_t>(colonna)];
    if (valore.view().isNull()) valore = Value::ofDecimal(Decimal());
  }
}

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
    esportazione.righe.push_back(valoriAzienda(azienda, {}, luoghi, elenchi));
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
  Riferimenti riferimenti(archivio);
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
    const std::string riferimento = riferimenti.di(compenso, suo->second->codice);
    if (!riferimento.empty()) {
      riga[static_cast<std::size_t>(ColonnaCompenso::Riferimento)] = Value::ofText(riferimento);
    }
    scriviZeri(riga);
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
