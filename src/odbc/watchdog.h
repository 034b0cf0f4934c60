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

// Ends a call of a driver that does not come back, by breaking the way to the server under it. Not every
// driver keeps the time it is told, none notices that a server is alive and silent if it waits without a
// limit, and one of them goes on asking a TLS session for data after the server has closed it in order.
//
// The way is broken when the driver's own time and a grace have passed, so that the server's answer is heard
// where there is one; and, whatever time is allowed, when the server has closed its side, the driver has
// taken all that came, and the call is still under way a moment later.
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

  // Watches what is under way until the object goes; 0 seconds for no limit of time. Behind its end nothing
  // is broken any more.
  class Watch {
   public:
    Watch(Watchdog& watchdog, int seconds) : watchdog_(watchdog) { watchdog_.arm(seconds); }
    ~Watch() { watchdog_.disarm(); }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

   private:
    Watchdog& watchdog_;
  };
  // Whether the way was broken since the login, and why.
  bool hasBitten() const { return bite_ != Bite::None; }
  bool ranOutOfTime() const { return bite_ == Bite::OutOfTime; }
  bool sawServerGo() const { return bite_ == Bite::ServerGone; }

 private:
  using Clock = std::chrono::steady_clock;
  enum class Bite : std::uint8_t { None, OutOfTime, ServerGone };

  void arm(int seconds);
  void disarm();
  void run();
  bool look();  // whether something is under way
  bool serverIsGone();
  std::vector<SocketId> socketsOfTheSession() const;
  void bite(Bite why);

  static constexpr std::int64_t kIdle = INT64_MAX;         // nothing is under way
  static constexpr std::int64_t kNoLimit = INT64_MAX - 1;  // something is, for as long as it takes
  std::atomic<std::int64_t> deadline_ = kIdle;             // of the clock, in nanoseconds
  std::atomic<std::uint64_t> call_ = 0;
  std::atomic<Bite> bite_ = Bite::None;
  std::atomic<bool> asleep_ = false;
  std::atomic<bool> looking_ = false;
  std::mutex mutex_;  // of what follows
  std::condition_variable wake_;
  bool stop_ = false;
  bool loggedIn_ = false;
  std::vector<SocketId> before_;
  std::vector<SocketId> watched_;
  std::uint64_t callSeenGone_ = 0;
  int looksSeenGone_ = 0;  // one behind the other, within that call
  std::thread thread_;
};

}  // namespace cu::odbc
