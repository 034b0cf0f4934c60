#pragma once

#include <string_view>

namespace cu::intake {

// The cadastral code of the country that two letters mean in an invoice; "" for one that is not known.
std::string_view catastoDiIso(std::string_view paese);

}  // namespace cu::intake
