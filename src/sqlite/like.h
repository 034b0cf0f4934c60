#pragma once

#include <string>
#include <string_view>

namespace cu::sqlite {

// The server's LIKE: %, _, [a-f], [^a-f]. Characters compare as text does; trailing blanks of the value are
// ignored. `escape` is one character or empty.
bool like(std::string_view value, std::string_view pattern, std::string_view escape);

// The bare name in "[dbo].[name]", "dbo.name" or "name".
std::string objectOf(std::string_view text);

}  // namespace cu::sqlite
