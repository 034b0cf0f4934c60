#include "fornitura/riepilogo.h"

#include <cstdint>
#include <unordered_set>
#include <utility>

#include "base/text.h"
#include "data/recordset.h"
#include "telematic/attestazione.h"

namespace cu::fornitura {

Riepilogo riepiloga(Compensi& compensi) {
  Riepilogo riepilogo;
  if (!compensi.rsCompensi().IsOpen()) return riepilogo;
  const auto righe = compensi.rsCompensi().Clone();
  riepilogo.caricate = righe->RecordCount();
  const std::size_t scelta = righe->Ordinal("Selezionato");
  const std::size_t anagrafica = righe->Ordinal("IDAnagrafica");
  const std::size_t lordo = righe->Ordinal("AmmontareLordo");
  const std::size_t acconto = righe->Ordinal("RitenuteAcconto");
  const std::size_t imposta = righe->Ordinal("RitenuteImposta");
  std::unordered_set<std::int64_t> percipienti;
  std::vector<CellView> celle(righe->Fields().size());
  for (std::size_t posizione = 1; posizione <= riepilogo.caricate; ++posizione) {
    righe->Peek(posizione, celle.data());
    if (!celle[scelta].flag()) continue;
    ++riepilogo.righe;
    percipienti.insert(celle[anagrafica].integer());
    riepilogo.lordo = riepilogo.lordo + celle[lordo].decimal();
    riepilogo.ritenute = riepilogo.ritenute + celle[acconto].decimal() + celle[imposta].decimal();
  }
  riepilogo.percipienti = percipienti.size();
  riepilogo.daMemorizzare = compensi.nonMemorizzateScelte();
  riepilogo.nonMemorizzate = compensi.nonMemorizzate() - riepilogo.daMemorizzare;
  riepilogo.senzaSpese = compensi.nonMemorizzateConSpese();
  return riepilogo;
}

DatiPrevisti prevedi(const Intorno& intorno, const std::string& tabella, Comunicazione tipo) {
  // The connection of controls and reports, which is not traced.
  Connection& connessione = intorno.ambito.database->ownConnection();
  DatiPrevisti previsti;
  {
    Recordset azienda;
    azienda.Open(connessione,
                 intorno.utilita.fnAnsi2jet(Controlli::fnQueryAzienda(intorno.ambito.idAzienda)));
    if (!azienda.Eof()) {
      previsti.azienda = std::string(trim(intorno.utilita.toText(azienda.Get("AnagAz")) + " " +
                                          intorno.utilita.toText(azienda.Get("NomeAz"))));
      previsti.sCodFisc = intorno.utilita.toText(azienda.Get("CodFisc"));
    }
  }
  if (tabella.empty()) return previsti;
  Controlli controlli(connessione, intorno.utilita);
  controlli.esegui(intorno.ambito.idAzienda, tabella);
  previsti.mancanti = controlli.mancanti();
  Attestazione attestazione =
      attesta(connessione, intorno.utilita, {.tabella = tabella, .tipo = tipo, .modello = intorno.modello});
  for (DatoMancante& dato : attestazione.rifiutati) previsti.mancanti.push_back(std::move(dato));
  previsti.conCaselleVuote = attestazione.conCaselleVuote.size();
  return previsti;
}

std::string importoItaliano(Decimal importo) {
  std::string testo = importo.toFixed(2, ',');
  const std::size_t prima = testo.front() == '-' ? 1 : 0;
  for (std::size_t fine = testo.find(','); fine > prima + 3;) {
    fine -= 3;
    testo.insert(fine, 1, '.');
  }
  return testo;
}

std::string numeroItaliano(std::size_t numero) {
  std::string testo = importoItaliano(Decimal::fromInteger(static_cast<std::int64_t>(numero)));
  testo.resize(testo.find(','));
  return testo;
}

}  // namespace cu::fornitura
