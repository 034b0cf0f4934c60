#pragma once

#include <memory>
#include <string>
#include <vector>

#include "impaginazione/impaginazione.h"

namespace cu {

namespace reporting {
class ReportLibrary;
struct RunState;
struct DefinitionFile;
}  // namespace reporting

// The engine that lays reports out and writes them: PDF, printer, spreadsheet. Definitions are read once, at
// the first print. Not thread-safe, though the forms of a run are laid out in threads of its own; creates the
// toolkit's application object on the calling thread where there is none.
//
// A run writes to the full path that was set; code 0 writes a table for a spreadsheet, the others a PDF.
// FileError and DatabaseError propagate; the engine's own errors (reporting/report_error.h) have texts for
// the user.
class PdfReports final : public Impaginatore {
 public:
  // Uses the definitions embedded in the program.
  explicit PdfReports(const ReportSurroundings& surroundings);
  PdfReports(const ReportSurroundings& surroundings, std::vector<reporting::DefinitionFile> definitions);
  ~PdfReports() override;
  PdfReports(const PdfReports&) = delete;
  PdfReports& operator=(const PdfReports&) = delete;
  // As CreaImpaginatore, with the definitions of the program.
  static std::unique_ptr<Impaginatore> crea(const ReportSurroundings& surroundings) {
    return std::make_unique<PdfReports>(surroundings);
  }

  std::unique_ptr<ReportEngine> create() override;
  std::unique_ptr<PrintRun> beginRun() override;

 private:
  ReportSurroundings surroundings_;
  std::unique_ptr<reporting::ReportLibrary> library_;
  std::weak_ptr<reporting::RunState> run_;
};

}  // namespace cu
