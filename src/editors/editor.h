#pragma once

#include <cstdint>
#include <memory>

#include "context/globali.h"
#include "controls/form.h"
#include "controls/utility.h"
#include "data/recordset.h"
#include "host/modi.h"
#include "host/settings.h"

namespace cu {

// What an editor needs around it.
struct AmbienteEditor {
  FrontEnd& frontEnd;
  Globali& globali;
  UtilitaSuite& utilita;
  Settings& settings;
};

// The editor of one compensation line, as the worklist uses it: the recordset stands on the line to be
// edited; the editor filters it to that line and changes nothing but the recordset's row and, at the
// confirmation, the additional modules in the database.
class Editor : public Form {
 public:
  using Form::Form;
  virtual void setRecordset(cu::Recordset& righe) = 0;  // loads the row
  virtual cu::Recordset& Recordset() = 0;
  virtual void setTipoComunicazione(Comunicazione tipo) = 0;
  // Opens only the additional data; an annulment is finished by it. The oldest layout has them on its own
  // page and does nothing.
  virtual void ApriDatiAggiuntivi() = 0;
  virtual bool OK() const = 0;
  // Part of the confirmation: brings the row to the database. Where it raises an error the editor stays open,
  // with what was typed, and the row is as it was.
  Event onConfirm;
};

// The editor of a tax year, in the layout that its form has.
std::unique_ptr<Editor> fnCreaEditor(std::int32_t anno, const AmbienteEditor& ambiente);

// Whether an annulment of the year is finished by its additional data alone, without the editor. A year
// before the first form is shown in the newest layout, and yet its annulment opens the editor.
bool fnAnnullaNelDialogo(std::int32_t anno);

}  // namespace cu
