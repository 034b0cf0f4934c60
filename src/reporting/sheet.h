#pragma once

#include <string>

#include "reporting/layout.h"

namespace cu::reporting {

// Writes the rows of a report as a table for a spreadsheet, one line per row (per module for a form), to a
// file of the machine. Raises Error (kErrorReportOutput) when it cannot be written.
void writeSheet(const std::string& path, const LayoutInput& input, const std::string& creator);

}  // namespace cu::reporting
