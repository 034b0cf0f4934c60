#pragma once

#include <cstdint>
#include <string>

#include "controls/selector.h"
#include "controls/textbox.h"
#include "editors/editor.h"

namespace cu {

// The payee and the payment reason of the line, read-only: bound selectors, and the name. `suffisso`
// distinguishes the boxes of a second page from those of the first.
class Percipiente {
 public:
  Percipiente(Form& form, Frame* frame, const std::string& suffisso);

  void associa(const AmbienteEditor& ambiente);
  void mostra(std::int32_t idAnagrafica, const std::string& nome, std::int32_t idCausale);

  Selector cdPercipiente;
  TextBox txtNome;
  Selector cdPagamento;
};

}  // namespace cu
