#pragma once

#include "host/clock.h"

namespace cu::test {

// A stopped clock, set by the test.
class FixedClock : public Clock {
 public:
  explicit FixedClock(Date day, TimeOfDay time = {10, 30, 0}) : day_(day), time_(time) {}
  FixedClock(int year, int month, int dayOfMonth)
      : FixedClock(Date::fromYmd(year, month, dayOfMonth).value()) {}
  Date today() const override { return day_; }
  TimeOfDay now() const override { return time_; }
  void set(Date day) { day_ = day; }
  void set(TimeOfDay time) { time_ = time; }

 private:
  Date day_;
  TimeOfDay time_;
};

}  // namespace cu::test
