#include "automation/creazione_cu.h"

#include "automation/gestures.h"
#include "host/form.h"
#include "host/selector.h"
#include "host/text.h"
#include "host/textbox.h"

namespace cu {
namespace {

// The step on the stage, from 0; -1 when none is.
int passo(const Form& wizard) {
  const auto cornici = wizard.stages();
  for (std::size_t i = 0; i < cornici.size(); ++i) {
    if (cornici[i]->onStage()) return static_cast<int>(i);
  }
  return -1;
}

class Percorso {
 public:
  Percorso(Form& wizard, Walker& walker, const RichiestaCU& richiesta)
      : wizard_(wizard), walker_(walker), richiesta_(richiesta) {}

  bool percorri() {
    walker_.folder = richiesta_.cartella;
    walker_.onForm("frmProtocollo", [this](Form& form) { scriviRiferimenti(form); });
    walker_.onForm("frmMsgLink", [this](Form& form) { clickOn(controllo(form, "Command1")); });
    primoPasso();
    avanti(1);
    if (richiesta_.riferimenti) premi("cmdProtocollo");
    avanti(2);
    ultimoPasso();
    // The file may stand although something that came behind it was told.
    clickOn(controllo("cmdNav(4)"));
    return passo(wizard_) == 0;
  }

 private:
  Control& controllo(const Form& form, const std::string& nome) {
    Control* const trovato = form.find(nome);
    if (trovato == nullptr) throw Refused{form.name() + " non ha un controllo \"" + nome + "\""};
    return *trovato;
  }
  Control& controllo(const std::string& nome) { return controllo(wizard_, nome); }

  // Goes on only while nothing has been refused.
  void premi(const std::string& nome) {
    clickOn(controllo(nome));
    if (!walker_.messages.empty()) throw Refused{""};
  }

  void avanti(int atteso) {
    premi("cmdNav(3)");
    if (passo(wizard_) != atteso) throw Refused{"il passo " + fromInteger(atteso + 1) + " non si apre"};
  }

  // Typed as a person would; what the box does not take as it was given is refused.
  void scrivi(Control& casella, const std::string& testo) {
    typeInto(casella, testo);
    const auto* const scritta = dynamic_cast<const EditBox*>(&casella);
    if (scritta != nullptr && scritta->text() != testo) {
      throw Refused{fullName(casella) + ": il testo \"" + testo + "\" non è ammesso"};
    }
  }

  void estremo(const std::string& nome, const std::optional<std::string>& codice) {
    if (!codice) return;
    auto* const selettore = dynamic_cast<Selector*>(&controllo(nome));
    if (selettore == nullptr) throw Refused{nome + " non è un selettore"};
    Choice scelta;
    scelta.code = codice;
    if (!selettore->findCode(*codice)) scelta.description = "";
    choose(*selettore, scelta);
  }

  void scegliAnno() {
    Choice anno;
    anno.text = richiesta_.anno;
    try {
      choose(controllo("KRNCboEsCont(0)"), anno);
    } catch (const Refused&) {
      throw Refused{"Nessun conto individuale per l'anno " + richiesta_.anno + "."};
    }
  }

  void primoPasso() {
    premi("optstType(1)");
    premi("optCode");
    scegliAnno();
    premi(element("optTipoComunicazione", richiesta_.tipo - 1));
    estremo("KrnCDPerc(0)", richiesta_.daPercipiente);
    estremo("KrnCDPerc(1)", richiesta_.aPercipiente);
    estremo("KrnCDCausContrib(0)", richiesta_.daCausale);
    estremo("KrnCDCausContrib(1)", richiesta_.aCausale);
  }

  void ultimoPasso() {
    if (!richiesta_.cartella.empty()) premi("cmdSfoglia");
    if (richiesta_.firma) scrivi(controllo("dtDataFirma"), richiesta_.firma->toItalian());
    if (richiesta_.stampaCumulativa) premi("optStampaTracciato(1)");
    if (!richiesta_.intermediario) return;
    const RichiestaCU::Intermediario& intermediario = *richiesta_.intermediario;
    premi("chkIntermediari");
    scrivi(controllo("txtCodiceFiscale"), intermediario.codiceFiscale);
    if (intermediario.impegno) {
      Choice impegno;
      impegno.index = *intermediario.impegno - 1;
      choose(controllo("cboxTipoComunicazione"), impegno);
    }
    if (intermediario.data) scrivi(controllo("dtDataImpegno"), intermediario.data->toItalian());
  }

  // Steps of a modal form run inside the wizard's own event: what is refused there is told, not raised.
  void scriviRiferimenti(Form& form) {
    try {
      scrivi(controllo(form, "txtProtocollo"), richiesta_.riferimenti->protocollo);
      scrivi(controllo(form, "txtProgressivo"), richiesta_.riferimenti->progressivo);
      if (richiesta_.riferimenti->mantieniPresenti) clickOn(controllo(form, "chkSovrascrivi"));
      clickOn(controllo(form, "cmdOk"));
    } catch (const Refused& rifiuto) {
      walker_.messages.push_back(rifiuto.reason);
    }
  }

  Form& wizard_;
  Walker& walker_;
  const RichiestaCU& richiesta_;
};

}  // namespace

bool creaFileCU(Form& wizard, Walker& walker, const RichiestaCU& richiesta) {
  Percorso percorso(wizard, walker, richiesta);
  bool riuscito = false;
  walker.runEvent([&] {
    try {
      riuscito = percorso.percorri();
    } catch (const Refused& rifiuto) {
      if (!rifiuto.reason.empty()) walker.messages.push_back(rifiuto.reason);
    }
  });
  return riuscito;
}

}  // namespace cu
