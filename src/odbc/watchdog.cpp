#include "odbc/watchdog.h"

#include <algorithm>

namespace cu::odbc {
namespace {

constexpr std::chrono::milliseconds kStep{100};
constexpr int kIdleSteps = 20;      // then it sleeps until it is armed again
constexpr int kLooksUntilGone = 3;  // a driver may still be processing data received

// Longer than the driver's own time limit.
std::chrono::nanoseconds allowance(int seconds) {
  constexpr int kLeast = 2;
  constexpr int kMost = 30;
  return std::chrono::seconds(seconds + std::clamp(seconds / 4, kLeast, kMost));
}

}  // namespace

Watchdog::~Watchdog() {
  if (!thread_.joinable()) return;
  {
    const std::lock_guard lock(mutex_);
    stop_ = true;
  }
  wake_.notify_all();
  thread_.join();
}

void Watchdog::beforeLogin() {
  const std::lock_guard lock(mutex_);
  before_ = openSockets();
  loggedIn_ = false;
  bite_ = Bite::None;
}

void Watchdog::afterLogin() {
  const std::lock_guard lock(mutex_);
  watched_ = socketsOfTheSession();
  loggedIn_ = true;
}

std::vector<SocketId> Watchdog::socketsOfTheSession() const {
  if (loggedIn_) return watched_;
  std::vector<SocketId> sockets = openSockets();
  std::erase_if(sockets, [this](const SocketId& each) {
    return std::find(before_.begin(), before_.end(), each) != before_.end();
  });
  return sockets;
}

void Watchdog::arm(int seconds) {
  ++call_;
  deadline_ = seconds > 0
                  ? std::chrono::nanoseconds(Clock::now().time_since_epoch() + allowance(seconds)).count()
                  : kNoLimit;
  if (!thread_.joinable()) {
    thread_ = std::thread([this] { run(); });
  } else if (asleep_) {
    const std::lock_guard lock(mutex_);
    wake_.notify_all();
  }
}

// Waits for a check in progress, so that a connection broken by it belongs to this call.
void Watchdog::disarm() {
  deadline_ = kIdle;
  if (looking_) const std::lock_guard lock(mutex_);
}

void Watchdog::run() {
  std::unique_lock lock(mutex_);
  for (int idle = 0; !stop_;) {
    looking_ = true;
    idle = look() ? 0 : idle + 1;
    looking_ = false;
    if (idle < kIdleSteps) {
      wake_.wait_for(lock, kStep, [this] { return stop_; });
      continue;
    }
    asleep_ = true;
    wake_.wait(lock, [this] { return stop_ || deadline_ != kIdle; });
    asleep_ = false;
    idle = 0;
  }
}

bool Watchdog::look() {
  const std::int64_t deadline = deadline_;
  if (deadline == kIdle) return false;
  if (hasBitten()) return true;
  if (std::chrono::nanoseconds(Clock::now().time_since_epoch()).count() >= deadline) {
    bite(Bite::OutOfTime);
  } else if (serverIsGone()) {
    bite(Bite::ServerGone);
  }
  return true;
}

bool Watchdog::serverIsGone() {
  const std::uint64_t call = call_;
  if (call != callSeenGone_) looksSeenGone_ = 0;
  callSeenGone_ = call;
  bool open = false;
  bool finished = false;
  for (const SocketId& each : socketsOfTheSession()) {
    const SocketState state = stateOf(each);
    open = open || state == SocketState::Open;
    finished = finished || state == SocketState::Finished;
  }
  looksSeenGone_ = finished && !open ? looksSeenGone_ + 1 : 0;
  return looksSeenGone_ >= kLooksUntilGone;
}

void Watchdog::bite(Bite why) {
  bite_ = why;
  std::ranges::for_each(socketsOfTheSession(), breakOff);
}

}  // namespace cu::odbc
