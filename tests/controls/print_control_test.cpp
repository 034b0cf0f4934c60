#include "controls/print_control.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "controls/controls_support.h"

namespace cu {
namespace {

using test::CountingView;
using test::Stage;

class Catalogue : public ReportCatalogue {
 public:
  std::vector<ReportInfo> reports(std::int32_t objectType) const override {
    if (objectType == 342) return {{"CU2017.rpt", 11}, {"CU2017Sintetico.rpt", 12}};
    if (objectType == 246) return {{"ContoIndividuale.rpt", 1}};
    return {};
  }
};

PrintControl::Setup setup(std::int32_t objectType, std::string report = {}) {
  PrintControl::Setup setup;
  setup.objectType = objectType;
  setup.report = std::move(report);
  return setup;
}

struct Prints {
  Stage stage;
  Catalogue catalogue;
  PrintControl control{stage.form, "WizPrint", nullptr};
  Prints() { control.setCatalogue(catalogue); }
};

TEST(PrintControl, KnowsNothingBeforeItIsInitialised) {
  Prints on;
  EXPECT_EQ(on.control.report(), "");
  EXPECT_EQ(on.control.definition(), 0);
  EXPECT_EQ(on.control.objectType(), 0);
  EXPECT_EQ(on.control.output(), 1);
  EXPECT_TRUE(on.control.choice());
  EXPECT_FALSE(on.control.toFile());
  EXPECT_FALSE(on.control.chooseReport("CU2017.rpt"));
}

TEST(PrintControl, WithoutANameTheFirstReportOfTheObjectTypeIsChosen) {
  Prints on;
  on.control.initialise(setup(342));
  EXPECT_EQ(on.control.reports().size(), 2U);
  EXPECT_EQ(on.control.report(), "CU2017.rpt");
  EXPECT_EQ(on.control.definition(), 11);
  on.control.initialise(setup(246));
  EXPECT_EQ(on.control.report(), "ContoIndividuale.rpt");
  on.control.initialise(setup(7));
  EXPECT_EQ(on.control.report(), "");
  EXPECT_EQ(on.control.definition(), 0);
}

TEST(PrintControl, ANamedReportIsChosen) {
  Prints on;
  on.control.initialise(setup(342, "CU2017Sintetico.rpt"));
  EXPECT_EQ(on.control.definition(), 12);
  on.control.initialise(setup(342, "Altro.rpt"));
  EXPECT_EQ(on.control.definition(), 11);  // does not exist
}

TEST(PrintControl, ComingBackBeginsAnew) {
  Prints on;
  on.control.initialise(setup(342));
  EXPECT_TRUE(on.control.chooseReport("CU2017Sintetico.rpt"));
  EXPECT_FALSE(on.control.chooseReport("cu2017.rpt"));
  on.control.initialise(setup(342));
  EXPECT_EQ(on.control.report(), "CU2017.rpt");
}

TEST(PrintControl, WithoutACatalogueThereAreNoReports) {
  Stage stage;
  PrintControl control(stage.form, "WizPrint", nullptr);
  control.initialise(setup(342));
  EXPECT_TRUE(control.reports().empty());
  EXPECT_EQ(control.report(), "");
}

TEST(PrintControl, OutputChoiceAndFileAreToldToTheView) {
  Prints on;
  CountingView view;
  on.control.attach(&view);
  on.control.setOutput(6);
  on.control.setChoice(false);
  on.control.setToFile(true);
  EXPECT_EQ(view.changes, 3);
  EXPECT_EQ(on.control.output(), 6);
  EXPECT_FALSE(on.control.choice());
  EXPECT_TRUE(on.control.toFile());
}

}  // namespace
}  // namespace cu
