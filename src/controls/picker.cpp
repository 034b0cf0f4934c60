#include "controls/picker.h"

#include "base/error.h"
#include "base/text.h"

namespace cu {

void Picker::bind(Connection& connection, const std::string& title, std::int32_t helpContext) {
  connection_ = &connection;
  title_ = title;
  helpContext_ = helpContext;
  notify();
  setRecord(0);
}

std::string Picker::nameOf(std::int64_t id) const {
  if (id < 1) return {};
  if (connection_ == nullptr)
    throw Error(kErrorObjectNotSet, "Il campo " + name() + " non è collegato a una tabella.");
  Recordset rows;
  rows.Open(*connection_, "SELECT Comune FROM Comune WHERE IDComune = " + fromInteger(id));
  return rows.Eof() ? std::string() : rows.Get(0).toText();
}

void Picker::list(Recordset& rows) const {
  if (connection_ == nullptr)
    throw Error(kErrorObjectNotSet, "Il campo " + name() + " non è collegato a una tabella.");
  rows.Open(*connection_,
            "SELECT Comune.IDComune, Provincia.Provincia, Comune.Comune FROM Comune LEFT JOIN Provincia ON "
            "Comune.IDProvincia = Provincia.IDProvincia ORDER BY Comune.Comune");
}

void Picker::setRecord(std::int64_t id) {
  std::string text = nameOf(id);
  storedRecord_ = id;
  const std::int64_t record = text.empty() ? 0 : id;
  if (record == record_ && text == text_) return;
  record_ = record;
  text_ = std::move(text);
  notify();
  if (onChange) onChange();
}

}  // namespace cu
