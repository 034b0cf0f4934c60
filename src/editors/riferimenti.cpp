#include "editors/riferimenti.h"

#include "base/text.h"
#include "controls/form.h"
#include "controls/frontend.h"
#include "controls/utility.h"
#include "editors/dati_aggiuntivi.h"
#include "worklist/riferimenti.h"

namespace cu {

Riferimenti::Riferimenti(Form& form, Frame* frame)
    : fraRiferimenti(form, "fraRiferimenti", frame, "Riferimenti per annullamento/sostituzione"),
      lblProtocollo(form, "lblProtocollo", &fraRiferimenti, "Protocollo"),
      txtProtocollo(form, "txtProtocollo", &fraRiferimenti),
      lblProgressivo(form, "lblProgressivo", &fraRiferimenti, "Progressivo"),
      txtProgressivo(form, "txtProgressivo", &fraRiferimenti) {
  lblProtocollo.buddy = &txtProtocollo;
  lblProgressivo.buddy = &txtProgressivo;
  for (TextBox* casella : {&txtProtocollo, &txtProgressivo}) {
    casella->setMaxLength(kDescrizione);
    casella->keyFilter = [&form](char32_t carattere) {
      if (tastoRiferimento(carattere)) return true;
      form.frontEnd().beep();
      return false;
    };
  }
}

void Riferimenti::disponi(Comunicazione tipoComunicazione) {
  const bool annullamento = tipoComunicazione == Comunicazione::Annullamento;
  const bool aperti = annullamento || tipoComunicazione == Comunicazione::Sostituzione;
  if (annullamento) {
    fraRiferimenti.setCaption("Riferimenti per annullamento");
  } else {
    fraRiferimenti.setCaption(aperti ? "Riferimenti per sostituzione" : "Riferimenti per sost./ann.");
  }
  for (Control* controllo : std::initializer_list<Control*>{&fraRiferimenti, &lblProtocollo, &txtProtocollo,
                                                            &lblProgressivo, &txtProgressivo}) {
    controllo->setEnabled(aperti);
  }
  for (TextBox* casella : {&txtProtocollo, &txtProgressivo}) {
    casella->setBackground(aperti ? Background::Window : Background::Face);
  }
}

bool Riferimenti::fnCompleti(UtilitaSuite& utilita, const std::string& titolo) {
  const auto manca = [&](TextBox& casella, const char* testo) {
    if (!trim(casella.text()).empty()) return false;
    if (mostra) mostra();
    utilita.message(testo, titolo);
    casella.form().setFocus(&casella);
    return true;
  };
  return !manca(txtProtocollo, "Attenzione! Il protocollo è un campo obbligatorio.") &&
         !manca(txtProgressivo, "Attenzione! Il progressivo è un campo obbligatorio.");
}

}  // namespace cu
