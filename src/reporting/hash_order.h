#pragma once

namespace cu::reporting {

// During its lifetime the order of the toolkit's hash tables is the same in every process; a PDF's fonts are
// embedded in the order of such a table.
class FixedHashOrder {
 public:
  FixedHashOrder();
  ~FixedHashOrder();
  FixedHashOrder(const FixedHashOrder&) = delete;
  FixedHashOrder& operator=(const FixedHashOrder&) = delete;
};

}  // namespace cu::reporting
