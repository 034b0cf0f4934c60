#pragma once

#include <span>
#include <string>
#include <vector>

#include "base/date.h"
#include "base/value.h"

namespace cu::tabelle {

struct TabellaDaScrivere {
  std::string foglio;  // the sheet's name, as far as it is a valid one
  std::vector<std::string> colonne;
  std::vector<std::vector<Value>> righe;  // each with a value for every column, or fewer
};

// What is written is read again by leggiTabella as the same texts, numbers and dates. A null value and day 0
// are an empty cell; a row of empty cells is not read.

// UTF-8 with a byte order mark, separated by semicolons, lines ended by CR LF. Amounts have a decimal comma
// and at least two decimals ("1234,50"), dates are "2017-03-05". A text that a spreadsheet would take for a
// formula (=, +, -, @, a tab or a CR at its beginning) is written behind an apostrophe, the mark of a text,
// which leggiTabella takes away again. A spreadsheet drops leading zeros of a text file: for codes that a
// person edits there, XLSX is the form.
std::string scriviCsv(const TabellaDaScrivere& tabella);

struct OpzioniXlsx {
  std::string autore = {};
  Date creata = {};       // recorded in the file; day 0 for the moment of writing
  std::string file = {};  // the name that errors mention
};

// The bytes of a workbook of one sheet: headings bold and frozen, columns as wide as their content, amounts
// and dates as such, texts as texts, so that they keep leading zeros and are never formulas. Numbers of more
// than 15 digits and dates before 1 March 1900, which a workbook cannot have, are texts. Raises
// ErroreTabella: F05 beyond a sheet's rows or columns or a cell's characters, F03 for what cannot be
// composed.
std::string componiXlsx(const TabellaDaScrivere& tabella, const OpzioniXlsx& opzioni);
// The same of a sheet for each table, in order; their names differ.
std::string componiXlsx(std::span<const TabellaDaScrivere> fogli, const OpzioniXlsx& opzioni);

}  // namespace cu::tabelle
