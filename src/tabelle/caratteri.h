#pragma once

#include <string>
#include <string_view>

#include "tabelle/lettura.h"

namespace cu::tabelle {

struct TestoDecodificato {
  std::string utf8;            // without the byte order mark
  std::string_view caratteri;  // "utf-8", "utf-16le", "utf-16be" or "windows-1252"
};

// Raises ErroreTabella F03 with the line when the bytes are not in the given or marked encoding. With a mark
// of another encoding than the one given, the mark decides.
TestoDecodificato decodifica(std::string_view byte, Caratteri caratteri, std::string_view nome);

}  // namespace cu::tabelle
