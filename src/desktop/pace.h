#pragma once

#include <QString>
#include <cstddef>
#include <optional>

namespace cu::desktop {

// The running rate of a work, and what remains of it by that rate. Times are milliseconds of any clock.
class Pace {
 public:
  // A progress report of the work; another name, or less done than before, begins another one.
  void note(const QString& what, std::size_t done, std::size_t total, qint64 now);
  // None in the first seconds, without a total, and while nothing gets done.
  std::optional<qint64> remaining() const;

 private:
  struct Mark {
    qint64 time = 0;
    std::size_t done = 0;
  };
  QString what_;
  Mark began_;
  // The rate is that since `from_`, which follows the work at some distance.
  Mark from_;
  Mark next_;
  Mark last_;
  std::size_t total_ = 0;
};

// "ancora circa 2 minuti"; rounded up, as people expect a work to end not later than announced.
QString remainingText(qint64 milliseconds);

}  // namespace cu::desktop
