#pragma once

#include <string>

namespace cu {

// Writes a point before each three digits of the whole part: "-1234567,50" gives "-1.234.567,50". The
// decimals stand after a comma, or there are none.
std::string groupThousands(std::string number);

}  // namespace cu
