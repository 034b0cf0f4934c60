// The run of the telematic file: what the user has corrected is stored, everything is checked, the file is
// made.

#include "host/text.h"
#include "shell/frm_wizard.h"
#include "telematic/controlli.h"
#include "telematic/elabora_compensi.h"

namespace cu {

bool FrmWizard::fnCreaFileCU() {
  SessioneHost& sessione = *globali_.gSessione;
  compensi_.sbMemorizzaModifiche();
  sbSalvaIntermediario();

  const std::unique_ptr<LogGrid> oLogGrid = ambiente_.factory.createLogGrid();
  oLogGrid->setUser(sessione.IDUtente());
  oLogGrid->setName("LogGrid_" + fromInteger(sessione.IDUtente()));
  ambiente_.frontEnd.progress("Controllo dei dati", 0, 0);
  Controlli controlli(sessione.database().internalConnection(), ambiente_.utilita, *oLogGrid);
  controlli.sbPreparaLog();
  controlli.esegui({.dataFirma = dtDataFirma.entered(),
                    .usoIntermediari = chkIntermediari.value(),
                    .codiceFiscaleIntermediario = txtCodiceFiscale.text(),
                    .dataImpegno = dtDataImpegno.entered()},
                   sessione.IDAzienda(), globali_.gTabellaLavoro);
  if (controlli.bErrori()) {
    oLogGrid->show(0);
    return false;
  }
  if (!controllaDate()) return false;
  const auto sNomeFile = generaFile(controlli.sCodFisc());
  if (!sNomeFile) return false;
  stampaModuli(controlli.sCodFisc());
  sbMostraEsitoFile(*sNomeFile, sPercorsoCU, 1);
  compensi_.sbCreaTabellaLavoro(filtri());
  return true;
}

bool FrmWizard::avvisoData(const std::string& righe, DateBox& controllo) {
  const std::string testo = righe + "\r\nSi vuole continuare ugualmente?";
  if (ambiente_.utilita.confirm(testo, globali_.gTitolo) != UtilitaSuite::kCancel) return true;
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
  elabora.setFileName("CUR_" + sCodFisc + "_" + anno + ".cur");
  elabora.setFilePathName(files.join(sPercorsoCU, elabora.FileName()));
  elabora.setFilePathNameMyDocuments(elabora.FilePathName());
  elabora.setFolderPathNameMyDocuments(
      files.join(ambiente_.utilita.documentsFolder(), globali_.gTesti->text(1264)));
  elabora.setRsMain(compensi_.rsCompensi());
  elabora.sbWriteRecord();
  if (!elabora.CreaFiles(Date::fromSerial(dtDataFirma.value()))) return std::nullopt;
  return elabora.FileName();
}

}  // namespace cu
