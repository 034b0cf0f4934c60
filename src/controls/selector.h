#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "controls/control.h"
#include "data/database.h"
#include "data/lookup.h"
#include "data/recordset.h"

namespace cu {

// A code and description selector bound to one table: a code box, a description box and a search list.
class Selector : public Control {
 public:
  using Control::Control;
  void accept(ControlVisitor& visitor) override { visitor.visit(*this); }

  struct Binding : LookupTable {
    std::string codeCaption;
    std::string descriptionCaption;
    std::string title;
    bool manage = false;  // toolbar entry "EseguiGestione"
    bool search = true;   // toolbar entry "Ricerca"
  };
  // Sets the table and empties the selector.
  void bind(Connection& connection, Binding binding);
  const Binding& binding() const { return binding_; }

  std::int64_t record() const { return record_; }  // 0 when none
  const std::string& code() const { return code_; }
  const std::string& description() const { return description_; }

  using Row = LookupRow;
  // Returns the table's row with that code, or id, under the filter.
  std::optional<Row> findCode(const std::string& code) const;
  std::optional<Row> findRecord(std::int64_t id) const;
  // The same row is chosen. False when there is none: nothing changes.
  bool chooseRecord(std::int64_t id) { return choose(findRecord(id)); }
  bool choose(const std::optional<Row>& row);
  // Sets code and description without a look-up; they need not match a row.
  void choose(const std::string& code, const std::string& description);
  void empty() { set(0, "", ""); }
  // The rows of its search list: id, code and description, ordered by description.
  void list(Recordset& rows) const;

  Event onChange;

 private:
  Connection& connection() const;  // raises Error where it is not bound
  void set(std::int64_t record, const std::string& code, const std::string& description);

  Connection* connection_ = nullptr;
  Binding binding_;
  std::int64_t record_ = 0;
  std::string code_;
  std::string description_;
};

}  // namespace cu
