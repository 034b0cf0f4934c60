#include "reporting/layout_threads.h"

#include <utility>

namespace cu::reporting {

LayoutThreads::LayoutThreads(std::size_t count) {
  threads_.reserve(count);
  for (std::size_t i = 0; i < count; ++i) threads_.emplace_back([this] { run(); });
}

LayoutThreads::~LayoutThreads() {
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
    waiting_.clear();
  }
  changed_.notify_all();
  for (std::thread& each : threads_) each.join();
}

std::future<QByteArray> LayoutThreads::start(std::function<QByteArray()> task) {
  std::packaged_task<QByteArray()> packaged(std::move(task));
  std::future<QByteArray> result = packaged.get_future();
  {
    const std::lock_guard lock(mutex_);
    waiting_.push_back(std::move(packaged));
  }
  changed_.notify_one();
  return result;
}

void LayoutThreads::run() {
  for (;;) {
    std::packaged_task<QByteArray()> task;
    {
      std::unique_lock lock(mutex_);
      changed_.wait(lock, [this] { return ending_ || !waiting_.empty(); });
      if (ending_) return;
      task = std::move(waiting_.front());
      waiting_.pop_front();
    }
    task();
  }
}

}  // namespace cu::reporting
