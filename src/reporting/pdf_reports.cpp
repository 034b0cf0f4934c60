#include "reporting/pdf_reports.h"

#include "host/text.h"
#include "reporting/company.h"
#include "reporting/library.h"
#include "reporting/output.h"
#include "reporting/report_error.h"

namespace cu {
namespace reporting {
namespace {

constexpr int kKindPreview = 1;
constexpr int kKindPrinter = 2;

// Codes of a run, in the order of their numbers, with the output kind that each stands for.
enum class OutputCode { Spreadsheet, ChosenPdf, DocumentsPdf, NamedPdf };
constexpr int kKinds[] = {4, 3, 5, 6};

struct Extension {
  const char* text;
  const char* filter;
};
constexpr Extension kPdf = {".pdf", "File PDF (*.pdf)"};
constexpr Extension kXlsx = {".xlsx", "Foglio di calcolo (*.xlsx)"};

bool hasExtension(const std::string& path) {
  const std::size_t point = path.rfind('.');
  return point != std::string::npos && path.find_first_of("/\\", point) == std::string::npos;
}

class Engine final : public ReportEngine {
 public:
  Engine(const ReportSurroundings& surroundings, ReportLibrary& library)
      : surroundings_(surroundings), library_(library) {}

  void setSession(std::int32_t, std::int32_t idAzienda, std::int32_t) override { idAzienda_ = idAzienda; }
  void setConnection(Connection& connection) override { connection_ = &connection; }
  void setObjectType(std::int32_t type) override { objectType_ = type; }
  void setSelectionFormula(const std::string& formula) override { formula_ = formula; }
  void setReportFile(const std::string& name) override { report_ = name; }
  void setDefinition(std::int32_t number) override { number_ = number; }
  void setOutputMode(std::int32_t mode) override { mode_ = mode; }
  void setOutputPath(const std::string& path) override { path_ = path; }
  void setOutputFormat(std::int32_t format) override { format_ = format; }
  void setCopies(std::int32_t copies) override { copies_ = copies; }
  void setPrinter(const std::string& name, const std::string&) override { printer_ = name; }

  void preview() override {
    PrintNote note{kKindPreview, std::nullopt, report_, formula_, {}, {}, 0};
    std::unique_ptr<PreviewPages> pages;
    told(note, [&] {
      withRows([&](const LayoutInput& input) {
        pages = std::make_unique<PreviewPages>(input, surroundings_.creator);
      });
    });
    // Nothing of the database is held while a person looks at the pages.
    surroundings_.frontEnd.preview(pages->preview());
  }

  void print() override {
    PrintNote note{kKindPrinter, std::nullopt, report_, formula_, {}, printer_, copies_};
    told(note, [&] {
      withRows(
          [&](const LayoutInput& input) { printPages(printer_, copies_, input, surroundings_.creator); });
    });
  }

  void run(std::int32_t code) override {
    if (code < 0 || code > static_cast<int>(OutputCode::NamedPdf)) {
      throw Error(kErrorInvalidCall, "Codice di uscita della stampa sconosciuto: " + fromInteger(code));
    }
    PrintNote note{kKinds[code], code, report_, formula_, {}, {}, 0};
    const bool sheet = static_cast<OutputCode>(code) == OutputCode::Spreadsheet;
    note.file = target(static_cast<OutputCode>(code));
    told(note, [&] {
      withRows([&](const LayoutInput& input) {
        const auto write = sheet ? writeSpreadsheet : writePdf;
        write(surroundings_.files, note.file, input, surroundings_.creator);
      });
    });
  }

 private:
  // Told whatever becomes of the print.
  template <class Print>
  void told(const PrintNote& note, const Print& print) {
    try {
      print();
    } catch (...) {
      surroundings_.frontEnd.printed(note);
      throw;
    }
    surroundings_.frontEnd.printed(note);
  }

  template <class Use>
  void withRows(const Use& use) {
    if (connection_ == nullptr)
      throw Error(kErrorObjectNotSet, "La stampa non ha una connessione al database.");
    const ReportDefinition& definition = library_.find(report_, objectType_, number_);
    const ReadScope reading(*connection_);
    Rows rows(*connection_, selectionOf(definition, formula_, *connection_));
    const Company company = readCompany(*connection_, idAzienda_);
    use(LayoutInput{definition, rows, company, surroundings_.clock.today(), *connection_});
  }

  std::string target(OutputCode code) const {
    switch (code) {
      case OutputCode::Spreadsheet:
        return chosen(kXlsx);
      case OutputCode::ChosenPdf:
        return chosen(kPdf);
      case OutputCode::DocumentsPdf:
        return inDocuments();
      case OutputCode::NamedPdf: {
        const bool named = mode_ == 0 && format_ == 0 && !path_.empty();
        return named ? path_ : chosen(kPdf);
      }
    }
    return {};
  }

  std::string proposedName() const {
    std::string name = report_.substr(0, report_.rfind('.'));
    return name + "_" + surroundings_.clock.today().toCompact();
  }

  std::string chosen(const Extension& extension) const {
    const std::string start =
        surroundings_.files.join(surroundings_.documentsFolder, proposedName() + extension.text);
    const std::optional<std::string> path =
        surroundings_.frontEnd.chooseFileToSave("Salva la stampa con nome", start, extension.filter);
    if (!path || path->empty()) throw Error(kErrorPrintGivenUp, "La stampa è stata annullata.");
    return hasExtension(*path) ? *path : *path + extension.text;
  }

  // A name that no file there bears yet: what was sent before stays.
  std::string inDocuments() const {
    const std::string name = surroundings_.files.join(
        surroundings_.documentsFolder, proposedName() + "_" + surroundings_.clock.now().toHhmm());
    std::string path = name + kPdf.text;
    for (std::int64_t number = 2; surroundings_.files.fileExists(path); ++number) {
      path = name + "_" + fromInteger(number) + kPdf.text;
    }
    return path;
  }

  const ReportSurroundings& surroundings_;
  ReportLibrary& library_;
  Connection* connection_ = nullptr;
  std::int32_t idAzienda_ = 0;
  std::int32_t objectType_ = 0;
  std::int32_t number_ = 0;
  std::int32_t mode_ = -1;
  std::int32_t format_ = -1;
  std::int32_t copies_ = 1;
  std::string formula_;
  std::string report_;
  std::string path_;
  std::string printer_;
};

}  // namespace
}  // namespace reporting

PdfReports::PdfReports(const ReportSurroundings& surroundings)
    : PdfReports(surroundings, reporting::embeddedDefinitionFiles()) {}

PdfReports::PdfReports(const ReportSurroundings& surroundings,
                       std::vector<reporting::DefinitionFile> definitions)
    : surroundings_(surroundings),
      library_(std::make_unique<reporting::ReportLibrary>(std::move(definitions))) {}

PdfReports::~PdfReports() = default;

std::unique_ptr<ReportEngine> PdfReports::create() {
  return std::make_unique<reporting::Engine>(surroundings_, *library_);
}

}  // namespace cu
