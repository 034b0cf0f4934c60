#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "data/database.h"

namespace cu {

// The error number of a print that a person gave up: hexadecimal 800403EF.
inline constexpr int kErrorPrintGivenUp = static_cast<int>(0x800403EF);

// A report that the suite keeps for an object type.
struct ReportInfo {
  std::string name;  // file name, such as "ContoIndividuale.rpt"
  std::int32_t definition = 0;
};

class ReportCatalogue {
 public:
  virtual ~ReportCatalogue() = default;
  virtual std::vector<ReportInfo> reports(std::int32_t objectType) const = 0;
};

// One print of one report. Nothing is read or laid out before preview(), print() or run(); they may raise
// Error, and leave nothing half-written under a file's final name.
//
// What the wizard is handed asks for the name of a file where it needs one and tells the front end of the
// print; the engine behind it, which lays the report out, does neither: it has got a full path before each
// run, whatever the code.
class ReportEngine {
 public:
  virtual ~ReportEngine() = default;
  virtual void setSession(std::int32_t idUtente, std::int32_t idAzienda, std::int32_t idFiliale) = 0;
  virtual void setConnection(Connection& connection) = 0;
  virtual void setObjectType(std::int32_t type) = 0;
  virtual void setSelectionFormula(const std::string& formula) = 0;
  virtual void setReportFile(const std::string& name) = 0;  // "ContoIndividuale.rpt"
  virtual void setDefinition(std::int32_t number) = 0;
  // Three calls in this order name the file of run(3): mode 0, the full path, format 0.
  virtual void setOutputMode(std::int32_t mode) = 0;
  virtual void setOutputPath(const std::string& path) = 0;
  virtual void setOutputFormat(std::int32_t format) = 0;
  virtual void setCopies(std::int32_t copies) = 0;
  virtual void setPrinter(const std::string& name, const std::string& port) = 0;

  virtual void preview() = 0;  // returns when it has been closed
  virtual void print() = 0;    // to the printer that was set
  // 0 a table for a spreadsheet, 1 a PDF where a dialog says, 2 a PDF for e-mail in the documents folder,
  // 3 a PDF into the named file, or where a dialog says when none was named.
  virtual void run(std::int32_t code) = 0;
};

// While it lives, the prints made through one factory are one run: what none of them changes, the columns of
// a report's view and the company's data, is read once for all of them.
class PrintRun {
 public:
  PrintRun() = default;
  virtual ~PrintRun() = default;
  PrintRun(const PrintRun&) = delete;
  PrintRun& operator=(const PrintRun&) = delete;
};

// The printer dialog.
class PrinterDialog {
 public:
  virtual ~PrinterDialog() = default;
  virtual void setConnection(Connection& connection) = 0;
  virtual void setSession(std::int32_t idUtente) = 0;
  virtual void setDefinition(std::int32_t number) = 0;
  virtual void setObjectType(std::int32_t type) = 0;
  virtual void prepare() = 0;
  virtual void show() = 0;  // returns when it has been closed
  virtual bool cancelled() const = 0;
  virtual std::int32_t copies() const = 0;
  virtual std::string printer() const = 0;
  virtual std::string port() const = 0;  // the printer's second value; may be empty
};

}  // namespace cu
