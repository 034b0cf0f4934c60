// The gross amount of the lists of accounts equals the form's sum: of the account and of its modules.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "modello/regole.h"
#include "reporting/definition_reader.h"
#include "reporting/library.h"

namespace cu::reporting {
namespace {

constexpr const char* kModules = "SommeModuli";

TEST(GrossAmount, OfAccountsIsThatOfTheForm) {
  std::vector<std::string> expected(modello::kAddendiLordoDelConto.begin(),
                                    modello::kAddendiLordoDelConto.end());
  expected.emplace_back(kModules);
  int seen = 0;
  for (const DefinitionFile& file : embeddedDefinitionFiles()) {
    const ReportDefinition report = parseDefinition(file.text, file.name);
    if (report.view != "RepContoIndividuale") continue;
    for (const ReportColumn& column : report.columns) {
      if (column.caption != "Ammontare lordo") continue;
      ++seen;
      std::vector<std::string> terms;
      for (const Term& term : column.terms) {
        EXPECT_FALSE(term.negative) << report.name;
        terms.push_back(term.field);
      }
      EXPECT_EQ(terms, expected) << report.name;
    }
    const auto modules = std::find_if(report.computed.begin(), report.computed.end(),
                                      [](const ComputedField& field) { return field.name == kModules; });
    ASSERT_NE(modules, report.computed.end()) << report.name;
    EXPECT_NE(
        modules->sql.find("SUM(ISNULL(Modulo." + std::string(modello::kAddendoLordoDelModulo) + ", 0))"),
        std::string::npos)
        << report.name;
  }
  EXPECT_EQ(seen, 2);
}

}  // namespace
}  // namespace cu::reporting
