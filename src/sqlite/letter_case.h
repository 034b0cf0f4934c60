#pragma once

#include <string>
#include <string_view>

namespace cu::sqlite {

// Converts Latin letters with and without accents in UTF-8 text; every other character is unchanged.
std::string upperCase(std::string_view text);
std::string lowerCase(std::string_view text);

}  // namespace cu::sqlite
