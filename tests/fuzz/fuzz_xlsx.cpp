// Any bytes as a workbook, or any texts as the parts of one (the sheet, the shared texts, the styles, the
// workbook, separated by a line of ----): rejected with one of the codes in one line, or a table that keeps
// its rules.

#include <zip.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/ascii.h"
#include "base/date.h"
#include "tabelle/errore.h"
#include "tabelle/lettura.h"

namespace {

using cu::tabelle::Genere;
using cu::tabelle::Tabella;

constexpr std::size_t kLongest = 65536;

[[noreturn]] void fault(const char* what) {
  std::fprintf(stderr, "%s\n", what);
  std::abort();
}

void check(bool kept, const char* what) {
  if (!kept) fault(what);
}

constexpr std::string_view kWorkbook =
    R"(<workbook xmlns:r="http://x/relationships"><sheets><sheet name="A" r:id="a"/></sheets></workbook>)";
constexpr std::string_view kRelations =
    R"(<Relationships><Relationship Id="a" Type="http://x/worksheet" Target="sheet.xml"/>)"
    R"(<Relationship Id="b" Type="http://x/sharedStrings" Target="texts.xml"/>)"
    R"(<Relationship Id="c" Type="http://x/styles" Target="styles.xml"/></Relationships>)";
constexpr std::array<const char*, 5> kNames = {"xl/sheet.xml", "xl/texts.xml", "xl/styles.xml",
                                               "xl/workbook.xml", "xl/_rels/workbook.xml.rels"};

std::string archiveOf(std::string_view parts) {
  std::array<std::string_view, 5> contents = {"<worksheet/>", "<sst/>", "<styleSheet/>", kWorkbook,
                                              kRelations};
  constexpr std::string_view kLine = "\n----\n";
  for (std::size_t i = 0; i < 4 && !parts.empty(); ++i) {
    const std::size_t end = parts.find(kLine);
    contents[i] = parts.substr(0, end);
    parts = end == std::string_view::npos ? std::string_view() : parts.substr(end + kLine.size());
  }
  zip_source_t* const memory = zip_source_buffer_create(nullptr, 0, 0, nullptr);
  zip_source_keep(memory);
  zip_t* const zip = zip_open_from_source(memory, ZIP_CREATE | ZIP_TRUNCATE, nullptr);
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    const zip_int64_t added =
        zip_file_add(zip, kNames[i], zip_source_buffer(zip, contents[i].data(), contents[i].size(), 0), 0);
    zip_set_file_compression(zip, static_cast<zip_uint64_t>(added), ZIP_CM_STORE, 0);
  }
  check(zip_close(zip) == 0, "no archive");
  zip_source_open(memory);
  zip_source_seek(memory, 0, SEEK_END);
  std::string bytes(static_cast<std::size_t>(zip_source_tell(memory)), '\0');
  zip_source_seek(memory, 0, SEEK_SET);
  zip_source_read(memory, bytes.data(), bytes.size());
  zip_source_close(memory);
  zip_source_free(memory);
  return bytes;
}

// Digits, with a point between them at most, and a sign.
bool isNumber(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  if (text.empty() || !cu::isDigit(text.front()) || !cu::isDigit(text.back())) return false;
  std::size_t points = 0;
  for (const char c : text) {
    if (c != '.' && !cu::isDigit(c)) return false;
    points += c == '.' ? 1 : 0;
  }
  return points <= 1 && (points == 0 || text.back() != '0');
}

void checkCell(const cu::tabelle::Cella& cell) {
  switch (cell.genere) {
    case Genere::Vuota:
      check(cell.testo.empty(), "an empty cell with a text");
      break;
    case Genere::Numero:
    case Genere::Percentuale:
      check(isNumber(cell.testo), "a number that is none");
      break;
    case Genere::Data:
      check(cu::Date::parseIso(cell.testo).has_value(), "a date that is none");
      break;
    case Genere::Logica:
      check(cell.testo == "true" || cell.testo == "false", "neither true nor false");
      break;
    case Genere::Testo:
      check(!cell.testo.empty(), "an empty text");
      break;
    case Genere::Errore:
    case Genere::FormulaMaiCalcolata:
      check(!cu::tabelle::motivoSenzaValore(cell).empty(), "no reason");
      break;
  }
}

void checkTable(const Tabella& table) {
  check(!table.intestazione.celle.empty(), "no heading");
  std::size_t number = table.intestazione.numero;
  for (const auto& cell : table.intestazione.celle) checkCell(cell);
  for (const auto& row : table.righe) {
    check(row.numero > number, "rows out of order");
    number = row.numero;
    check(!row.celle.empty(), "a row without cells");
    for (const auto& cell : row.celle) checkCell(cell);
  }
  check(table.righeNascoste <= table.righe.size(), "more hidden rows than rows");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > kLongest) return 0;
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::string bytes = input.starts_with("PK") ? std::string(input) : archiveOf(input);
  try {
    checkTable(cu::tabelle::leggiTabella(bytes, "file.xlsx"));
    check(!cu::tabelle::fogliDi(bytes, "file.xlsx").empty() || !bytes.starts_with("PK\3\4"), "no sheets");
  } catch (const cu::tabelle::ErroreTabella& error) {
    check(error.codice() >= "F01" && error.codice() <= "F05", "an unknown code");
    for (const char c : error.description()) {
      check(static_cast<unsigned char>(c) >= 0x20, "a description of several lines");
    }
  }
  return 0;
}
