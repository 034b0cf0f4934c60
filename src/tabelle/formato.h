#pragma once

#include <cstdint>
#include <string_view>

namespace cu::tabelle {

enum class Contenitore : std::uint8_t { Testo, Zip, Ole };

// Recognises by the first bytes what a file is. Raises ErroreTabella F01 for an empty file, F02 for a kind
// that can be no table.
Contenitore riconosci(std::string_view byte, std::string_view nome);

// Raises ErroreTabella: F03 for a workbook protected by a password, F02 for any other file in this envelope.
[[noreturn]] void rifiutaOle(std::string_view byte, std::string_view nome);

// Tests for the text without regard to the case of ASCII letters; `inizio` is in lower case.
bool cominciaCon(std::string_view testo, std::string_view inizio);

}  // namespace cu::tabelle
