#pragma once

#include <cstdint>
#include <string>

#include "controls/textbox.h"
#include "host/modi.h"

namespace cu {

class UtilitaSuite;

// The frame with protocol and progressive number of an earlier submission: the same on the dialog of the
// additional data and on the oldest editor.
class Riferimenti {
 public:
  Riferimenti(Form& form, Frame* frame);

  // Caption, and whether a person may write: an ordinary communication needs no references.
  void disponi(Comunicazione tipoComunicazione);
  // False when one is missing: the first one is told and has the focus.
  bool fnCompleti(UtilitaSuite& utilita, const std::string& titolo);
  // Where the form has pages: brings the frame into view.
  Event mostra;

  Frame fraRiferimenti;
  Label lblProtocollo;
  TextBox txtProtocollo;
  Label lblProgressivo;
  TextBox txtProgressivo;
};

}  // namespace cu
