// The prints as part of the program.

#include "reporting/pdf_reports.h"
#include "stampe.h"

namespace cu {

std::unique_ptr<Impaginatore> impaginatoreDelProgramma(const ReportSurroundings& intorno) {
  return PdfReports::crea(intorno);
}

}  // namespace cu
