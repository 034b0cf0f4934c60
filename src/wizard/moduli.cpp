// The steps after the telematic file: the forms of the selected lines, and the notice.

#include "wizard/frm_msg_link.h"
#include "wizard/frm_wizard.h"

namespace cu {

void FrmWizard::stampaModuli(const std::string& sCodFisc) {
  const auto esito = fornitura::stampaModuli(intorno(), compensi_,
                                             {.stampa = richiestaStampa(),
                                              .sCodFisc = sCodFisc,
                                              .cartella = sPercorsoCU,
                                              .tipo = tipoComunicazione(),
                                              .intermediari = chkIntermediari.value(),
                                              .dataFirma = dtDataFirma.entered(),
                                              .cumulativa = optStampaTracciato[1].value()});
  accolto(esito);
  if (!esito->nonStampati.empty()) mostraInterrotta(*esito);
  if (esito->interrotta) mostraSenzaFile();
}

// The two only after an interruption by the user.
void FrmWizard::mostraSenzaFile() {
  ambiente_.frontEnd.messageBox(
      {"La stampa dei moduli è stata interrotta.\r\n\r\n"
       "Il file telematico è completo. Il file con i moduli di tutti i percipienti "
       "non è stato creato.",
       globali_.gTitolo, BoxIcon::Information, BoxButtons::Ok, Answer::Ok});
}

void FrmWizard::mostraInterrotta(const fornitura::EsitoModuli& esito) {
  const std::size_t rimasti = esito.nonStampati.size();
  const std::string detto = "Stampa dei moduli interrotta dopo " +
                            fornitura::numeroItaliano(esito.richiesti - rimasti) + " su " +
                            fornitura::numeroItaliano(esito.richiesti) + ".";
  ambiente_.frontEnd.told(detto);
  LogTable tabella;
  tabella.title = "Moduli non stampati";
  tabella.head = detto +
                 " Il file telematico è completo e i moduli già stampati restano nella cartella. "
                 "Mancano quelli di queste righe:";
  tabella.columns = {"Percipiente", "Causale", "Codice fiscale"};
  for (const fornitura::ModuloNonStampato& riga : esito.nonStampati) {
    tabella.rows.push_back(
        {Value::ofText(riga.percipiente), Value::ofText(riga.causale), Value::ofText(riga.codiceFiscale)});
  }
  ambiente_.frontEnd.showLog(tabella);
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
