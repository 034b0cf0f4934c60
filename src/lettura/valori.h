#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/date.h"

namespace cu::lettura {

// Values as the file writes them. Texts are Windows-1252.

// "05032017"; nothing for a day that does not exist.
std::optional<Date> giorno(std::string_view ggmmaaaa);
// "1234,50" in cents; nothing for anything else. A sign only where `conSegno`.
std::optional<std::int64_t> centesimi(std::string_view testo, bool conSegno);
// Digits alone, up to 18 of them; -1 for anything else.
std::int64_t numero(std::string_view cifre);
bool haMinuscole(std::string_view testo);
// "1.234,50": cents for a person.
std::string euro(std::int64_t centesimi);

}  // namespace cu::lettura
