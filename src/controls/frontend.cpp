#include "controls/frontend.h"

#include <exception>

namespace cu {

void FrontEnd::runEvent(const std::function<void()>& event) {
  try {
    event();
  } catch (const std::exception& raised) {
    error(asError(raised));
  }
}

}  // namespace cu
