#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tabelle/tabella.h"

namespace cu::tabelle {

enum class Caratteri : std::uint8_t { Riconosciuti, Utf8, Utf16Le, Utf16Be, Windows1252 };

// "utf-8", "utf-16le", "utf-16be", "windows-1252" and their usual other names, in any case; nullopt for any
// other.
std::optional<Caratteri> caratteriDaNome(std::string_view nome);

// Beyond any of these the file is rejected with F05.
struct Limiti {
  std::size_t byte = std::size_t{50} << 20U;  // of the file
  std::size_t righe = 1048576;                // with content, the heading included
  std::size_t colonne = 256;                  // with content
  std::size_t caratteri = 32767;              // of a cell
  // Of a workbook, which is an archive. The ratio counts for members beyond 16 MiB.
  std::size_t membri = 10000;
  std::size_t espansi = std::size_t{500} << 20U;  // bytes, of all members that are read
  std::size_t rapporto = 100;                     // of a member's bytes to its compressed bytes
};

struct OpzioniLettura {
  // A text's separator: a semicolon, a comma, a tab or a bar (separatoreAmmesso). Without it the first line
  // "sep=;" decides, else the one among ; tab and comma that gives the heading the most cells, and quotes
  // around whole cells only.
  std::optional<char> separatore;
  // Without it: a byte order mark, else UTF-8 if the whole text is valid, else Windows-1252.
  Caratteri caratteri = Caratteri::Riconosciuti;
  std::string foglio;  // in any case; "" for the first that is not hidden
  // The row of the headings as in RigaTabella; 0 for the first row with a text.
  std::size_t rigaIntestazione = 0;
  Limiti limiti;
};

bool separatoreAmmesso(char c);

// Reads a table from the bytes of a file. The kind is recognised by content: a ZIP archive with a workbook is
// XLSX, any other text is a text with separators (CSV, TSV). `nome` is the file's name, for the places.
//
// A text: a cell within quotes may have separators, line ends and doubled quotes; quotes in a cell that does
// not begin with one are part of its text. Lines end with CR, LF or CRLF. An apostrophe before = + - @, a tab
// or a CR, with which spreadsheets mark a text, is taken away, as scriviCsv adds it.
//
// A workbook: of merged cells only the first has a content; hidden rows and columns are read; of a text with
// parts of several formats all parts are read, and phonetic hints are not. Numbers are rounded to 15
// significant digits, as spreadsheets show them.
//
// Raises ErroreTabella.
Tabella leggiTabella(std::string_view byte, std::string_view nome, const OpzioniLettura& opzioni = {});

struct Foglio {
  std::string nome;
  bool nascosto = false;
};
// The sheets of a workbook in order; none for a text. Raises ErroreTabella.
std::vector<Foglio> fogliDi(std::string_view byte, std::string_view nome, const Limiti& limiti = {});

// A heading as names are compared: without case, accents (a typed apostrophe included), blanks, line ends, _
// and full stops. "Attività" and "ATTIVITA'" are both "attivita".
std::string normalizza(std::string_view intestazione);

}  // namespace cu::tabelle
