#pragma once

#include <istream>
#include <optional>
#include <string>

namespace cu {

// Lines of a stream, without their end. The last one may lack its end. What a line has beyond the limit is
// passed over.
class LineReader {
 public:
  static constexpr std::size_t kMaxBytes = 1U << 20;
  explicit LineReader(std::istream& in) : in_(in) {}

  struct Line {
    std::string text;
    bool tooLong = false;
  };
  std::optional<Line> next();  // nothing at the end of the input

 private:
  std::istream& in_;
};

}  // namespace cu
