#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

#include "telematic/engine/layout.h"

namespace cu {

// The position of a field in its record: offset from 0, and width.
struct FieldPlace {
  std::size_t offset = 0;
  std::size_t length = 0;
};

// The line of a record that is written many times: only changed fields are placed again. It equals the output
// of FileSeq::WriteRecord for fields with the same values.
class RecordImage {
 public:
  // Composes the line from the record's present values.
  explicit RecordImage(const IRecord& record);

  std::string_view line() const { return line_; }  // with the line end
  char* at(std::size_t offset) { return line_.data() + offset; }

  // Sets the field's whole content: left-aligned, truncated to its width, padded with blanks.
  void place(FieldPlace field, std::string_view value) {
    const std::size_t n = std::min(value.size(), field.length);
    char* const begin = at(field.offset);
    if (n > 0) std::memcpy(begin, value.data(), n);
    std::memset(begin + n, ' ', field.length - n);
  }

 private:
  std::string line_;
};

}  // namespace cu
