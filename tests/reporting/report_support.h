#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "reporting/library.h"
#include "reporting/pdf_reports.h"
#include "sqlite/sqlite_connection.h"
#include "suite/file_system.h"
#include "support/fixed_clock.h"
#include "support/scripted_front_end.h"
#include "support/temp_folder.h"

namespace cu::test {

// The demonstration company in memory: company 1, user 12. Shared by the tests of a program, which do not
// change it except for the lines selected for the forms.
Connection& demo();

struct CommandResult {
  int status = 0;
  std::string output;
};
CommandResult runCommand(const std::string& command);

// The text of a PDF in page layout.
std::string pdfText(const std::string& path);
// The number of occurrences of `piece` in a text.
int count(const std::string& text, const std::string& piece);

// The text with single blanks.
std::string squeezed(const std::string& text);
int pageCount(const std::string& path);

// A word of a PDF with its position, in points from the upper left corner of its page.
struct PdfWord {
  int page;
  double pageWidth;
  double pageHeight;
  double left;
  double top;
  double right;
  double bottom;
  std::string text;
};
std::vector<PdfWord> pdfWords(const std::string& path);

// A folder to print in.
class PrintShop {
 public:
  PrintShop();
  explicit PrintShop(std::vector<reporting::DefinitionFile> definitions);

  // An engine ready to run on the demonstration company.
  std::unique_ptr<ReportEngine> engine(const std::string& report, std::int32_t objectType,
                                       std::int32_t definition, const std::string& formula);
  std::unique_ptr<ReportEngine> engine(const std::string& report, const std::string& formula);
  // Prints into a file of the folder and returns its path.
  std::string print(const std::string& report, const std::string& formula,
                    const std::string& name = "stampa.pdf");
  std::string text(const std::string& report, const std::string& formula) {
    return pdfText(print(report, formula));
  }
  // Sets the file of run(3).
  static void nameFile(ReportEngine& engine, const std::string& path);
  std::vector<std::string> filesLeft() const;  // names in the folder, in order

  TempFolder folder;
  ScriptedFrontEnd screen;
  FixedClock clock{2018, 3, 5};
  FileSystemPiattaforma files;
  std::unique_ptr<PdfReports> reports;
};

// File names of the reports.
inline constexpr const char* kAccounts = "ContoIndividuale.rpt";
inline constexpr const char* kSummary = "CertificazioneCompensiSintetico.rpt";
inline constexpr const char* kDetailed = "CertificazioneCompensiAnalitico.rpt";
inline constexpr const char* kForms = "CertificazioneUnica.rpt";

// Selects lines for the forms, replacing earlier ones: the demonstration ids of payees with the codes of
// their reasons.
struct ChosenLine {
  int payee;
  std::string reason;
};
void chooseLines(const std::vector<ChosenLine>& lines, int kind = 1, int intermediary = 0,
                 const std::string& signature = "20180331");
// The formula of the forms for a year.
std::string formFormula(int year);

}  // namespace cu::test
