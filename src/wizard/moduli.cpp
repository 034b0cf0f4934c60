// What follows the telematic file: the forms of the selected lines, and the notice.

#include "base/text.h"
#include "printing/tabella_ricorsione.h"
#include "wizard/frm_msg_link.h"
#include "wizard/frm_wizard.h"

namespace cu {

void FrmWizard::eseguiRicorsione(const std::string& istruzione) {
  globali_.gSessione->database().internalConnection().Execute(ambiente_.utilita.fnAnsi2jet(istruzione));
}

void FrmWizard::stampaModuli(const std::string& sCodFisc) {
  const UtilitaSuite& utilita = ambiente_.utilita;
  const std::int32_t idUtente = globali_.gSessione->IDUtente();
  const ricorsione::Corsa corsa{.idUtente = idUtente,
                                .sTipoCom = fromInteger(tipoComunicazione()),
                                .intermediari = chkIntermediari.value(),
                                .dataFirma = dtDataFirma.entered()};
  const auto nome = [&] {
    return NomeModulo{.sCodFisc = sCodFisc,
                      .anno = KRNCboEsCont0.text(),
                      .oggi = ambiente_.clock.today(),
                      .ora = ambiente_.clock.now()};
  };
  const std::unique_ptr<PrintRun> stampe = ambiente_.factory.createPrintRun();
  Recordset& righe = compensi_.rsCompensi();
  if (righe.RecordCount() > 0) righe.MoveFirst();
  eseguiRicorsione(ricorsione::elimina(idUtente));
  const std::size_t quante = righe.RecordCount();
  for (; !righe.Eof(); righe.MoveNext()) {
    ambiente_.frontEnd.setPointer(kPointerHourglass);
    ambiente_.frontEnd.progress("Stampa dei moduli", righe.AbsolutePosition(), quante);
    if (!righe.Get("Selezionato").flag()) continue;
    if (optStampaTracciato[0].value()) eseguiRicorsione(ricorsione::elimina(idUtente));
    eseguiRicorsione(ricorsione::inserisci(righe, corsa, utilita));
    if (optStampaTracciato[0].value()) sbStampaReport(nome().diRiga(righe, utilita));
  }
  if (optStampaTracciato[1].value()) sbStampaReport(nome().cumulativo());
}

void FrmWizard::sbMostraEsitoFile(const std::string& sNomeFile, const std::string& sCartella,
                                  std::int16_t /*nFlag*/) {
  FrmMsgLink avviso(ambiente_.frontEnd, ambiente_.utilita, *globali_.gTesti, ambiente_.files);
  avviso.setConnection(&globali_.gSessione->database().connection());
  avviso.setPath(sCartella);
  avviso.lblUser.setCaption("Il file generato, che si chiama\r\n" + sNomeFile +
                            "\r\nè stato creato correttamente nel seguente percorso:");
  avviso.showModal();
}

}  // namespace cu
