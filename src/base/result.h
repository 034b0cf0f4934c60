#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace cu {

// A refusal or warning of an operation: a code for programs, an Italian text, and the place of the correction
// (the name of a control of the wizard, or "" where there is none).
struct Finding {
  std::string code;
  std::string text;
  std::string place;
};

struct Done {};

// The result of an operation. Without refusals it has a value; with refusals it may have one, for what is
// available anyway. Technical failures (database, file) are raised as Error, not stored here.
template <class T = Done>
class [[nodiscard]] Result {
 public:
  Result(T value) : value_(std::move(value)) {}  // NOLINT(google-explicit-constructor)
  static Result refused(Finding refusal) {
    Result result;
    result.refusals.push_back(std::move(refusal));
    return result;
  }

  std::vector<Finding> refusals;
  std::vector<Finding> warnings;  // findings that the user may override

  explicit operator bool() const { return refusals.empty(); }
  // Only where there is a value, which is always the case without refusals.
  T& operator*() { return value_.value(); }
  const T& operator*() const { return value_.value(); }
  T* operator->() { return &value_.value(); }
  const T* operator->() const { return &value_.value(); }

 private:
  Result() = default;
  std::optional<T> value_;
};

}  // namespace cu
