#pragma once

#include <cstdint>
#include <string>

#include "controls/control.h"
#include "data/database.h"
#include "data/recordset.h"

namespace cu {

// The suite's picker of a municipality: shows its name, stores its id.
class Picker : public Control {
 public:
  using Control::Control;
  void accept(ControlVisitor& visitor) override { visitor.visit(*this); }

  // `title` is the title of its search list. Empties the picker.
  void bind(Connection& connection, const std::string& title, std::int32_t helpContext);
  const std::string& title() const { return title_; }
  std::int32_t helpContext() const { return helpContext_; }
  Connection* connection() const { return connection_; }

  std::int64_t record() const { return record_; }  // 0 when none
  const std::string& text() const { return text_; }
  // The value to store: the id last set, also where no row has it.
  std::int64_t storedRecord() const { return storedRecord_; }
  // The name of a municipality, "" when no row has that id.
  std::string nameOf(std::int64_t id) const;
  // The rows of its search list: id, province and name, ordered by name.
  void list(Recordset& rows) const;
  // An id without a row empties the picker, as 0 does. Raises the change event when the id differs.
  void setRecord(std::int64_t id);

  Event onChange;

 private:
  Connection* connection_ = nullptr;
  std::string title_;
  std::int32_t helpContext_ = 0;
  std::int64_t record_ = 0;
  std::int64_t storedRecord_ = 0;
  std::string text_;
};

}  // namespace cu
