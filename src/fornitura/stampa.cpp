#include "fornitura/stampa.h"

#include <exception>
#include <memory>

#include "base/error.h"
#include "base/text.h"
#include "fornitura/stampa_preparata.h"
#include "printing/uscita.h"

namespace cu::fornitura {

std::int32_t fnFilialePredefinita(const Intorno& intorno, std::int32_t nTipoOggetto) {
  try {
    const auto ricerca = intorno.ambito.database->CreateRowset();
    ricerca->addField("IDDefaultFilialePerTipoOggetto");
    ricerca->addField("IDTipoOggetto");
    ricerca->addField("IDFiliale");
    ricerca->setTable("DefaultFilialePerTipoOggetto");
    ricerca->setFilter("IDTipoOggetto = " + fromInteger(nTipoOggetto) +
                       " AND \r\nIDFiliale = " + fromInteger(intorno.ambito.idFiliale));
    ricerca->open();
    if (ricerca->eof()) return 0;
    return static_cast<std::int32_t>(ricerca->value("IDDefaultFilialePerTipoOggetto").view().integer());
  } catch (const std::exception&) {
    return 0;
  }
}

Result<> controllaStampa(const Intorno& intorno, const stampa::Dati& dati, const Guasto& guasto) {
  const std::string_view vista = stampa::vista(dati);
  if (vista.empty()) return Done{};
  try {
    const auto elementi = intorno.ambito.database->CreateRowset();
    elementi->addField("IDAzienda");
    elementi->setTable(vista);
    elementi->setFilter(stampa::filtroSql(dati, intorno.utilita));
    elementi->open();
    if (!elementi->eof()) return Done{};
  } catch (const std::exception& errore) {
    guasto(asError(errore).description());
  }
  return Result<>::refused({"nulla-da-stampare", "Nessun elemento da stampare", ""});
}

StampaPreparata preparaStampa(const Intorno& intorno, const RichiestaStampa& richiesta) {
  // The connection of controls and reports.
  Connection& connessione = intorno.ambito.database->ownConnection();
  const Ambito& ambito = intorno.ambito;
  StampaPreparata stampa;
  stampa.oReport = intorno.factory.createReport();
  stampa.oReport->setSession(ambito.idUtente, ambito.idAzienda, ambito.idFiliale);
  stampa.oReport->setConnection(connessione);
  const std::string formula = stampa::formula(richiesta.dati, intorno.utilita);
  stampa.dialogo = intorno.factory.createPrinterDialog();
  stampa.dialogo->setConnection(connessione);
  stampa.dialogo->setSession(ambito.idUtente);
  stampa.oReport->setObjectType(richiesta.tipoOggetto);
  stampa.oReport->setSelectionFormula(formula);
  stampa.oReport->setReportFile(richiesta.dati.report);
  stampa.oReport->setDefinition(richiesta.definizione);
  if (!richiesta.percorso.empty()) {
    stampa.oReport->setOutputMode(0);
    stampa.oReport->setOutputPath(richiesta.percorso);
    stampa.oReport->setOutputFormat(0);
  }
  stampa.dialogo->setDefinition(richiesta.definizione);
  return stampa;
}

Result<> stampa(const Intorno& intorno, const RichiestaStampa& richiesta) {
  intorno.avanzamento.setPointer(kPointerHourglass);
  if (richiesta.percorso.empty()) intorno.avanzamento.progress("Preparazione della stampa", 0, 0);
  const StampaPreparata preparata = preparaStampa(intorno, richiesta);
  stampa::esegui(lancio(intorno, richiesta, preparata), richiesta.uscita);
  return Done{};
}

stampa::Lancio lancio(const Intorno& intorno, const RichiestaStampa& richiesta,
                      const StampaPreparata& preparata) {
  return {.avanzamento = intorno.avanzamento,
          .oReport = *preparata.oReport,
          .dialogo = *preparata.dialogo,
          .tipoOggetto = richiesta.tipoOggetto,
          .guasto = richiesta.guasto,
          .interrotta = richiesta.interrotta};
}

}  // namespace cu::fornitura
