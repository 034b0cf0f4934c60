// The library that contains the prints: the engine and all that it links. Only its one function is visible
// outside.

#include "libreria_stampe.h"

#include <string_view>

#include "reporting/pdf_reports.h"

// The caller takes over the object. Errors of the engine pass to the program as they are.
extern "C" [[gnu::visibility("default")]] cu::Impaginatore* cuwizardImpaginatore(
    const char* versione, const cu::ReportSurroundings& intorno);

extern "C" cu::Impaginatore* cuwizardImpaginatore(const char* versione,
                                                  const cu::ReportSurroundings& intorno) {
  if (std::string_view(versione) != cu::kVersioneLibreriaStampe) return nullptr;
  return cu::PdfReports::crea(intorno).release();
}
