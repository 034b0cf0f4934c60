// Any bytes as a text with separators: rejected with one of the codes in one line, or a table that keeps its
// rules and is the same once it has been written and read again.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/ascii.h"
#include "base/text.h"
#include "tabelle/errore.h"
#include "tabelle/lettura.h"
#include "tabelle/scrittura.h"

namespace {

using cu::tabelle::Genere;
using cu::tabelle::Tabella;

[[noreturn]] void fault(const std::string& what) {
  std::fprintf(stderr, "%s\n", what.c_str());
  std::abort();
}

void check(bool kept, const char* what) {
  if (!kept) fault(what);
}

void checkError(const cu::tabelle::ErroreTabella& error) {
  check(error.codice() >= "F01" && error.codice() <= "F05", "an unknown code");
  for (const char c : error.description()) {
    check(static_cast<unsigned char>(c) >= 0x20, "a description of several lines");
  }
}

void checkTable(const Tabella& table) {
  check(!table.intestazione.celle.empty(), "no heading");
  std::size_t number = table.intestazione.numero;
  for (const auto& row : table.righe) {
    check(row.numero > number, "rows out of order");
    number = row.numero;
    check(!row.celle.empty(), "a row without cells");
    for (const auto& cell : row.celle) {
      check(cell.genere == Genere::Testo || cell.genere == Genere::Vuota, "a kind that a text has not");
      check(cell.testo.empty() == (cell.genere == Genere::Vuota), "an empty text");
    }
  }
  for (const auto& finding : table.rilievi) {
    check(finding.posto.riga >= table.intestazione.numero && finding.posto.colonna > 0,
          "a finding elsewhere");
  }
}

void checkAgain(const Tabella& table) {
  cu::tabelle::TabellaDaScrivere written;
  const std::size_t width = table.intestazione.celle.size();
  for (const auto& cell : table.intestazione.celle) written.colonne.emplace_back(cell.testo);
  for (const auto& row : table.righe) {
    written.righe.emplace_back();
    for (const auto& cell : row.celle) {
      written.righe.back().push_back(cu::Value::ofText(std::string(cell.testo)));
    }
  }
  Tabella again;
  cu::tabelle::OpzioniLettura unlimited;
  unlimited.limiti.byte *= 4;
  unlimited.limiti.caratteri *= 2;
  try {
    again = cu::tabelle::leggiTabella(cu::tabelle::scriviCsv(written), "again", unlimited);
  } catch (const cu::tabelle::ErroreTabella& error) {
    // A heading that begins like a document of another kind.
    check(error.codice() == "F02", "what was written cannot be read");
    return;
  }
  check(again.rilievi.empty(), "a finding in what was written");
  check(again.righe.size() == table.righe.size(), "another number of rows");
  for (std::size_t i = 0; i < width; ++i) {
    check(again.intestazione.cella(i).testo == table.intestazione.cella(i).testo, "another heading");
    for (std::size_t row = 0; row < table.righe.size(); ++row) {
      check(again.righe[row].cella(i).testo == table.righe[row].cella(i).testo, "another cell");
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  if (bytes.starts_with("PK")) return 0;
  try {
    const Tabella table = cu::tabelle::leggiTabella(bytes, "file.csv");
    checkTable(table);
    const std::string_view first = table.intestazione.cella(0).testo;
    // A heading of separators alone gives another separator away when it is read again.
    const bool named = std::any_of(
        table.intestazione.celle.begin(), table.intestazione.celle.end(),
        [](const auto& cell) { return std::any_of(cell.testo.begin(), cell.testo.end(), cu::isLetter); });
    if (named && table.rilievi.empty() && cu::lowerAscii(first.substr(0, 4)) != "sep=") checkAgain(table);
    for (const auto& cell : table.intestazione.celle) {
      const std::string name = cu::tabelle::normalizza(cell.testo);
      check(cu::tabelle::normalizza(name) == name, "a name that is not final");
    }
  } catch (const cu::tabelle::ErroreTabella& error) {
    checkError(error);
  }
  return 0;
}
