#include "reporting/begun_pdf.h"

#include <utility>

#include "reporting/form_values.h"
#include "reporting/gui_application.h"
#include "reporting/layout_threads.h"
#include "reporting/new_file.h"
#include "reporting/output.h"
#include "reporting/print_font.h"

namespace cu::reporting {

ReadReport::ReadReport(const ReportDefinition& reportDefinition, const modello::Modello& ministerialForm,
                       Connection& connection, const std::string& statement)
    : definition(reportDefinition), form(ministerialForm), rows(connection, statement) {
  if (definition.layout != LayoutKind::Form) return;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    rows.move(i);
    if (!hasModules(rows)) {
      modules.push_back(nullptr);
      continue;
    }
    // NOLINTNEXTLINE(modernize-make-unique): rows are made in their place, never moved
    modules.push_back(std::unique_ptr<Rows>(new Rows(readModules(connection, rows))));
  }
}

BegunPdf::BegunPdf(FileSystem& files, std::string path, LayoutThreads& threads,
                   std::shared_ptr<ReadReport> read, Connection& connection, const std::string& creator)
    : files_(files), path_(std::move(path)) {
  ensureGuiApplication();
  // The font is registered by the program's thread: the toolkit tells its windows about it.
  printFontFamily();
  pdf_ = threads.start([read = std::move(read), &connection, creator] {
    return pdfOf(LayoutInput{.definition = read->definition,
                             .rows = read->rows,
                             .company = read->company,
                             .selection = read->selection,
                             .today = read->today,
                             .now = read->now,
                             .connection = connection,
                             .form = read->form,
                             .modules = &read->modules},
                 creator);
  });
}

void BegunPdf::finish() {
  const QByteArray pdf = pdf_.get();
  NewFile file(files_, path_);
  file.write({pdf.constData(), static_cast<std::size_t>(pdf.size())});
  file.commit();
}

}  // namespace cu::reporting
