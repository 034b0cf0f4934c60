#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "controls/control.h"
#include "data/database.h"
#include "host/report.h"

namespace cu {

// A report's name for a person: "Conto individuale" for "ContoIndividuale.rpt"; of another one its file's
// name without the extension.
std::string reportTitle(std::string_view report);

// The print control: the report of the object type, and the destination of the output.
class PrintControl : public Control {
 public:
  using Control::Control;
  void accept(ControlVisitor& visitor) override { visitor.visit(*this); }

  // Output kinds: 1 preview, 2 printer, 3 to 6 a run with an output code.
  struct Setup {
    Connection* connection = nullptr;
    std::int32_t idFiliale = 0;
    std::string report;  // empty: the first one of the object type
    std::int32_t idUtente = 0;
    std::int32_t objectType = 0;
    std::int32_t defaultRow = 0;
    std::string application;
    std::int32_t window = 0;
  };
  void setCatalogue(const ReportCatalogue& catalogue) { catalogue_ = &catalogue; }
  void initialise(Setup setup);
  const Setup& setup() const { return setup_; }

  const std::vector<ReportInfo>& reports() const { return reports_; }
  std::string report() const {
    return chosen_ < 0 ? std::string() : reports_[static_cast<std::size_t>(chosen_)].name;
  }
  std::int32_t definition() const {
    return chosen_ < 0 ? 0 : reports_[static_cast<std::size_t>(chosen_)].definition;
  }
  bool chooseReport(std::string_view name);  // false when there is none of that name
  std::int32_t objectType() const { return setup_.objectType; }

  int output() const { return output_; }
  void setOutput(int kind);
  bool choice() const { return choice_; }  // whether the user can choose report and output
  void setChoice(bool choice);
  bool toFile() const { return toFile_; }
  void setToFile(bool toFile);

 private:
  const ReportCatalogue* catalogue_ = nullptr;
  Setup setup_;
  std::vector<ReportInfo> reports_;
  int chosen_ = -1;
  int output_ = 1;
  bool choice_ = true;
  bool toFile_ = false;
};

}  // namespace cu
