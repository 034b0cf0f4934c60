#pragma once

#include "base/error.h"
#include "host/report.h"

namespace cu {

// Raised by run(), and by a preview without a complete page, where the user has interrupted the layout: no
// file was made, and one of that name is what it was. It has the number of a print given up in a dialog,
// about which no box is shown either.
class PrintInterrupted : public Error {
 public:
  PrintInterrupted() : Error(kErrorPrintGivenUp, "La stampa è stata interrotta.") {}
};

}  // namespace cu
