#include "odbc/wide.h"

#include "base/text.h"

namespace cu::odbc {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kBeyond = 0x10000;
constexpr char32_t kHigh = 0xD800;
constexpr char32_t kLow = 0xDC00;
constexpr char32_t kBehindPairs = 0xE000;
constexpr unsigned kTenBits = 0x3FF;

}  // namespace

void toWide(std::string_view text, std::vector<SQLWCHAR>& wide) {
  wide.clear();
  wide.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const auto byte = static_cast<unsigned char>(text[at]);
    if (byte < 0x80) {
      wide.push_back(byte);
      ++at;
      continue;
    }
    const char32_t point = nextCodePoint(text, at);
    if (point < kBeyond) {
      wide.push_back(static_cast<SQLWCHAR>(point));
    } else {
      const char32_t rest = point - kBeyond;
      wide.push_back(static_cast<SQLWCHAR>(kHigh + (rest >> 10)));
      wide.push_back(static_cast<SQLWCHAR>(kLow + (rest & kTenBits)));
    }
  }
}

void appendFromWide(std::string& text, const SQLWCHAR* wide, std::size_t count) {
  const std::size_t before = text.size();
  text.resize(before + count);
  std::size_t i = 0;
  for (char* to = text.data() + before; i < count && wide[i] < 0x80; ++i) to[i] = static_cast<char>(wide[i]);
  text.resize(before + i);
  for (; i < count; ++i) {
    const char32_t unit = wide[i];
    if (unit < 0x80) {
      text += static_cast<char>(unit);
    } else if (unit < kHigh || unit >= kBehindPairs) {
      appendUtf8(text, unit);
    } else if (unit < kLow && i + 1 < count && wide[i + 1] >= kLow && wide[i + 1] < kBehindPairs) {
      ++i;
      appendUtf8(text, kBeyond + ((unit & kTenBits) << 10) + (wide[i] & kTenBits));
    } else {
      appendUtf8(text, kReplacement);
    }
  }
}

std::string fromWide(const SQLWCHAR* wide, std::size_t count) {
  std::string text;
  appendFromWide(text, wide, count);
  return text;
}

}  // namespace cu::odbc
