#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

#include "telematic/engine/layout.h"

namespace cu {

// Where a field lies in its record: offset from 0, and width.
struct FieldPlace {
  std::size_t offset = 0;
  std::size_t length = 0;
};

// The line of a record that is written many times, kept composed from one line to the next: what changes is
// placed, the rest stands. It shows what FileSeq::WriteRecord makes of fields that hold the same values.
class RecordImage {
 public:
  // Composed from the record as it stands.
  explicit RecordImage(const IRecord& record);

  std::string_view line() const { return line_; }  // with its end
  char* at(std::size_t offset) { return line_.data() + offset; }

  // The field's whole content: left-aligned, cut at its width, blanks behind.
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
