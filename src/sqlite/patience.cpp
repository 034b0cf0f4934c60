#include "sqlite/patience.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace cu::sqlite {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kSilent = std::chrono::seconds(5);
constexpr milliseconds kLongestPause(100);

}  // namespace

void Patience::install(sqlite3* database, int limit, std::function<void()> waiting) {
  limit_ = milliseconds(limit);
  waiting_ = std::move(waiting);
  if (waiting_) {
    sqlite3_busy_handler(database, &Patience::wait, this);
  } else {
    sqlite3_busy_timeout(database, limit);
  }
}

int Patience::wait(void* patience, int times) noexcept {
  return static_cast<Patience*>(patience)->waitAgain(times) ? 1 : 0;
}

bool Patience::waitAgain(int times) {
  const auto now = std::chrono::steady_clock::now();
  if (times == 0) since_ = now;
  const auto waited = now - since_;
  if (waited >= limit_) return false;
  if (waited >= kSilent && waiting_) std::exchange(waiting_, nullptr)();
  std::this_thread::sleep_for(std::min(milliseconds(1 + 5 * times), kLongestPause));
  return true;
}

}  // namespace cu::sqlite
