#pragma once

#include <QByteArray>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <future>
#include <mutex>
#include <thread>
#include <vector>

namespace cu::reporting {

// Threads that lay reports out while the program's own thread reads the rows of the next ones. They are kept
// for all prints of a run, because the toolkit loads its fonts anew in each thread.
class LayoutThreads {
 public:
  explicit LayoutThreads(std::size_t count);
  // Waits for the tasks that have begun; the others are dropped.
  ~LayoutThreads();
  LayoutThreads(const LayoutThreads&) = delete;
  LayoutThreads& operator=(const LayoutThreads&) = delete;

  std::size_t count() const { return threads_.size(); }
  // Tasks are begun in this order. What a task raises, the result raises.
  std::future<QByteArray> start(std::function<QByteArray()> task);

 private:
  void run();

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<std::packaged_task<QByteArray()>> waiting_;
  bool ending_ = false;
  std::vector<std::thread> threads_;
};

}  // namespace cu::reporting
