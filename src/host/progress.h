#pragma once

#include <cstddef>

namespace cu {

inline constexpr int kPointerDefault = 0;
inline constexpr int kPointerHourglass = 11;

// Progress of long operations.
class ProgressSink {
 public:
  virtual ~ProgressSink() = default;
  virtual void setPointer(int pointer) = 0;  // kPointerHourglass while the user has to wait
  // The operation and its progress; the total is 0 where it is unknown. Called for each row, so it is
  // required to be cheap; runs no event.
  virtual void progress(const char* /*what*/, std::size_t /*done*/, std::size_t /*total*/) {}
  // Whether the user wants the running operation to end here. An operation that can end early asks between
  // two steps that are each complete; from its first question on, a front end may offer the interruption.
  virtual bool interrupted() { return false; }
};

}  // namespace cu
