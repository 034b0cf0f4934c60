#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "data/database.h"

namespace cu {

// A table whose rows are found by a code known to the user.
struct LookupTable {
  std::string table;
  std::string codeField;
  std::string descriptionField;
  std::string idField;
  std::string filter;  // a condition on the table; may be empty
};

struct LookupRow {
  std::int64_t record = 0;
  std::string code;
  std::string description;
};

// Returns the first row with that code, or id, under the filter. DatabaseErrors of the connection propagate.
std::optional<LookupRow> findCode(Connection& connection, const LookupTable& table, const std::string& code);
std::optional<LookupRow> findRecord(Connection& connection, const LookupTable& table, std::int64_t id);

}  // namespace cu
