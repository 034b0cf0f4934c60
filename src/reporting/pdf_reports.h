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

// What the reports are made with; all of it outlives them.
struct ReportSurroundings {
  FrontEnd& frontEnd;
  FileSystem& files;
  const Clock& clock;
  std::string creator;  // the program's name in what is written
};

// The engine that lays reports out and writes them: PDF, printer, spreadsheet. Definitions are read once, at
// the first print. For one thread, on which the toolkit's application object is made where there is none.
//
// A run takes the full path that was set; code 0 writes a table for a spreadsheet, the others a PDF. An
// engine raises FileError and DatabaseError as they come, and errors of its own (reporting/report_error.h) in
// words for the user.
class PdfReports {
 public:
  // The definitions that the program carries.
  explicit PdfReports(const ReportSurroundings& surroundings);
  PdfReports(const ReportSurroundings& surroundings, std::vector<reporting::DefinitionFile> definitions);
  ~PdfReports();
  PdfReports(const PdfReports&) = delete;
  PdfReports& operator=(const PdfReports&) = delete;

  // A new engine for one print, which belongs to the run that has not ended; it does not outlive this object.
  std::unique_ptr<ReportEngine> create();
  // One at a time.
  std::unique_ptr<PrintRun> beginRun();

 private:
  ReportSurroundings surroundings_;
  std::unique_ptr<reporting::ReportLibrary> library_;
  std::weak_ptr<reporting::RunReadings> run_;
};

}  // namespace cu
