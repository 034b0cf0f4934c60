#include "apps/comune/terminale.h"

#include <stdexcept>

#include "controls/form.h"
#include "suite/support_log.h"

namespace cu {
namespace {

[[noreturn]] void senzaForme(const Form& form) {
  throw std::logic_error("the form " + form.name() + " is shown by a command without forms");
}

}  // namespace

bool Terminale::conferma(const std::string& testo) {
  avvisi.push_back({testo, passaAvvisi});
  return passaAvvisi;
}

void Terminale::show(Form& form) { senzaForme(form); }

void Terminale::showModal(Form& form) { senzaForme(form); }

void Terminale::error(const Error& error) {
  logFailure("messaggio", error);
  messaggi.push_back(error.description());
}

Answer Terminale::messageBox(const MessageBox& box) {
  switch (box.buttons) {
    case BoxButtons::Ok:
      messaggi.push_back(box.text);
      return Answer::Ok;
    case BoxButtons::OkCancel:
      return conferma(box.text) ? Answer::Ok : Answer::Cancel;
    case BoxButtons::YesNo:
    case BoxButtons::YesNoCancel:
      break;
  }
  return box.byDefault;
}

}  // namespace cu
