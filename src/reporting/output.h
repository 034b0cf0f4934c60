#pragma once

#include <memory>
#include <string>

#include "controls/frontend.h"
#include "host/filesystem.h"
#include "reporting/layout.h"

class QTemporaryFile;

namespace cu::reporting {

// Pages to be looked at, in a file that goes with the object. Error (kErrorReportOutput).
class PreviewPages {
 public:
  PreviewPages(const LayoutInput& input, const std::string& creator);
  ~PreviewPages();
  PreviewPages(const PreviewPages&) = delete;
  PreviewPages& operator=(const PreviewPages&) = delete;
  const Preview& preview() const { return preview_; }

 private:
  std::unique_ptr<QTemporaryFile> file_;
  Preview preview_;
};

// Where else a laid-out report goes. All raise FileError, or Error (kErrorReportOutput, kErrorReportPrinter).

void writePdf(FileSystem& files, const std::string& path, const LayoutInput& input,
              const std::string& creator);
void writeSpreadsheet(FileSystem& files, const std::string& path, const LayoutInput& input,
                      const std::string& creator);
// To the printer of that name, or to the default one where it is empty.
void printPages(const std::string& printer, int copies, const LayoutInput& input, const std::string& creator);

}  // namespace cu::reporting
