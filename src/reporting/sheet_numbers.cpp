#include "reporting/sheet_numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <vector>

namespace cu::reporting {
namespace {

constexpr std::string_view kOpen = "<v>";
constexpr std::string_view kClose = "</v>";
constexpr std::size_t kBlock = 1U << 16;
constexpr int kPromised = 15;  // decimal digits that a double always holds

// Writes what is complete of the rows and gives how much of them that was.
std::size_t copyComplete(std::string_view rows, std::FILE* to) {
  std::size_t done = 0;
  const auto write = [&](std::string_view part) { std::fwrite(part.data(), 1, part.size(), to); };
  for (;;) {
    const std::size_t open = rows.find(kOpen, done);
    if (open == std::string_view::npos) {
      // The end may be the beginning of a mark.
      const std::size_t end = std::max(done, rows.size() - std::min(rows.size(), kOpen.size() - 1));
      write(rows.substr(done, end - done));
      return end;
    }
    const std::size_t number = open + kOpen.size();
    const std::size_t close = rows.find(kClose, number);
    if (close == std::string_view::npos) {
      write(rows.substr(done, open - done));
      return open;
    }
    write(rows.substr(done, number - done));
    write(shortNumber(rows.substr(number, close - number)));
    done = close;
  }
}

}  // namespace

std::string shortNumber(std::string_view text) {
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  if (std::count_if(text.begin(), text.end(), isDigit) <= kPromised) return std::string(text);
  const auto valueOf = [](std::string_view number, double& value) {
    const char* const end = number.data() + number.size();
    const auto read = std::from_chars(number.data(), end, value);
    return read.ec == std::errc() && read.ptr == end;
  };
  double value = 0;
  if (!valueOf(text, value)) return std::string(text);
  std::array<char, 40> buffer{};
  const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                     std::chars_format::general, kPromised);
  const std::string shorter(buffer.data(), written.ptr);
  double same = 0;
  return valueOf(shorter, same) && same == value ? shorter : std::string(text);
}

bool copyWithShortNumbers(std::FILE* from, std::FILE* to) {
  std::rewind(from);
  std::vector<char> block(kBlock);
  std::string rows;
  for (std::size_t count = 0; (count = std::fread(block.data(), 1, block.size(), from)) > 0;) {
    rows.append(block.data(), count);
    rows.erase(0, copyComplete(rows, to));
  }
  std::fwrite(rows.data(), 1, rows.size(), to);
  return std::ferror(from) == 0 && std::fflush(to) == 0 && std::ferror(to) == 0;
}

}  // namespace cu::reporting
