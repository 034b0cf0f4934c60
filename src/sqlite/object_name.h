#pragma once

#include <string>
#include <string_view>

namespace cu::sqlite {

// The bare name in "[dbo].[name]", "dbo.name" or "name".
std::string objectOf(std::string_view text);

}  // namespace cu::sqlite
