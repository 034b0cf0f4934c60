#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include "data/lookup.h"

namespace cu {

// Columns that a front end can show beside the rows of a selector's list, and search: what the selector's own
// statement does not read. No form knows them.
struct FurtherColumns {
  std::vector<std::string> captions;  // none where there is nothing to add
  // By the record of a row, a text for each caption.
  using Texts = std::unordered_map<std::int64_t, std::vector<std::string>>;
  // Reads all rows; raises errors. It is called in a thread of its own and uses nothing of a form, which may
  // be closed meanwhile.
  std::function<Texts()> read;
};

// Of the table of a selector.
using FurtherColumnsOf = std::function<FurtherColumns(const LookupTable& table)>;

}  // namespace cu
