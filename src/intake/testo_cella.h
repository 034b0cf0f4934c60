#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "intake/messaggi.h"

namespace cu::intake {

// The text without blanks at its ends and with one blank where there are several: a line end, a tab and a
// no-break space are blanks too. A part of `testo` where possible, otherwise of `appoggio`.
std::string_view pulito(std::string_view testo, std::string& appoggio);

bool conControlli(std::string_view testo);

// The first character that Windows-1252 does not have; "" without one.
std::string_view fuoriDa1252(std::string_view testo);

// What a spreadsheet leaves of a long number: "1,23457E+10".
bool cifrePerse(std::string_view testo);

// What a spreadsheet writes into a text file for an error: "#N/A", "#DIV/0!".
bool erroreDiFoglio(std::string_view testo);

// Why a text cannot be a field's value (V10, V06), or what becomes of it in the file (V07).
struct DifettoTesto {
  Codice codice;
  std::string testo;
  bool respinto;
};
std::optional<DifettoTesto> difettoDelTesto(std::string_view testo);

// For a message: in one line, and shortened.
std::string mostrato(std::string_view testo);

}  // namespace cu::intake
