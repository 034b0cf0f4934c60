#pragma once

#include "host/session.h"

namespace cu {

// The suite's numbered texts, of which the wizard uses five; "" for any other number.
class TestiItaliani : public TestiSuite {
 public:
  std::string text(std::int16_t number) override;
};

}  // namespace cu
