#include "base/windows1252.h"

#include <array>
#include <cstdint>
#include <cstring>

#include "base/text.h"

namespace cu {
namespace {

// The characters of the bytes 0x80 to 0x9F; 0 where the code page has none. From 0xA0 on byte and code point
// are equal.
constexpr std::array<char32_t, 32> kDa80 = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                            0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                            0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                            0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

constexpr char32_t kSostituto = 0xFFFD;

char byteDi(char32_t codePoint) {
  if (codePoint < 0x80 || (codePoint >= 0xA0 && codePoint <= 0xFF)) {
    return static_cast<char>(static_cast<unsigned char>(codePoint));
  }
  if (codePoint >= 0x0152) {
    for (std::size_t i = 0; i < kDa80.size(); ++i) {
      if (kDa80[i] == codePoint) return static_cast<char>(static_cast<unsigned char>(0x80 + i));
    }
  }
  return '?';
}

constexpr unsigned char maiuscolaDi(unsigned char c) {
  if ((c >= 'a' && c <= 'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7)) {
    return static_cast<unsigned char>(c - 0x20);
  }
  switch (c) {
    case 0x9A:  // š
    case 0x9C:  // œ
    case 0x9E:  // ž
      return static_cast<unsigned char>(c - 0x10);
    case 0xFF:  // ÿ
      return 0x9F;
    default:
      return c;
  }
}

constexpr std::array<char, 256> tutteMaiuscole() {
  std::array<char, 256> tavola{};
  for (std::size_t c = 0; c < tavola.size(); ++c) {
    tavola[c] = static_cast<char>(maiuscolaDi(static_cast<unsigned char>(c)));
  }
  return tavola;
}
constexpr std::array<char, 256> kMaiuscole = tutteMaiuscole();

}  // namespace

bool soloAscii(std::string_view text) {
  constexpr std::uint64_t kAlti = 0x8080808080808080U;
  const char* at = text.data();
  std::size_t left = text.size();
  std::uint64_t all = 0;
  for (; left >= 8; left -= 8, at += 8) {
    std::uint64_t eight = 0;
    std::memcpy(&eight, at, sizeof eight);
    all |= eight;
  }
  unsigned char rest = 0;
  for (; left > 0; --left, ++at) rest |= static_cast<unsigned char>(*at);
  return (all & kAlti) == 0 && rest < 0x80;
}

std::size_t a1252(std::string_view utf8, char* out) {
  if (soloAscii(utf8)) {
    if (!utf8.empty()) std::memcpy(out, utf8.data(), utf8.size());
    return utf8.size();
  }
  char* const begin = out;
  for (std::size_t at = 0; at < utf8.size();) *out++ = byteDi(nextCodePoint(utf8, at));
  return static_cast<std::size_t>(out - begin);
}

std::string a1252(std::string_view utf8) {
  std::string text(utf8.size(), '\0');
  text.resize(a1252(utf8, text.data()));
  return text;
}

char maiuscola1252(char c) { return kMaiuscole[static_cast<unsigned char>(c)]; }

void maiuscolo1252(char* text, std::size_t length) {
  for (std::size_t i = 0; i < length; ++i) text[i] = maiuscola1252(text[i]);
}

std::string maiuscolo1252(std::string_view text1252) {
  std::string text(text1252);
  maiuscolo1252(text.data(), text.size());
  return text;
}

std::string da1252(std::string_view text1252) {
  if (soloAscii(text1252)) return std::string(text1252);
  std::string text;
  text.reserve(text1252.size());
  for (const char c : text1252) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80 || byte > 0x9F) {
      appendUtf8(text, byte);
    } else {
      const char32_t codePoint = kDa80[byte - 0x80U];
      appendUtf8(text, codePoint == 0 ? kSostituto : codePoint);
    }
  }
  return text;
}

}  // namespace cu
