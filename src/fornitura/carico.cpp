#include "fornitura/carico.h"

#include <exception>
#include <memory>

#include "base/text.h"
#include "host/testi_programma.h"
#include "modello/modello.h"
#include "worklist/tabella_lavoro.h"

namespace cu::fornitura {

std::string fnOrigineAnni(std::int32_t idAzienda, bool conModulo) {
  return "SELECT DISTINCT ContoIndividuale.Anno From ContoIndividuale WHERE IDAzienda = " +
         fromInteger(idAzienda) +
         (conModulo ? " AND Anno >= " + fromInteger(modello::kModello.noti.primo) : std::string()) +
         " ORDER BY Anno DESC";
}

Result<> controllaFiltri(ModoCorsa modo, const Filtri& filtri) {
  const bool annoRichiesto = modo == ModoCorsa::CU || modo == ModoCorsa::Certificazione;
  if (!annoRichiesto || !trim(filtri.anno).empty()) return Done{};
  return Result<>::refused({"anno-mancante", testoProgramma(109), "KRNCboEsCont(0)"});
}

std::string fnFiltroConti(const Filtri& filtri, const Conversioni& utilita) {
  return fnIntervalli(filtri, "CodiceCausalePagamento", utilita);
}

Result<std::size_t> ricostruisci(const Intorno& intorno, const Filtri& filtri) {
  intorno.avanzamento.setPointer(kPointerHourglass);
  intorno.avanzamento.progress("Ricostruzione dei conti individuali", 0, 0);
  const std::unique_ptr<RicostruzioneConti> oRic = intorno.factory.createRicostruzione();
  oRic->setDatabase(*intorno.ambito.database);
  oRic->setAzienda(intorno.ambito.idAzienda);
  oRic->setFlag(true);
  oRic->setFiltro(fnFiltroConti(filtri, intorno.utilita));
  oRic->ricostruisci(static_cast<std::int16_t>(leadingInteger(trim(filtri.anno))));
  const std::size_t cambiati = oRic->contiCambiati();
  intorno.avanzamento.setPointer(kPointerDefault);
  return cambiati;
}

Result<std::size_t> carica(const Intorno& intorno, Compensi& compensi, const Filtri& filtri) {
  compensi.sbCreaTabellaLavoro(intorno.ambito, filtri, intorno.modello);
  return compensi.rsCompensi().RecordCount();
}

std::string FindName(const Intorno& intorno, std::int64_t nID) {
  try {
    const auto ricerca = intorno.ambito.database->CreateRowset();
    ricerca->addField("IDAnagrafica");
    ricerca->addField("Nome");
    ricerca->setTable("Anagrafica");
    ricerca->setFilter("IDAnagrafica = " + fromInteger(nID));
    ricerca->open();
    return ricerca->eof() ? std::string() : intorno.utilita.toText(ricerca->value("Nome").view());
  } catch (const std::exception&) {
    return {};
  }
}

}  // namespace cu::fornitura
