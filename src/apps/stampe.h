#pragma once

#include <memory>

#include "impaginazione/impaginazione.h"

namespace cu {

// The engine of the prints. Most commands make none, and the libraries behind it take most of the time that
// the program takes to start: where the system can, they are in a library that the first print loads. Error
// kErrorReportLibrary where that one is missing or of another version.
std::unique_ptr<Impaginatore> impaginatoreDelProgramma(const ReportSurroundings& intorno);

}  // namespace cu
