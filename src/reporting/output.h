#pragma once

#include <QByteArray>
#include <memory>
#include <string>

#include "controls/frontend.h"
#include "host/filesystem.h"
#include "reporting/layout.h"

class QTemporaryFile;

namespace cu::reporting {

// The pages of a preview, in a file that is deleted with the object. Raises Error (kErrorReportOutput).
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

// The report as a PDF in memory. Runs in any thread where `input` has modules read before and no progress,
// once the toolkit's application object exists.
QByteArray pdfOf(const LayoutInput& input, const std::string& creator);

// The other destinations of a report. All raise FileError, or Error (kErrorReportOutput,
// kErrorReportPrinter).

void writePdf(FileSystem& files, const std::string& path, const LayoutInput& input,
              const std::string& creator);
void writeSpreadsheet(FileSystem& files, const std::string& path, const LayoutInput& input,
                      const std::string& creator);
// Prints on the printer with that name, or on the default one where it is empty.
void printPages(const std::string& printer, int copies, const LayoutInput& input, const std::string& creator);

}  // namespace cu::reporting
