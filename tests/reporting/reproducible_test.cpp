// The same print has the same bytes, at any time, in any zone and in any process.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QHashFunctions>
#include <cstdlib>
#include <ctime>
#include <optional>

#include "report_support.h"

namespace cu::test {
namespace {

using testing::HasSubstr;
using testing::Not;

// Sets the machine's time zone for its lifetime.
class Zone {
 public:
  explicit Zone(const char* name) {
    if (const char* const value = std::getenv("TZ")) before_ = value;
    ::setenv("TZ", name, 1);
    ::tzset();
  }
  ~Zone() {
    if (before_) {
      ::setenv("TZ", before_->c_str(), 1);
    } else {
      ::unsetenv("TZ");
    }
    ::tzset();
  }
  Zone(const Zone&) = delete;
  Zone& operator=(const Zone&) = delete;

 private:
  std::optional<std::string> before_;
};

struct Print {
  const char* report;
  const char* formula;
  int code;
};

class Reproducible : public testing::TestWithParam<Print> {
 protected:
  static std::string bytes(const FixedClock& clock = FixedClock(2018, 3, 5)) {
    PrintShop shop;
    shop.clock = clock;
    auto engine = shop.engine(GetParam().report, GetParam().formula);
    PrintShop::nameFile(*engine, shop.folder / "a");
    engine->run(GetParam().code);
    return shop.folder.read("a");
  }
  void SetUp() override { chooseLines({{101, "A"}, {103, "A"}, {128, "A"}}); }
};

// Hash tables have another seed in each process.
TEST_P(Reproducible, WithEverySeed) {
  const std::string first = bytes();
  for (int i = 0; i < 8; ++i) {
    QHashSeed::resetRandomGlobalSeed();
    ASSERT_TRUE(bytes() == first) << i;
  }
}

TEST_P(Reproducible, AtEveryTimeAndZoneOfTheMachine) {
  const std::string first = [] {
    const Zone zone("UTC0");
    return bytes();
  }();
  // The machine's hour differs in each.
  for (const char* name : {"CET-1", "EST5", "IST-5:30", "UTC0"}) {
    const Zone zone(name);
    EXPECT_TRUE(bytes() == first) << name;
  }
}

TEST_P(Reproducible, ButForTheGivenTime) {
  const std::string first = bytes();
  FixedClock clock(2018, 3, 5);
  clock.set(TimeOfDay{10, 30, 1});
  EXPECT_FALSE(bytes(clock) == first);
}

constexpr const char* kYear =
    " {__ViewName.Anno} = 2017 AND {__ViewName.IDAziendaPercipiente} = 1 AND {__ViewName.IDAzienda} = 1";
constexpr const char* kPayments = "Year({__ViewName.DataPagamento}) = 2017 AND {__ViewName.IDAzienda} = 1";
constexpr const char* kForm =
    "{__ViewName.Anno} = 2017 AND {__ViewName.IDAzienda} = 1 AND {__ViewName.IDUtente} = 12";

INSTANTIATE_TEST_SUITE_P(Reports, Reproducible,
                         testing::Values(Print{kAccounts, kYear, 3}, Print{kSummary, kYear, 3},
                                         Print{kDetailed, kPayments, 3}, Print{kForms, kForm, 3},
                                         Print{kAccounts, kYear, 0}, Print{kForms, kForm, 0}));

TEST(PdfInformation, HasTheGivenTimeAndTheCreatorsNameAlone) {
  for (const char* name : {"UTC0", "CET-1"}) {
    const Zone zone(name);
    PrintShop shop;
    const std::string info =
        runCommand("pdfinfo -rawdates '" + shop.print(kAccounts, kYear) + "' | tr '\\n' '|'").output;
    EXPECT_THAT(info, HasSubstr("|CreationDate:    D:20180305103000|"));
    EXPECT_THAT(info, HasSubstr("|Creator:         Quadrivio|"));
    EXPECT_THAT(info, Not(HasSubstr("Error")));
  }
}

TEST(SpreadsheetInformation, HasTheGivenTime) {
  PrintShop shop;
  auto engine = shop.engine(kAccounts, kYear);
  PrintShop::nameFile(*engine, shop.folder / "a.xlsx");
  engine->run(0);
  EXPECT_THAT(runCommand("python3 -c \"import sys,zipfile; "
                         "print(zipfile.ZipFile(sys.argv[1]).read('docProps/core.xml').decode())\" '" +
                         shop.folder / "a.xlsx" + "'")
                  .output,
              HasSubstr(">2018-03-05T10:30:00Z</dcterms:created>"));
}

}  // namespace
}  // namespace cu::test
