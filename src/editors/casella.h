#pragma once

#include "controls/listbox.h"
#include "controls/numericbox.h"
#include "controls/textbox.h"
#include "controls/utility.h"
#include "editors/campi_editor.h"

namespace cu {

// A column of the form with the control that shows it in an open editor; at most one of the five is set.
struct Casella {
  const CampoEditor* campo = nullptr;
  AmountBox* importo = nullptr;
  TextBox* testo = nullptr;
  Check* flag = nullptr;
  ListBox* elenco = nullptr;
  NumberBox* numero = nullptr;

  bool presente() const { return controllo() != nullptr; }
  Control* controllo() const;

  void mostra(const CellView& valore, const UtilitaSuite& utilita);
  void svuota();
  // In the row's form: an amount unrounded, a flag 1 or 0, an id 0 where nothing is chosen.
  Value valore() const;
  // An amount other than 0, a text with a non-blank character, a ticked box.
  bool pieno() const;
  // Whether it would store a value other than the row's.
  bool diversa(const CellView& riga, const UtilitaSuite& utilita) const;
  // A value of the column as its control shows it, with its entry as by the user.
  Control::Loaded letto(const CellView& valore, const UtilitaSuite& utilita) const;
};

}  // namespace cu
