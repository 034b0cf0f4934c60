#pragma once

// For the sources of this room only: the libraries behind it are not visible outside.

#include <QString>
#include <string_view>

#include "fatture/fattura.h"

namespace cu::fatture {

// The text of an XML document in its own encoding: what a byte order mark says, else UTF-8 where all of it is
// valid, whatever the declaration says, else what is declared. Raises ErroreFattura F03.
QString testoXml(std::string_view byte, const Posto& posto);

}  // namespace cu::fatture
