#include "controls/print_control.h"

namespace cu {

std::string reportTitle(std::string_view report) {
  struct Title {
    std::string_view file;
    std::string_view title;
  };
  static constexpr Title kTitles[] = {
      {"ContoIndividuale.rpt", "Conto individuale"},
      {"CertificazioneCompensiSintetico.rpt", "Certificazione dei compensi, sintetica"},
      {"CertificazioneCompensiAnalitico.rpt", "Certificazione dei compensi, analitica"},
      {"CertificazioneUnica.rpt", "Certificazione Unica"},
  };
  for (const Title& each : kTitles) {
    if (report == each.file) return std::string(each.title);
  }
  return std::string(report.substr(0, report.find('.')));
}

void PrintControl::initialise(Setup setup) {
  setup_ = std::move(setup);
  reports_ = catalogue_ == nullptr ? std::vector<ReportInfo>() : catalogue_->reports(setup_.objectType);
  chosen_ = reports_.empty() ? -1 : 0;
  chooseReport(setup_.report);
  notify();
}

bool PrintControl::chooseReport(std::string_view name) {
  for (std::size_t i = 0; i < reports_.size(); ++i) {
    if (reports_[i].name != name) continue;
    chosen_ = static_cast<int>(i);
    notify();
    return true;
  }
  return false;
}

void PrintControl::setOutput(int kind) {
  output_ = kind;
  notify();
}

void PrintControl::setChoice(bool choice) {
  choice_ = choice;
  notify();
}

void PrintControl::setToFile(bool toFile) {
  toFile_ = toFile;
  notify();
}

}  // namespace cu
