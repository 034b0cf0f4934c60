#pragma once

#include <memory>
#include <string>
#include <vector>

#include "controls/frontend.h"
#include "host/clock.h"
#include "host/filesystem.h"
#include "host/report.h"

namespace cu {

namespace reporting {
class ReportLibrary;
class RunReadings;
struct DefinitionFile;
}  // namespace reporting

// The surroundings of the reports, which outlive them.
struct ReportSurroundings {
  FrontEnd& frontEnd;
  FileSystem& files;
  const Clock& clock;
  std::string creator;  // the program's name in the files
};

// The engine that lays reports out and writes them: PDF, printer, spreadsheet. Definitions are read once, at
// the first print. Not thread-safe; creates the toolkit's application object on the calling thread where
// there is none.
//
// A run writes to the full path that was set; code 0 writes a table for a spreadsheet, the others a PDF.
// FileError and DatabaseError propagate; the engine's own errors (reporting/report_error.h) have texts for
// the user.
class PdfReports {
 public:
  // Uses the definitions embedded in the program.
  explicit PdfReports(const ReportSurroundings& surroundings);
  PdfReports(const ReportSurroundings& surroundings, std::vector<reporting::DefinitionFile> definitions);
  ~PdfReports();
  PdfReports(const PdfReports&) = delete;
  PdfReports& operator=(const PdfReports&) = delete;

  // Creates an engine for one print, which belongs to the current run; it does not outlive this object.
  std::unique_ptr<ReportEngine> create();
  // At most one run at a time.
  std::unique_ptr<PrintRun> beginRun();

 private:
  ReportSurroundings surroundings_;
  std::unique_ptr<reporting::ReportLibrary> library_;
  std::weak_ptr<reporting::RunReadings> run_;
};

}  // namespace cu
