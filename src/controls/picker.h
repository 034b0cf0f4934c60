#pragma once

#include <cstdint>
#include <string>

#include "controls/control.h"
#include "data/database.h"
#include "data/recordset.h"

namespace cu {

// The suite's picker of a municipality: its name, and its id behind it.
class Picker : public Control {
 public:
  using Control::Control;
  void accept(ControlVisitor& visitor) override { visitor.visit(*this); }

  // The title is that of its search list. Empties it.
  void bind(Connection& connection, const std::string& title, std::int32_t helpContext);
  const std::string& title() const { return title_; }
  std::int32_t helpContext() const { return helpContext_; }
  Connection* connection() const { return connection_; }

  std::int64_t record() const { return record_; }  // 0 when none
  const std::string& text() const { return text_; }
  // What is to be stored: the id last set, also one that no row has.
  std::int64_t storedRecord() const { return storedRecord_; }
  // The name of a municipality, "" when no row has that id.
  std::string nameOf(std::int64_t id) const;
  // The rows of its search list, id, province and name, in the order of the names.
  void list(Recordset& rows) const;
  // An id that no row has empties it, as 0 does. Raises the change event when the id differs.
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
