// The prints: the test whether anything would come out, the one routine that launches a report, the options.

#include "base/text.h"
#include "context/testi_programma.h"
#include "printing/formule.h"
#include "printing/uscita.h"
#include "wizard/frm_option.h"
#include "wizard/frm_wizard.h"

namespace cu {

stampa::Dati FrmWizard::datiStampa() const {
  return {.modo = globali_.gIDFunzione,
          .report = WizPrint.report(),
          .filtri = filtri(),
          .idAzienda = globali_.gSessione->IDAzienda(),
          .idUtente = globali_.gSessione->IDUtente()};
}

void FrmWizard::stampaReport() {
  if (fnDaStampare()) sbStampaReport("");
}

bool FrmWizard::fnDaStampare() {
  const std::string_view vista = stampa::vista(datiStampa());
  if (vista.empty() || fnEsistonoElementi(vista)) return true;
  ambiente_.utilita.message("Nessun elemento da stampare", globali_.gTitolo);
  return false;
}

bool FrmWizard::fnEsistonoElementi(std::string_view sVista) {
  try {
    const auto elementi = globali_.gSessione->database().CreateRowset();
    elementi->addField("IDAzienda");
    elementi->setTable(sVista);
    elementi->setFilter(stampa::filtroSql(datiStampa(), ambiente_.utilita));
    elementi->open();
    return !elementi->eof();
  } catch (const std::exception& errore) {
    ambiente_.frontEnd.messageBox({.text = asError(errore).description(),
                                   .title = globali_.gTitolo,
                                   .icon = BoxIcon::None,
                                   .buttons = BoxButtons::Ok,
                                   .byDefault = Answer::Ok});
    return false;
  }
}

void FrmWizard::sbStampaReport(const std::string& sNomeFile) {
  SessioneHost& sessione = *globali_.gSessione;
  // Controls and reports read for themselves.
  Connection& connessione = sessione.database().ownConnection();
  ambiente_.frontEnd.setPointer(kPointerHourglass);
  if (sNomeFile.empty()) ambiente_.frontEnd.progress("Preparazione della stampa", 0, 0);
  oReport = ambiente_.factory.createReport();
  oReport->setSession(sessione.IDUtente(), sessione.IDAzienda(), sessione.IDFiliale());
  oReport->setConnection(connessione);
  const std::string formula = stampa::formula(datiStampa(), ambiente_.utilita);
  const std::unique_ptr<PrinterDialog> dialogo = ambiente_.factory.createPrinterDialog();
  dialogo->setConnection(connessione);
  dialogo->setSession(sessione.IDUtente());
  oReport->setObjectType(WizPrint.objectType());
  oReport->setSelectionFormula(formula);
  oReport->setReportFile(WizPrint.report());
  oReport->setDefinition(WizPrint.definition());
  if (!sNomeFile.empty()) {
    oReport->setOutputMode(0);
    oReport->setOutputPath(ambiente_.files.join(sPercorsoCU, sNomeFile));
    oReport->setOutputFormat(0);
  }
  dialogo->setDefinition(WizPrint.definition());
  stampa::esegui({.frontEnd = ambiente_.frontEnd,
                  .oReport = *oReport,
                  .dialogo = *dialogo,
                  .gTitolo = globali_.gTitolo,
                  .tipoOggetto = WizPrint.objectType()},
                 WizPrint.output());
  oReport.reset();
}

void FrmWizard::opzioniStampa() {
  FrmOption dialogo(ambiente_.frontEnd, ambiente_.utilita, *globali_.gSessione);
  dialogo.showModal();
  if (!dialogo.Cancel()) {
    bStampaInterlinea = dialogo.PrintInt();
    bSaltoPagina = dialogo.PrintNewPage();
    sInterlinea = dialogo.InterLine() ? "True" : "False";
  }
  dialogo.unload();
}

}  // namespace cu
