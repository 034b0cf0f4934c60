#pragma once

#include <cstdint>
#include <string>

#include "controls/textbox.h"
#include "host/modi.h"

namespace cu {

class UtilitaSuite;

// The frame with protocol and progressive number of an earlier submission, shared by the dialog of the
// additional data and the oldest editor.
class Riferimenti {
 public:
  Riferimenti(Form& form, Frame* frame);

  // Sets the caption, and whether the user may write: an ordinary communication needs no references.
  void disponi(Comunicazione tipoComunicazione);
  // Returns false when one is missing: reports the first missing one and gives it the focus.
  bool fnCompleti(UtilitaSuite& utilita, const std::string& titolo);
  // Where the form has pages: makes the frame visible.
  Event mostra;

  Frame fraRiferimenti;
  Label lblProtocollo;
  TextBox txtProtocollo;
  Label lblProgressivo;
  TextBox txtProgressivo;
};

}  // namespace cu
