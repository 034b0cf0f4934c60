#include "automation/line_reader.h"

namespace cu {

std::optional<LineReader::Line> LineReader::next() {
  using Traits = std::istream::traits_type;
  std::streambuf* const buffer = in_.rdbuf();
  Line line;
  bool any = false;
  for (;;) {
    const Traits::int_type got = buffer->sbumpc();
    if (Traits::eq_int_type(got, Traits::eof())) break;
    any = true;
    const char c = Traits::to_char_type(got);
    if (c == '\n') break;
    if (line.text.size() < kMaxBytes) {
      line.text += c;
    } else {
      line.tooLong = true;
    }
  }
  if (!any) return std::nullopt;
  return line;
}

}  // namespace cu
