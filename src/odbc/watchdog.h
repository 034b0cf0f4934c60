#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <thread>
#include <vector>

#include "odbc/sockets.h"

namespace cu::odbc {

// Ends a driver call that does not return, by breaking the connection to the server under it. Not every
// driver observes its time limit, none detects a server that is alive and silent when there is no limit, and
// one of them keeps reading from a TLS session that the server has closed in order.
//
// The connection is broken in two cases: when the driver's own time limit and a grace period have passed, so
// that an answer of the server is still received; and, whatever the limit, when the server has closed its
// side, the driver has read all data, and the call is still running a moment later.
//
// Arming costs no system call. Where a process cannot list its sockets (Windows) it does nothing: the drivers
// there observe their time limit.
class Watchdog {
 public:
  Watchdog() = default;
  ~Watchdog();
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

  // Before a login the open sockets are excluded; those opened during the login are watched.
  void beforeLogin();
  void afterLogin();

  // Watches the current call during its lifetime; 0 seconds for no time limit. Nothing is broken after its
  // end.
  class Watch {
   public:
    Watch(Watchdog& watchdog, int seconds) : watchdog_(watchdog) { watchdog_.arm(seconds); }
    ~Watch() { watchdog_.disarm(); }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

   private:
    Watchdog& watchdog_;
  };
  // Whether the connection was broken since the login.
  bool hasBitten() const { return bite_ != Bite::None; }
  bool ranOutOfTime() const { return bite_ == Bite::OutOfTime; }
  bool sawServerGo() const { return bite_ == Bite::ServerGone; }

 private:
  using Clock = std::chrono::steady_clock;
  enum class Bite : std::uint8_t { None, OutOfTime, ServerGone };

  void arm(int seconds);
  void disarm();
  void run();
  bool look();  // whether a call is running
  bool serverIsGone();
  std::vector<SocketId> socketsOfTheSession() const;
  void bite(Bite why);

  static constexpr std::int64_t kIdle = INT64_MAX;         // no call is running
  static constexpr std::int64_t kNoLimit = INT64_MAX - 1;  // a call is running without a time limit
  std::atomic<std::int64_t> deadline_ = kIdle;             // of the clock, in nanoseconds
  std::atomic<std::uint64_t> call_ = 0;
  std::atomic<Bite> bite_ = Bite::None;
  std::atomic<bool> asleep_ = false;
  std::atomic<bool> looking_ = false;
  std::mutex mutex_;  // guards the following members
  std::condition_variable wake_;
  bool stop_ = false;
  bool loggedIn_ = false;
  std::vector<SocketId> before_;
  std::vector<SocketId> watched_;
  std::uint64_t callSeenGone_ = 0;
  int looksSeenGone_ = 0;  // consecutive, within that call
  std::thread thread_;
};

}  // namespace cu::odbc
