#pragma once

#include <istream>
#include <optional>
#include <string>

namespace cu {

// Reads the lines of a stream, without their end; the last line may lack it. The part of a line beyond the
// limit is skipped.
class LineReader {
 public:
  static constexpr std::size_t kMaxBytes = 1U << 20;
  explicit LineReader(std::istream& in) : in_(in) {}

  struct Line {
    std::string text;
    bool tooLong = false;
  };
  std::optional<Line> next();  // nullopt at the end of the input

 private:
  std::istream& in_;
};

}  // namespace cu
