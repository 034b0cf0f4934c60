#pragma once

#include <cstddef>

namespace cu {

inline constexpr int kPointerDefault = 0;
inline constexpr int kPointerHourglass = 11;

// What long work reports while it runs.
class ProgressSink {
 public:
  virtual ~ProgressSink() = default;
  virtual void setPointer(int pointer) = 0;  // kPointerHourglass while a person has to wait
  // What is being done and how far it is; a total of 0 where it is unknown. Called for each row, so it has to
  // cost next to nothing; runs no event.
  virtual void progress(const char* /*what*/, std::size_t /*done*/, std::size_t /*total*/) {}
};

}  // namespace cu
