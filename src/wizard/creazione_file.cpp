// The run of the telematic file: what the user has corrected is stored, everything is checked, the file is
// made.

#include "base/text.h"
#include "telematic/controlli.h"
#include "telematic/elabora_compensi.h"
#include "wizard/frm_wizard.h"

namespace cu {

bool FrmWizard::fnCreaFileCU() {
  SessioneHost& sessione = *globali_.gSessione;
  FrontEnd& schermo = ambiente_.frontEnd;
  compensi_.sbMemorizzaModifiche();
  schermo.setPointer(kPointerHourglass);
  sbSalvaIntermediario();

  const std::unique_ptr<LogGrid> oLogGrid = ambiente_.factory.createLogGrid();
  oLogGrid->setUser(sessione.IDUtente());
  oLogGrid->setName("LogGrid_" + fromInteger(sessione.IDUtente()));
  schermo.progress("Controllo dei dati", 0, 0);
  Controlli controlli(sessione.database().internalConnection(), ambiente_.utilita, *oLogGrid);
  controlli.sbPreparaLog();
  controlli.esegui({.dataFirma = dtDataFirma.entered(),
                    .usoIntermediari = chkIntermediari.value(),
                    .codiceFiscaleIntermediario = txtCodiceFiscale.text(),
                    .dataImpegno = dtDataImpegno.entered()},
                   sessione.IDAzienda(), globali_.gTabellaLavoro);
  if (controlli.bErrori()) {
    schermo.setPointer(kPointerDefault);
    oLogGrid->show(0);
    schermo.told("Il file telematico non è stato creato: mancano dei dati.");
    segnalaDatoMancante();
    return false;
  }
  if (!controllaDate()) {
    schermo.told("Il file telematico non è stato creato.");
    return false;
  }
  const auto sNomeFile = generaFile(controlli.sCodFisc());
  if (!sNomeFile) {
    schermo.setPointer(kPointerDefault);
    return false;
  }
  stampaModuli(controlli.sCodFisc());
  schermo.setPointer(kPointerDefault);
  sbMostraEsitoFile(*sNomeFile, sPercorsoCU, 1);
  compensi_.sbCreaTabellaLavoro(filtri());
  return true;
}

// Of what the checks miss, only this can be completed here.
void FrmWizard::segnalaDatoMancante() {
  FrontEnd& schermo = ambiente_.frontEnd;
  if (dtDataFirma.text().empty()) {
    schermo.missing(dtDataFirma);
  } else if (!chkIntermediari.value()) {
    return;
  } else if (trim(txtCodiceFiscale.text()).empty()) {
    schermo.missing(txtCodiceFiscale);
  } else if (dtDataImpegno.text().empty()) {
    schermo.missing(dtDataImpegno);
  }
}

bool FrmWizard::avvisoData(const std::string& righe, DateBox& controllo) {
  const std::string testo = righe + "\r\nSi vuole continuare ugualmente?";
  ambiente_.frontEnd.setPointer(kPointerDefault);
  if (ambiente_.utilita.confirm(testo, globali_.gTitolo) != UtilitaSuite::kCancel) {
    ambiente_.frontEnd.setPointer(kPointerHourglass);
    return true;
  }
  setFocus(&controllo);
  return false;
}

bool FrmWizard::controllaDate() {
  const Date oggi = ambiente_.clock.today();
  if (dtDataFirma.date() && dtDataFirma.value() > oggi.serial() &&
      !avvisoData("Attenzione! La data della firma non deve essere superiore alla\r\n"
                  "data odierna, altrimenti il file generato potrebbe essere scartato.",
                  dtDataFirma)) {
    return false;
  }
  if (!dtDataImpegno.date() || !dtDataImpegno.enabled()) return true;
  if (dtDataImpegno.value() > oggi.serial()) {
    return avvisoData(
        "Attenzione! La data dell'impegno non deve essere superiore alla\r\n"
        "data odierna, altrimenti il file generato potrebbe essere scartato.",
        dtDataImpegno);
  }
  const Date primoGennaio = *Date::fromYmd(oggi.year(), 1, 1);
  if (dtDataImpegno.value() >= primoGennaio.serial()) return true;
  return avvisoData(
      "Attenzione! La data dell'impegno deve appartenere all'anno in\r\n"
      "corso, altrimenti il file generato potrebbe essere scartato.",
      dtDataImpegno);
}

std::string FrmWizard::fnNomeFile(const std::string& sCodFisc) const {
  return "CUR_" + sCodFisc + "_" + KRNCboEsCont0.text() + ".cur";
}

std::optional<std::string> FrmWizard::generaFile(const std::string& sCodFisc) {
  FileSystem& files = ambiente_.files;
  ElaboraCompensi elabora({.globali = globali_,
                           .utilita = ambiente_.utilita,
                           .files = files,
                           .frontEnd = ambiente_.frontEnd,
                           .clock = ambiente_.clock});
  const std::string anno = KRNCboEsCont0.text();
  globali_.gAnno = ambiente_.utilita.toLong(anno);
  elabora.setDati({.UsoIntermediari = chkIntermediari.value(),
                   .CodiceFiscaleAzienda = sCodFisc,
                   .CodiceFiscaleIntermediario = txtCodiceFiscale.text(),
                   .TipoComIntermediario = fromInteger(cboxTipoComunicazione.index() + 1),
                   .DataImpegnoIntermediario = Date::fromSerial(dtDataImpegno.value()),
                   .TipoComunicazione = tipoComunicazione()});
  elabora.setFileName(fnNomeFile(sCodFisc));
  elabora.setFilePathName(files.join(sPercorsoCU, elabora.FileName()));
  elabora.setFilePathNameMyDocuments(elabora.FilePathName());
  elabora.setFolderPathNameMyDocuments(
      files.join(ambiente_.utilita.documentsFolder(), globali_.gTesti->text(1264)));
  elabora.setRsMain(compensi_.rsCompensi());
  elabora.sbWriteRecord();
  if (!creaFile(elabora)) return std::nullopt;
  return elabora.FileName();
}

bool FrmWizard::creaFile(ElaboraCompensi& elabora) {
  FrontEnd& schermo = ambiente_.frontEnd;
  bool creato = false;
  try {
    creato = elabora.CreaFiles(Date::fromSerial(dtDataFirma.value()));
  } catch (...) {
    schermo.told(
        "La creazione del file telematico si è interrotta: un file senza record Z non va trasmesso.");
    throw;
  }
  if (!creato) {
    schermo.told("Il file telematico non è stato creato: non è stato possibile scrivere " +
                 elabora.FileName() + " nella cartella scelta.");
  } else if (elabora.certificazioni() == 0) {
    schermo.told("Nessun file telematico è stato creato: nessuna riga scelta ha un periodo IVA nell'anno.");
  } else {
    schermo.told("Creato " + elabora.FileName() + ".");
  }
  return creato;
}

}  // namespace cu
