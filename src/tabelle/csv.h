#pragma once

#include <string_view>

#include "tabelle/lettura.h"

namespace cu::tabelle {

// Reads a text with separators; the bytes are known to be a text. Raises ErroreTabella.
Tabella leggiCsv(std::string_view byte, std::string_view nome, const OpzioniLettura& opzioni);

// Tests for =, +, -, @, a tab or a CR, also behind apostrophes, at the text's beginning: what a spreadsheet
// reads as a formula, and what the apostrophe before it distinguishes.
bool somigliaAFormula(std::string_view testo);

}  // namespace cu::tabelle
