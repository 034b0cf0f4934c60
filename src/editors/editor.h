#pragma once

#include <cstdint>
#include <memory>

#include "context/globali.h"
#include "controls/form.h"
#include "controls/utility.h"
#include "data/recordset.h"
#include "host/modi.h"
#include "host/settings.h"
#include "modello/modello.h"

namespace cu {

// The surroundings of an editor.
struct AmbienteEditor {
  FrontEnd& frontEnd;
  Globali& globali;
  UtilitaSuite& utilita;
  Settings& settings;
  const modello::Modello& modello = modello::kModello;  // the form of the files
};

// The editor of one compensation line, as used by the worklist. The recordset's current row is the line to
// edit. The editor filters the recordset to that line; it changes only the recordset's row and, at the
// confirmation, the additional modules in the database.
class Editor : public Form {
 public:
  using Form::Form;
  virtual void setRecordset(cu::Recordset& righe) = 0;  // loads the row
  virtual cu::Recordset& Recordset() = 0;
  virtual void setTipoComunicazione(Comunicazione tipo) = 0;
  // Opens only the additional data, which complete an annulment. No effect in the oldest layout, which has
  // them on its own page.
  virtual void ApriDatiAggiuntivi() = 0;
  virtual bool OK() const = 0;
  // Part of the confirmation: stores the row in the database. If it raises an error, the editor stays open
  // with its input, and the row is unchanged.
  Event onConfirm;
};

// Creates the editor of a tax year, in the layout of its form.
std::unique_ptr<Editor> fnCreaEditor(std::int32_t anno, const AmbienteEditor& ambiente);

// Whether an annulment of the year needs only the additional data, without the editor. A year before the
// first form is shown in the newest layout, but its annulment opens the editor.
bool fnAnnullaNelDialogo(std::int32_t anno);

}  // namespace cu
