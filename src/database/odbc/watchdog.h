#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <thread>
#include <vector>

namespace cu::odbc {

// The network sockets that the process holds open.
struct SocketId {
  int descriptor = -1;
  std::uint64_t node = 0;  // tells a socket from a later one under the same number
  friend bool operator==(const SocketId&, const SocketId&) = default;
};
std::vector<SocketId> openSockets();

// Ends a call of a driver that does not come back, by closing the way to the server under it. Not every
// driver keeps the time it is told, and none notices that a server is alive and silent if it waits without a
// limit. This comes only after the driver's own time and a grace, so that the server's answer is heard where
// there is one.
//
// Arming costs no system call. Where a process cannot find its sockets (Windows) it does nothing: the drivers
// there keep their time.
class Watchdog {
 public:
  Watchdog() = default;
  ~Watchdog();
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

  // Before a login: the sockets that are open now are somebody else's. After it: those that came are watched.
  void beforeLogin();
  void afterLogin();

  // Watches what is under way until the object goes; 0 seconds for no limit.
  class Watch {
   public:
    Watch(Watchdog& watchdog, int seconds) : watchdog_(watchdog) { watchdog_.arm(seconds); }
    ~Watch() { watchdog_.disarm(); }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

   private:
    Watchdog& watchdog_;
  };
  // Whether the way was closed since the login.
  bool hasBitten() const { return bitten_; }

 private:
  using Clock = std::chrono::steady_clock;
  void arm(int seconds);
  void disarm() { deadline_ = kNever; }
  void run();
  void bite();

  static constexpr std::int64_t kNever = INT64_MAX;
  std::atomic<std::int64_t> deadline_ = kNever;  // of the clock, in nanoseconds
  std::atomic<bool> bitten_ = false;
  std::atomic<bool> asleep_ = false;
  std::mutex mutex_;  // of what follows
  std::condition_variable wake_;
  bool stop_ = false;
  bool loggedIn_ = false;
  std::vector<SocketId> before_;
  std::vector<SocketId> watched_;
  std::thread thread_;
};

}  // namespace cu::odbc
