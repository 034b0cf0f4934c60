#pragma once

#include <string>
#include <string_view>

namespace cu::sqlite {

// The capitals of letters of the Latin alphabet with their accents, of UTF-8 text; every other character
// stays.
std::string upperCase(std::string_view text);

}  // namespace cu::sqlite
