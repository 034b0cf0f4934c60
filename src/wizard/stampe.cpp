// The prints: the test for an empty print, the launch of a report, the options.

#include "wizard/frm_option.h"
#include "wizard/frm_wizard.h"

namespace cu {

stampa::Dati FrmWizard::datiStampa() const {
  return {.modo = modo(),
          .report = WizPrint.report(),
          .filtri = filtri(),
          .idAzienda = globali_.gSessione->IDAzienda(),
          .idUtente = globali_.gSessione->IDUtente()};
}

fornitura::RichiestaStampa FrmWizard::richiestaStampa() {
  return {
      .dati = datiStampa(),
      .tipoOggetto = WizPrint.objectType(),
      .definizione = WizPrint.definition(),
      .uscita = static_cast<Uscita>(WizPrint.output()),
      .percorso = {},
      .guasto = [this](const std::string& testo) {
        ambiente_.frontEnd.messageBox({testo, globali_.gTitolo, BoxIcon::Stop, BoxButtons::Ok, Answer::Ok});
      }};
}

void FrmWizard::stampaReport() {
  if (fnDaStampare()) accolto(fornitura::stampa(intorno(), richiestaStampa()));
}

bool FrmWizard::fnDaStampare() {
  const auto guasto = [this](const std::string& testo) {
    ambiente_.frontEnd.messageBox({testo, globali_.gTitolo, BoxIcon::None, BoxButtons::Ok, Answer::Ok});
  };
  return accolto(fornitura::controllaStampa(intorno(), datiStampa(), guasto));
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
