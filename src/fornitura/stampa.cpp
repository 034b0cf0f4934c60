#include "fornitura/stampa.h"

#include <exception>
#include <memory>

#include "base/error.h"
#include "base/text.h"
#include "printing/tabella_ricorsione.h"
#include "printing/uscita.h"

namespace cu::fornitura {
namespace {

void eseguiRicorsione(const Ambiente& ambiente, const std::string& istruzione) {
  ambiente.ambito.database->internalConnection().Execute(ambiente.utilita.fnAnsi2jet(istruzione));
}

}  // namespace

std::int32_t fnFilialePredefinita(const Ambiente& ambiente, std::int32_t nTipoOggetto) {
  try {
    const auto ricerca = ambiente.ambito.database->CreateRowset();
    ricerca->addField("IDDefaultFilialePerTipoOggetto");
    ricerca->addField("IDTipoOggetto");
    ricerca->addField("IDFiliale");
    ricerca->setTable("DefaultFilialePerTipoOggetto");
    ricerca->setFilter("IDTipoOggetto = " + fromInteger(nTipoOggetto) +
                       " AND \r\nIDFiliale = " + fromInteger(ambiente.ambito.idFiliale));
    ricerca->open();
    if (ricerca->eof()) return 0;
    return static_cast<std::int32_t>(ricerca->value("IDDefaultFilialePerTipoOggetto").view().integer());
  } catch (const std::exception&) {
    return 0;
  }
}

Result<> controllaStampa(const Ambiente& ambiente, const stampa::Dati& dati, const Guasto& guasto) {
  const std::string_view vista = stampa::vista(dati);
  if (vista.empty()) return Done{};
  try {
    const auto elementi = ambiente.ambito.database->CreateRowset();
    elementi->addField("IDAzienda");
    elementi->setTable(vista);
    elementi->setFilter(stampa::filtroSql(dati, ambiente.utilita));
    elementi->open();
    if (!elementi->eof()) return Done{};
  } catch (const std::exception& errore) {
    guasto(asError(errore).description());
  }
  return Result<>::refused({"nulla-da-stampare", "Nessun elemento da stampare", ""});
}

Result<> stampa(const Ambiente& ambiente, const RichiestaStampa& richiesta) {
  // Controls and reports read for themselves.
  Connection& connessione = ambiente.ambito.database->ownConnection();
  const Ambito& ambito = ambiente.ambito;
  ambiente.avanzamento.setPointer(kPointerHourglass);
  if (richiesta.percorso.empty()) ambiente.avanzamento.progress("Preparazione della stampa", 0, 0);
  const std::unique_ptr<ReportEngine> oReport = ambiente.factory.createReport();
  oReport->setSession(ambito.idUtente, ambito.idAzienda, ambito.idFiliale);
  oReport->setConnection(connessione);
  const std::string formula = stampa::formula(richiesta.dati, ambiente.utilita);
  const std::unique_ptr<PrinterDialog> dialogo = ambiente.factory.createPrinterDialog();
  dialogo->setConnection(connessione);
  dialogo->setSession(ambito.idUtente);
  oReport->setObjectType(richiesta.tipoOggetto);
  oReport->setSelectionFormula(formula);
  oReport->setReportFile(richiesta.dati.report);
  oReport->setDefinition(richiesta.definizione);
  if (!richiesta.percorso.empty()) {
    oReport->setOutputMode(0);
    oReport->setOutputPath(richiesta.percorso);
    oReport->setOutputFormat(0);
  }
  dialogo->setDefinition(richiesta.definizione);
  stampa::esegui({.avanzamento = ambiente.avanzamento,
                  .oReport = *oReport,
                  .dialogo = *dialogo,
                  .tipoOggetto = richiesta.tipoOggetto,
                  .guasto = richiesta.guasto},
                 richiesta.uscita);
  return Done{};
}

Result<> stampaModuli(const Ambiente& ambiente, Compensi& compensi, const RichiestaModuli& richiesta) {
  const std::int32_t idUtente = ambiente.ambito.idUtente;
  const ricorsione::Corsa corsa{.idUtente = idUtente,
                                .sTipoCom = fromInteger(static_cast<std::int32_t>(richiesta.tipo)),
                                .intermediari = richiesta.intermediari,
                                .dataFirma = richiesta.dataFirma};
  const auto nome = [&] {
    return NomeModulo{.sCodFisc = richiesta.sCodFisc,
                      .anno = richiesta.stampa.dati.filtri.anno,
                      .oggi = ambiente.clock.today(),
                      .ora = ambiente.clock.now()};
  };
  const auto inFile = [&](const std::string& nomeFile) {
    RichiestaStampa una = richiesta.stampa;
    una.percorso = ambiente.files.join(richiesta.cartella, nomeFile);
    return stampa(ambiente, una);
  };
  Result<> esito(Done{});
  const std::unique_ptr<PrintRun> stampe = ambiente.factory.createPrintRun();
  Recordset& righe = compensi.rsCompensi();
  if (righe.RecordCount() > 0) righe.MoveFirst();
  eseguiRicorsione(ambiente, ricorsione::elimina(idUtente));
  const std::size_t quante = righe.RecordCount();
  // One print of all forms takes its time behind the rows, which are quickly put together.
  const char* const lavoro = richiesta.cumulativa ? "Preparazione dei moduli" : "Stampa dei moduli";
  for (; !righe.Eof(); righe.MoveNext()) {
    ambiente.avanzamento.setPointer(kPointerHourglass);
    ambiente.avanzamento.progress(lavoro, righe.AbsolutePosition(), quante);
    if (!righe.Get("Selezionato").flag()) continue;
    if (!richiesta.cumulativa) eseguiRicorsione(ambiente, ricorsione::elimina(idUtente));
    eseguiRicorsione(ambiente, ricorsione::inserisci(righe, corsa, ambiente.utilita));
    if (!richiesta.cumulativa) esito = inFile(nome().diRiga(righe, ambiente.utilita));
  }
  if (richiesta.cumulativa) {
    ambiente.avanzamento.progress("Stampa dei moduli", 0, 0);
    esito = inFile(nome().cumulativo());
  }
  return esito;
}

Result<> svuotaRicorsione(const Ambiente& ambiente) {
  eseguiRicorsione(ambiente, ricorsione::elimina(ambiente.ambito.idUtente));
  return Done{};
}

}  // namespace cu::fornitura
