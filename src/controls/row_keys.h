#pragma once

#include <compare>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace cu {

// What rows of other tables name a grid's row by: two whole numbers.
struct RowKey {
  std::int64_t first = 0;
  std::int64_t second = 0;
  auto operator<=>(const RowKey&) const = default;  // NOLINT(modernize-use-nullptr)
};
using RowKeys = std::vector<RowKey>;  // ascending, each once

// Reads keys over a connection of its own; raises errors. It is called in a thread of its own and uses
// nothing of a form, which may be closed meanwhile.
using RowKeysReading = std::function<RowKeys()>;
// The reading of a statement with two columns; empty where it cannot be read beside the form.
using RowKeysOf = std::function<RowKeysReading(const std::string& statement)>;

}  // namespace cu
