#include "automation/percorso.h"

#include "automation/gestures.h"
#include "base/text.h"
#include "controls/form.h"
#include "controls/selector.h"
#include "controls/textbox.h"

namespace cu {

Control& Percorso::controllo(const Form& form, const std::string& nome) {
  Control* const trovato = form.find(nome);
  if (trovato == nullptr) throw Refused{form.name() + " non ha un controllo \"" + nome + "\""};
  return *trovato;
}

int Percorso::passo() const {
  const auto cornici = wizard_.stages();
  for (std::size_t i = 0; i < cornici.size(); ++i) {
    if (cornici[i]->onStage()) return static_cast<int>(i);
  }
  return -1;
}

void Percorso::premi(const std::string& nome) {
  clickOn(controllo(nome));
  if (!walker_.messages.empty()) throw Refused{""};
}

void Percorso::avanti(int atteso) {
  premi("cmdNav(3)");
  if (passo() != atteso) throw Refused{"il passo " + fromInteger(atteso + 1) + " non si apre"};
}

void Percorso::scrivi(Control& casella, const std::string& testo) {
  typeInto(casella, testo);
  const auto* const scritta = dynamic_cast<const EditBox*>(&casella);
  if (scritta != nullptr && scritta->text() != testo) {
    throw Refused{fullName(casella) + ": il testo \"" + testo + "\" non è ammesso"};
  }
}

void Percorso::scegliAnno(const std::string& elenco, const std::string& anno) {
  Choice scelta;
  scelta.text = anno;
  try {
    choose(controllo(elenco), scelta);
  } catch (const Refused&) {
    throw Refused{"Nessun conto individuale per l'anno " + anno + "."};
  }
}

void Percorso::estremi(const Estremi& scelti) {
  estremo("KrnCDPerc(0)", scelti.daPercipiente);
  estremo("KrnCDPerc(1)", scelti.aPercipiente);
  estremo("KrnCDCausContrib(0)", scelti.daCausale);
  estremo("KrnCDCausContrib(1)", scelti.aCausale);
}

void Percorso::estremo(const std::string& nome, const std::optional<std::string>& codice) {
  if (!codice) return;
  auto* const selettore = dynamic_cast<Selector*>(&controllo(nome));
  if (selettore == nullptr) throw Refused{nome + " non è un selettore"};
  Choice scelta;
  scelta.code = codice;
  if (!selettore->findCode(*codice)) scelta.description = "";
  choose(*selettore, scelta);
}

bool percorri(Walker& walker, const std::function<bool()>& percorso) {
  bool riuscito = false;
  walker.runEvent([&] {
    try {
      riuscito = percorso();
    } catch (const Refused& rifiuto) {
      if (!rifiuto.reason.empty()) walker.messages.push_back(rifiuto.reason);
    }
  });
  return riuscito;
}

}  // namespace cu
