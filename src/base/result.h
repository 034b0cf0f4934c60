#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace cu {

// Something that a person has to know of an operation: a code for programs, an Italian text, and the place
// where it is put right (the name of a control of the wizard, or "" where there is none).
struct Finding {
  std::string code;
  std::string text;
  std::string place;
};

struct Done {};

// What an operation has come to. Without refusals there is a value; with them there may be one, for what is
// known all the same. What went wrong on the way (a database, a file) is raised as Error, not held here.
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
  std::vector<Finding> warnings;  // what a person may pass

  explicit operator bool() const { return refusals.empty(); }
  // Only where there is a value: always without refusals.
  T& operator*() { return value_.value(); }
  const T& operator*() const { return value_.value(); }
  T* operator->() { return &value_.value(); }
  const T* operator->() const { return &value_.value(); }

 private:
  Result() = default;
  std::optional<T> value_;
};

}  // namespace cu
