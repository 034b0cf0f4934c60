#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/date.h"
#include "reporting/layout.h"
#include "reporting/output.h"

namespace cu::reporting {

// A certificate as a telematic file holds it. Texts are UTF-8 and as the file writes them: "1234,50",
// "05032018", "1".
struct FormOfFile {
  struct Cell {
    std::string code;  // "AU001004"
    std::string text;
  };
  using Cells = std::vector<Cell>;

  std::int32_t year = 0;  // of the payments
  std::int32_t kind = 1;  // 1 ordinary, 2 annulment, 3 replacement
  std::string protocol;   // of what is annulled or replaced
  std::string progressive;
  const modello::Modello* table = &modello::kModello;  // whose boxes the file has
  Cells identity;                                      // record D
  std::vector<Cells> modules;                          // records H
  std::string representative;                          // who signs for the company
  std::string intermediary;                            // fiscal code; empty without one
  std::int32_t commitment = 0;  // who has prepared the supply: 1 the company, 2 the intermediary
  Date commitmentDay;
};

// Draws the pages of the ministerial form. Each box shows the file's cell and nothing else: no value is
// derived, and a cell that is not of its kind is shown as it is. Cells that the form of the year does not
// have are left out. `places` is given the box of each cell. Raises Error (kErrorReportOutput).
std::unique_ptr<PreviewPages> drawFormOfFile(const FormOfFile& form, const std::string& creator,
                                             std::vector<FormPlace>* places = nullptr);

// The caption of a cell's box in the form of a year; empty for a cell that the form does not have.
std::string boxCaption(const std::string& code, std::int32_t year,
                       const modello::Modello& table = modello::kModello);

}  // namespace cu::reporting
