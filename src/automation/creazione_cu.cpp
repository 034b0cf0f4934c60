#include "automation/creazione_cu.h"

#include "automation/gestures.h"
#include "base/text.h"
#include "controls/form.h"

namespace cu {
namespace {

class CreazioneCU {
 public:
  CreazioneCU(Form& wizard, Walker& walker, const RichiestaCU& richiesta)
      : percorso_(wizard, walker), walker_(walker), richiesta_(richiesta) {}

  bool esegui() {
    walker_.folder = richiesta_.cartella;
    walker_.onForm("frmProtocollo", [this](Form& form) { scriviRiferimenti(form); });
    walker_.onForm("frmMsgLink", [](Form& form) { clickOn(Percorso::controllo(form, "Command1")); });
    primoPasso();
    percorso_.avanti(1);
    if (richiesta_.riferimenti) percorso_.premi("cmdProtocollo");
    percorso_.avanti(2);
    ultimoPasso();
    // The file may stand although something that came behind it was told.
    clickOn(percorso_.controllo("cmdNav(4)"));
    return percorso_.passo() == 0;
  }

 private:
  void primoPasso() {
    percorso_.premi("optstType(1)");
    percorso_.premi("optCode");
    percorso_.scegliAnno("KRNCboEsCont(0)", richiesta_.anno);
    percorso_.premi(element("optTipoComunicazione", richiesta_.tipo - 1));
    percorso_.estremi(richiesta_.estremi);
  }

  void ultimoPasso() {
    if (!richiesta_.cartella.empty()) percorso_.premi("cmdSfoglia");
    if (richiesta_.firma) {
      Percorso::scrivi(percorso_.controllo("dtDataFirma"), richiesta_.firma->toItalian());
    }
    if (richiesta_.stampaCumulativa) percorso_.premi("optStampaTracciato(1)");
    if (!richiesta_.intermediario) return;
    const RichiestaCU::Intermediario& intermediario = *richiesta_.intermediario;
    percorso_.premi("chkIntermediari");
    Percorso::scrivi(percorso_.controllo("txtCodiceFiscale"), intermediario.codiceFiscale);
    if (intermediario.impegno) {
      Choice impegno;
      impegno.index = *intermediario.impegno - 1;
      choose(percorso_.controllo("cboxTipoComunicazione"), impegno);
    }
    if (intermediario.data) {
      Percorso::scrivi(percorso_.controllo("dtDataImpegno"), intermediario.data->toItalian());
    }
  }

  // Steps of a modal form run inside the wizard's own event: what is refused there is told, not raised.
  void scriviRiferimenti(Form& form) {
    const RichiestaCU::Riferimenti& riferimenti = *richiesta_.riferimenti;
    try {
      Percorso::scrivi(Percorso::controllo(form, "txtProtocollo"), riferimenti.protocollo);
      Percorso::scrivi(Percorso::controllo(form, "txtProgressivo"), riferimenti.progressivo);
      if (riferimenti.mantieniPresenti) clickOn(Percorso::controllo(form, "chkSovrascrivi"));
      clickOn(Percorso::controllo(form, "cmdOk"));
    } catch (const Refused& rifiuto) {
      walker_.messages.push_back(rifiuto.reason);
    }
  }

  Percorso percorso_;
  Walker& walker_;
  const RichiestaCU& richiesta_;
};

}  // namespace

bool creaFileCU(Form& wizard, Walker& walker, const RichiestaCU& richiesta) {
  CreazioneCU creazione(wizard, walker, richiesta);
  return percorri(walker, [&] { return creazione.esegui(); });
}

}  // namespace cu
