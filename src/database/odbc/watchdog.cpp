#include "database/odbc/watchdog.h"

#ifndef _WIN32
#include <netinet/in.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#endif

#include <algorithm>

namespace cu::odbc {
namespace {

constexpr std::chrono::milliseconds kStep{100};
constexpr int kIdleSteps = 20;  // after which it sleeps until it is armed again

// Behind the driver's own time.
std::chrono::nanoseconds allowance(int seconds) {
  constexpr int kLeast = 2;
  constexpr int kMost = 30;
  return std::chrono::seconds(seconds + std::clamp(seconds / 4, kLeast, kMost));
}

#ifndef _WIN32
bool isNetworkSocket(int descriptor, std::uint64_t& node) {
  struct stat status {};
  if (::fstat(descriptor, &status) != 0 || !S_ISSOCK(status.st_mode)) return false;
  sockaddr_storage address{};
  socklen_t length = sizeof address;
  if (::getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &length) != 0) return false;
  node = status.st_ino;
  return address.ss_family == AF_INET || address.ss_family == AF_INET6;
}
#endif

}  // namespace

std::vector<SocketId> openSockets() {
  std::vector<SocketId> sockets;
#ifndef _WIN32
  constexpr rlim_t kMost = 4096;
  rlimit limit{};
  ::getrlimit(RLIMIT_NOFILE, &limit);
  const int last = static_cast<int>(std::min(limit.rlim_cur, kMost));
  for (int descriptor = 0; descriptor < last; ++descriptor) {
    SocketId socket{descriptor, 0};
    if (isNetworkSocket(descriptor, socket.node)) sockets.push_back(socket);
  }
#endif
  return sockets;
}

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
  bitten_ = false;
}

void Watchdog::afterLogin() {
  const std::lock_guard lock(mutex_);
  watched_ = openSockets();
  std::erase_if(watched_, [this](const SocketId& each) {
    return std::find(before_.begin(), before_.end(), each) != before_.end();
  });
  loggedIn_ = true;
}

void Watchdog::arm(int seconds) {
  if (seconds <= 0) return;
  deadline_ = std::chrono::nanoseconds(Clock::now().time_since_epoch() + allowance(seconds)).count();
  if (!thread_.joinable()) {
    thread_ = std::thread([this] { run(); });
  } else if (asleep_) {
    const std::lock_guard lock(mutex_);
    wake_.notify_all();
  }
}

void Watchdog::run() {
  std::unique_lock lock(mutex_);
  for (int idle = 0; !stop_;) {
    const std::int64_t deadline = deadline_;
    if (deadline == kNever) {
      ++idle;
    } else {
      idle = 0;
      if (std::chrono::nanoseconds(Clock::now().time_since_epoch()).count() >= deadline) bite();
    }
    if (idle < kIdleSteps) {
      wake_.wait_for(lock, kStep, [this] { return stop_; });
      continue;
    }
    asleep_ = true;
    wake_.wait(lock, [this] { return stop_ || deadline_ != kNever; });
    asleep_ = false;
    idle = 0;
  }
}

void Watchdog::bite() {
  deadline_ = kNever;
  bitten_ = true;
#ifndef _WIN32
  std::vector<SocketId> victims = loggedIn_ ? watched_ : openSockets();
  for (const SocketId& each : victims) {
    std::uint64_t node = 0;
    if (!isNetworkSocket(each.descriptor, node) || node != each.node) continue;
    if (!loggedIn_ && std::find(before_.begin(), before_.end(), each) != before_.end()) continue;
    ::shutdown(each.descriptor, SHUT_RDWR);
  }
#endif
}

}  // namespace cu::odbc
