#include "fornitura/stampa.h"

#include <exception>
#include <memory>

#include "base/error.h"
#include "base/text.h"
#include "printing/tabella_ricorsione.h"
#include "printing/uscita.h"

namespace cu::fornitura {
namespace {

void eseguiRicorsione(const Intorno& intorno, const std::string& istruzione) {
  intorno.ambito.database->internalConnection().Execute(intorno.utilita.fnAnsi2jet(istruzione));
}

std::size_t scelte(const Recordset& righe) {
  const auto clone = righe.Clone();
  clone->SetFilter("Selezionato <> 0");
  return clone->RecordCount();
}

// The selected lines from the current one on.
std::vector<ModuloNonStampato> daQui(Recordset& righe, const Conversioni& utilita) {
  std::vector<ModuloNonStampato> rimaste;
  for (; !righe.Eof(); righe.MoveNext()) {
    if (!righe.Get("Selezionato").flag()) continue;
    rimaste.push_back({utilita.toText(righe.Get("AnagraficaPerc")), utilita.toText(righe.Get("Codice")),
                       utilita.toText(righe.Get("CodiceFiscale"))});
  }
  return rimaste;
}

}  // namespace

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

Result<> stampa(const Intorno& intorno, const RichiestaStampa& richiesta) {
  // The connection of controls and reports.
  Connection& connessione = intorno.ambito.database->ownConnection();
  const Ambito& ambito = intorno.ambito;
  intorno.avanzamento.setPointer(kPointerHourglass);
  if (richiesta.percorso.empty()) intorno.avanzamento.progress("Preparazione della stampa", 0, 0);
  const std::unique_ptr<ReportEngine> oReport = intorno.factory.createReport();
  oReport->setSession(ambito.idUtente, ambito.idAzienda, ambito.idFiliale);
  oReport->setConnection(connessione);
  const std::string formula = stampa::formula(richiesta.dati, intorno.utilita);
  const std::unique_ptr<PrinterDialog> dialogo = intorno.factory.createPrinterDialog();
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
  stampa::esegui({.avanzamento = intorno.avanzamento,
                  .oReport = *oReport,
                  .dialogo = *dialogo,
                  .tipoOggetto = richiesta.tipoOggetto,
                  .guasto = richiesta.guasto},
                 richiesta.uscita);
  return Done{};
}

Result<EsitoModuli> stampaModuli(const Intorno& intorno, Compensi& compensi,
                                 const RichiestaModuli& richiesta) {
  const std::int32_t idUtente = intorno.ambito.idUtente;
  const ricorsione::Corsa corsa{.idUtente = idUtente,
                                .sTipoCom = fromInteger(static_cast<std::int32_t>(richiesta.tipo)),
                                .intermediari = richiesta.intermediari,
                                .dataFirma = richiesta.dataFirma};
  const auto nome = [&] {
    return NomeModulo{.sCodFisc = richiesta.sCodFisc,
                      .anno = richiesta.stampa.dati.filtri.anno,
                      .oggi = intorno.clock.today(),
                      .ora = intorno.clock.now()};
  };
  const auto inFile = [&](const std::string& nomeFile) {
    RichiestaStampa una = richiesta.stampa;
    una.percorso = intorno.files.join(richiesta.cartella, nomeFile);
    return stampa(intorno, una);
  };
  Result<EsitoModuli> esito(EsitoModuli{});
  const auto annota = [&esito](const Result<>& stampata) { esito.refusals = stampata.refusals; };
  const std::unique_ptr<PrintRun> stampe = intorno.factory.createPrintRun();
  Recordset& righe = compensi.rsCompensi();
  if (righe.RecordCount() > 0) righe.MoveFirst();
  eseguiRicorsione(intorno, ricorsione::elimina(idUtente));
  const std::size_t quante = scelte(righe);
  // A print of all forms at once spends its time after the rows, which are collected quickly.
  const char* const lavoro = richiesta.cumulativa ? "Preparazione dei moduli" : "Stampa dei moduli";
  for (; !righe.Eof(); righe.MoveNext()) {
    intorno.avanzamento.setPointer(kPointerHourglass);
    if (!righe.Get("Selezionato").flag()) continue;
    intorno.avanzamento.progress(lavoro, ++esito->richiesti, quante);
    if (!richiesta.cumulativa && intorno.avanzamento.interrupted()) {
      esito->nonStampati = daQui(righe, intorno.utilita);
      esito->richiesti += esito->nonStampati.size() - 1;
      break;
    }
    if (!richiesta.cumulativa) eseguiRicorsione(intorno, ricorsione::elimina(idUtente));
    eseguiRicorsione(intorno, ricorsione::inserisci(righe, corsa, intorno.utilita));
    if (!richiesta.cumulativa) annota(inFile(nome().diRiga(righe, intorno.utilita)));
  }
  if (richiesta.cumulativa) {
    intorno.avanzamento.progress("Stampa dei moduli", 0, 0);
    annota(inFile(nome().cumulativo()));
  }
  return esito;
}

void svuotaRicorsione(const Intorno& intorno) {
  eseguiRicorsione(intorno, ricorsione::elimina(intorno.ambito.idUtente));
}

}  // namespace cu::fornitura
