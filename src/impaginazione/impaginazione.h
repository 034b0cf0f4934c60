#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

#include "base/error.h"
#include "controls/frontend.h"
#include "host/clock.h"
#include "host/filesystem.h"
#include "host/report.h"
#include "modello/modello.h"

namespace cu {

// The error number of prints whose library cannot be used.
inline constexpr int kErrorReportLibrary = kErrorObjectBase + 705;

// The surroundings of the reports, which outlive them.
struct ReportSurroundings {
  FrontEnd& frontEnd;
  FileSystem& files;
  const Clock& clock;
  std::string creator;                               // the program's name in the files
  const modello::Modello& form = modello::kModello;  // the ministerial form
  std::size_t jobs = 1;                              // forms of a run that are laid out at a time
};

// What lays reports out and writes them. Programs know no more of it: its libraries may be loaded by the
// first print.
class Impaginatore {
 public:
  Impaginatore() = default;
  virtual ~Impaginatore() = default;
  Impaginatore(const Impaginatore&) = delete;
  Impaginatore& operator=(const Impaginatore&) = delete;

  // Creates an engine for one print, which belongs to the current run; it does not outlive this object.
  virtual std::unique_ptr<ReportEngine> create() = 0;
  // At most one run at a time.
  virtual std::unique_ptr<PrintRun> beginRun() = 0;
};

// Called by the first print. Error kErrorReportLibrary, with a text for the user, where prints cannot be
// made.
using CreaImpaginatore = std::function<std::unique_ptr<Impaginatore>(const ReportSurroundings&)>;

}  // namespace cu
