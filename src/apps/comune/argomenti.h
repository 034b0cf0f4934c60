#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "base/date.h"

namespace cu {

// "YYYY-MM-DD" or "DD/MM/YYYY".
std::optional<Date> leggiData(std::string_view testo);

// "2014-2017" or "2016"; four digits each, in ascending order.
std::optional<std::pair<int, int>> leggiAnni(std::string_view testo);

}  // namespace cu
