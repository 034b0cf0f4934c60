#pragma once

#include <cstdint>

class QKeyEvent;

namespace cu::desktop {

// A key in the forms' terms: its code (the letter, 112 for F1, 13, 27, 32, ...), 0 for any other key, and the
// sum of 1 Shift, 2 Control, 4 Alt.
struct FormKey {
  std::int16_t code = 0;
  std::int16_t shift = 0;
};
FormKey formKey(const QKeyEvent& event);

}  // namespace cu::desktop
