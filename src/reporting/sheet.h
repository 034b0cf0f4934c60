#pragma once

#include <string>

#include "reporting/layout.h"

namespace cu::reporting {

// The rows of a report as a table for a spreadsheet, one line a row (a line a module for a form), in a file
// of the machine. Error (kErrorReportOutput) when it cannot be written.
void writeSheet(const std::string& path, const LayoutInput& input, const std::string& creator);

}  // namespace cu::reporting
