// The steps after the telematic file: the forms of the selected lines, and the notice.

#include "wizard/frm_msg_link.h"
#include "wizard/frm_wizard.h"

namespace cu {

void FrmWizard::stampaModuli(const std::string& sCodFisc) {
  accolto(fornitura::stampaModuli(intorno(), compensi_,
                                  {.stampa = richiestaStampa(),
                                   .sCodFisc = sCodFisc,
                                   .cartella = sPercorsoCU,
                                   .tipo = tipoComunicazione(),
                                   .intermediari = chkIntermediari.value(),
                                   .dataFirma = dtDataFirma.entered(),
                                   .cumulativa = optStampaTracciato[1].value()}));
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
