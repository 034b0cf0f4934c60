#include "base/thousands.h"

#include <algorithm>

namespace cu {

std::string groupThousands(std::string number) {
  const std::size_t first = number.starts_with('-') ? 1 : 0;
  for (std::size_t at = std::min(number.find(','), number.size()); at > first + 3;) {
    at -= 3;
    number.insert(at, 1, '.');
  }
  return number;
}

}  // namespace cu
