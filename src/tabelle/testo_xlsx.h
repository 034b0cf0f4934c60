#pragma once

#include <string>
#include <string_view>

#include "tabelle/lettore_xml.h"

namespace cu::tabelle {

// Decodes a text of the format: a character that XML cannot have is written as _xHHHH_, and so is the first
// underscore of a text that looks like that. Two halves of a character make one; a half alone becomes '?'.
std::string senzaSequenze(const std::string& utf8);

// Reads the text of the element that has just begun ("si" or "is"), to its end: its parts joined, without
// phonetic hints and decoded.
std::string leggiTestoXlsx(LettoreXml& xml, std::string_view elemento);

}  // namespace cu::tabelle
