#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "data/database.h"

namespace cu {

// The error number of a print cancelled by the user: hexadecimal 800403EF.
inline constexpr int kErrorPrintGivenUp = static_cast<int>(0x800403EF);

// A report registered in the suite for an object type.
struct ReportInfo {
  std::string name;  // file name, such as "ContoIndividuale.rpt"
  std::int32_t definition = 0;
};

class ReportCatalogue {
 public:
  virtual ~ReportCatalogue() = default;
  virtual std::vector<ReportInfo> reports(std::int32_t objectType) const = 0;
};

// A print whose rows have been read, and whose file does not exist yet. Without finish() none is made.
class BegunPrint {
 public:
  BegunPrint() = default;
  virtual ~BegunPrint() = default;
  BegunPrint(const BegunPrint&) = delete;
  BegunPrint& operator=(const BegunPrint&) = delete;
  // Waits for the layout and writes the file. Raises what run() would have raised after the rows.
  virtual void finish() = 0;
};

// One print of one report. Nothing is read or laid out before preview(), print() or run(); these may raise
// Error, and leave no incomplete file under the final name.
//
// There are two implementations. The one passed to the wizard prompts for a file name where one is needed and
// reports the print to the front end. The engine behind it, which does the layout, does neither: it receives
// a full path before each run, for every code.
class ReportEngine {
 public:
  virtual ~ReportEngine() = default;
  virtual void setSession(std::int32_t idUtente, std::int32_t idAzienda, std::int32_t idFiliale) = 0;
  virtual void setConnection(Connection& connection) = 0;
  virtual void setObjectType(std::int32_t type) = 0;
  virtual void setSelectionFormula(const std::string& formula) = 0;
  virtual void setReportFile(const std::string& name) = 0;  // "ContoIndividuale.rpt"
  virtual void setDefinition(std::int32_t number) = 0;
  // Three calls in this order set the file of run(3): mode 0, the full path, format 0.
  virtual void setOutputMode(std::int32_t mode) = 0;
  virtual void setOutputPath(const std::string& path) = 0;
  virtual void setOutputFormat(std::int32_t format) = 0;
  virtual void setCopies(std::int32_t copies) = 0;
  virtual void setPrinter(const std::string& name, const std::string& port) = 0;

  virtual void preview() = 0;  // returns when it has been closed
  virtual void print() = 0;    // to the printer set before
  // 0: a table for a spreadsheet; 1: a PDF into the file chosen in a dialog; 2: a PDF for e-mail in the
  // documents folder; 3: a PDF into the file set, or chosen in a dialog when none was set.
  virtual void run(std::int32_t code) = 0;
  // run() in two parts: reads the rows, so that the next print of the run can be begun before this one is
  // finished. The engine outlives the result.
  virtual std::unique_ptr<BegunPrint> begin(std::int32_t code) = 0;
};

// During its lifetime the prints made through one factory are one run: the columns of a report's view and the
// company's data, which none of them changes, are read once for all.
class PrintRun {
 public:
  PrintRun() = default;
  virtual ~PrintRun() = default;
  PrintRun(const PrintRun&) = delete;
  PrintRun& operator=(const PrintRun&) = delete;
  // How many prints may be begun before the oldest of them is finished; 0 where prints are made one by one.
  virtual std::size_t ahead() const { return 0; }
};

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
