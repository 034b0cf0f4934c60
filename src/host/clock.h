#pragma once

#include "base/date.h"

namespace cu {

class Clock {
 public:
  virtual ~Clock() = default;
  virtual Date today() const = 0;
  virtual TimeOfDay now() const = 0;
};

}  // namespace cu
