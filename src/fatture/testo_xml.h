#pragma once

#include <string>
#include <string_view>

#include "fatture/fattura.h"

namespace cu::fatture {

// The text of an XML document, in UTF-8 whatever its own encoding is: what a byte order mark says, else UTF-8
// where all of it is valid, whatever the declaration says, else what is declared. Raises ErroreFattura F03.
std::string testoXml(std::string_view byte, const Posto& posto);

}  // namespace cu::fatture
