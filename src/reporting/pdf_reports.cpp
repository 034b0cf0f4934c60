#include "reporting/pdf_reports.h"

#include "base/text.h"
#include "modello/restituzioni.h"
#include "reporting/begun_pdf.h"
#include "reporting/layout_threads.h"
#include "reporting/library.h"
#include "reporting/output.h"
#include "reporting/report_error.h"
#include "reporting/run_readings.h"
#include "reporting/selection_text.h"

namespace cu {
namespace reporting {

// What the prints of one run share.
struct RunState {
  RunReadings readings;
  std::unique_ptr<LayoutThreads> threads;  // none where prints are made one by one
};

namespace {

// Codes of a run.
constexpr std::int32_t kSpreadsheet = 0;
constexpr std::int32_t kNamedPdf = 3;  // the two codes between are PDFs too

class Engine final : public ReportEngine {
 public:
  Engine(const ReportSurroundings& surroundings, ReportLibrary& library, std::shared_ptr<RunState> run)
      : surroundings_(surroundings), library_(library), run_(std::move(run)) {}

  void setSession(std::int32_t, std::int32_t idAzienda, std::int32_t) override { idAzienda_ = idAzienda; }
  void setConnection(Connection& connection) override { connection_ = &connection; }
  void setObjectType(std::int32_t type) override { objectType_ = type; }
  void setSelectionFormula(const std::string& formula) override { formula_ = formula; }
  void setReportFile(const std::string& name) override { report_ = name; }
  void setDefinition(std::int32_t number) override { number_ = number; }
  // There is only one mode and one format: the path alone determines the output.
  void setOutputMode(std::int32_t) override {}
  void setOutputPath(const std::string& path) override { path_ = path; }
  void setOutputFormat(std::int32_t) override {}
  void setCopies(std::int32_t copies) override { copies_ = copies; }
  void setPrinter(const std::string& name, const std::string&) override { printer_ = name; }

  void preview() override {
    std::unique_ptr<PreviewPages> pages;
    try {
      withRows([&](const LayoutInput& input) {
        pages = std::make_unique<PreviewPages>(input, surroundings_.creator);
      });
    } catch (const PrintInterrupted&) {
      surroundings_.frontEnd.told("Anteprima interrotta prima della prima pagina.");
      throw;
    }
    // No database resource is held while the user reads the pages.
    surroundings_.frontEnd.preview(pages->preview());
    if (!pages->preview().whole) surroundings_.frontEnd.told("L'anteprima è stata interrotta.");
  }

  // What has been sent to a printer cannot be taken back.
  void print() override {
    withRows([&](LayoutInput input) {
      input.interruptible = false;
      printPages(printer_, copies_, input, surroundings_.creator);
    });
  }

  void run(std::int32_t code) override {
    checkOutput(code);
    withRows([&](const LayoutInput& input) {
      const auto write = code == kSpreadsheet ? writeSpreadsheet : writePdf;
      write(surroundings_.files, path_, input, surroundings_.creator);
    });
  }

  std::unique_ptr<BegunPrint> begin(std::int32_t code) override {
    checkOutput(code);
    if (code == kSpreadsheet || run_->threads == nullptr)
      throw Error(kErrorInvalidCall, "Questa stampa si fa in una volta sola.");
    const ReportDefinition& definition = checkedDefinition();
    const Formula formula = parseFormula(formula_);
    const ReadScope reading(*connection_);
    const auto read = std::make_shared<ReadReport>(definition, surroundings_.form, *connection_,
                                                   selection(definition, formula));
    read->company = run_->readings.company(*connection_, idAzienda_);
    read->selection = selectionText(definition, formula);
    read->today = surroundings_.clock.today();
    read->now = surroundings_.clock.now();
    return std::make_unique<BegunPdf>(surroundings_.files, path_, *run_->threads, read, *connection_,
                                      surroundings_.creator);
  }

 private:
  void checkOutput(std::int32_t code) const {
    if (code < kSpreadsheet || code > kNamedPdf) {
      throw Error(kErrorInvalidCall, "Codice di uscita della stampa sconosciuto: " + fromInteger(code));
    }
    if (path_.empty()) throw Error(kErrorInvalidCall, "La stampa non ha il nome del file da scrivere.");
  }
  const ReportDefinition& checkedDefinition() const {
    if (connection_ == nullptr)
      throw Error(kErrorObjectNotSet, "La stampa non ha una connessione al database.");
    return library_.find(report_, objectType_, number_);
  }
  std::string selection(const ReportDefinition& definition, const Formula& formula) const {
    const bool ownBoxes = definition.layout == LayoutKind::Form &&
                          modello::haCaselleProprie(surroundings_.form) &&
                          run_->readings.ownBoxes(*connection_);
    return selectionOf(definition, formula, run_->readings.columns(*connection_, definition.view), ownBoxes);
  }

  template <class Use>
  void withRows(const Use& use) {
    const ReportDefinition& definition = checkedDefinition();
    const Formula formula = parseFormula(formula_);
    const ReadScope reading(*connection_);
    Rows rows(*connection_, selection(definition, formula));
    use(LayoutInput{definition, rows, run_->readings.company(*connection_, idAzienda_),
                    selectionText(definition, formula), surroundings_.clock.today(),
                    surroundings_.clock.now(), *connection_, false, nullptr, &surroundings_.frontEnd,
                    surroundings_.form});
  }

  const ReportSurroundings& surroundings_;
  ReportLibrary& library_;
  std::shared_ptr<RunState> run_;
  Connection* connection_ = nullptr;
  std::int32_t idAzienda_ = 0;
  std::int32_t objectType_ = 0;
  std::int32_t number_ = 0;
  std::int32_t copies_ = 1;
  std::string formula_;
  std::string report_;
  std::string path_;
  std::string printer_;
};

struct Run final : PrintRun {
  // A few more than are laid out, so that no thread waits for the next rows.
  std::size_t ahead() const override { return state->threads ? 2 * state->threads->count() : 0; }
  std::shared_ptr<RunState> state = std::make_shared<RunState>();
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
  std::shared_ptr<reporting::RunState> run = run_.lock();
  if (!run) run = std::make_shared<reporting::RunState>();
  return std::make_unique<reporting::Engine>(surroundings_, *library_, std::move(run));
}

std::unique_ptr<PrintRun> PdfReports::beginRun() {
  auto run = std::make_unique<reporting::Run>();
  if (surroundings_.jobs > 1) {
    run->state->threads = std::make_unique<reporting::LayoutThreads>(surroundings_.jobs);
  }
  run_ = run->state;
  return run;
}

}  // namespace cu
