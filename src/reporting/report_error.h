#pragma once

#include "base/error.h"

namespace cu {

// Error numbers of the report engine; files and databases have their own.
inline constexpr int kErrorReportDefinition = kErrorObjectBase + 701;
inline constexpr int kErrorReportFormula = kErrorObjectBase + 702;
inline constexpr int kErrorReportPrinter = kErrorObjectBase + 703;
inline constexpr int kErrorReportOutput = kErrorObjectBase + 704;

}  // namespace cu
