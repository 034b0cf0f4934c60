#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

namespace cu {

// Records the phases of a long operation, as they are reported to a ProgressSink. Costs nothing without a
// log.
class LoggedPhases {
 public:
  LoggedPhases() = default;
  ~LoggedPhases() { end(); }
  LoggedPhases(const LoggedPhases&) = delete;
  LoggedPhases& operator=(const LoggedPhases&) = delete;

  // The name is a literal; another one ends the phase before it.
  void progress(const char* phase, std::size_t done);
  void end();

 private:
  const char* phase_ = nullptr;
  std::chrono::steady_clock::time_point since_;
  std::int64_t done_ = 0;
};

}  // namespace cu
