#include "suite/logged_phases.h"

#include <algorithm>
#include <utility>

#include "suite/support_log.h"

namespace cu {

void LoggedPhases::progress(const char* phase, std::size_t done) {
  if (phase != phase_) {
    end();
    if (SupportLog::active() == nullptr) return;
    phase_ = phase;
    since_ = std::chrono::steady_clock::now();
  }
  done_ = std::max(done_, static_cast<std::int64_t>(done));
}

void LoggedPhases::end() {
  const char* const ended = std::exchange(phase_, nullptr);
  const std::int64_t done = std::exchange(done_, 0);
  SupportLog* const log = SupportLog::active();
  if (ended == nullptr || log == nullptr) return;
  LogEntry entry{.operation = "fase", .detail = ended};
  entry.duration =
      std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - since_);
  if (done > 0) entry.rows = done;
  log->record(entry);
}

}  // namespace cu
