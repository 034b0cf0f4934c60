#pragma once

#include "controls/listbox.h"
#include "controls/numericbox.h"
#include "controls/textbox.h"
#include "controls/utility.h"
#include "editors/campi_editor.h"

namespace cu {

// A column of the form with the control that shows it in an open editor; one of the five, or none.
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
  // As the row keeps it: an amount whole, a flag 1 or 0, an id 0 where nothing is chosen.
  Value valore() const;
  // An amount other than 0, a text with more than blanks, a box that is ticked.
  bool pieno() const;
  // Whether it would store anything else than the value of the row.
  bool diversa(const CellView& riga, const UtilitaSuite& utilita) const;
};

}  // namespace cu
