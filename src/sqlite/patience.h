#pragma once

#include <sqlite3.h>

#include <chrono>
#include <functional>

namespace cu::sqlite {

// How a connection waits for a lock of another program.
class Patience {
 public:
  // Outlives the connection's use. `waiting` is called once in its life, after some seconds, and raises
  // nothing.
  void install(sqlite3* database, int milliseconds, std::function<void()> waiting);

 private:
  static int wait(void* patience, int times) noexcept;
  bool waitAgain(int times);

  std::chrono::milliseconds limit_{0};
  std::function<void()> waiting_;
  std::chrono::steady_clock::time_point since_;
};

}  // namespace cu::sqlite
