// The same print has the same bytes, at any time, in any zone and in any process.

#include "reporting/dated_pdf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QBuffer>
#include <QHashFunctions>
#include <cstdlib>
#include <ctime>
#include <optional>

#include "report_support.h"

namespace cu::test {
namespace {

using reporting::DatedPdf;
using reporting::withCreationDate;
using testing::HasSubstr;
using testing::Not;

// A text as stored in a PDF, two bytes per letter.
std::string wide(const std::string& text) {
  std::string result = "(\xfe\xff";
  for (const char c : text) result += std::string(1, '\0') + c;
  return result + ")";
}

std::string information(const std::string& creator, const std::string& date) {
  return "%PDF-1.4\n1 0 obj\n<<\n/Title " + wide("Conti  ") + "\n/Creator " + wide(creator) + "\n/Producer " +
         wide("Qt  ") + "\n/CreationDate (D:" + date + ")\n>>\nendobj\n2 0 obj\n";
}

TEST(CreationDate, TakesThePlaceOfTheMachines) {
  const std::string before = information("cuwizard", "20261122101500+01'00'");
  const std::string after = withCreationDate(before, "20180305103000");
  EXPECT_EQ(after.size(), before.size());
  EXPECT_THAT(after, HasSubstr("\n/CreationDate (D:20180305103000)       \n>>\nendobj\n2 0 obj\n"));
  EXPECT_EQ(after.substr(0, after.find("/CreationDate")), before.substr(0, before.find("/CreationDate")));
}

TEST(CreationDate, IsTheSameInEveryZone) {
  const std::string rome =
      withCreationDate(information("cuwizard", "20261122101500+01'00'"), "20180305103000");
  const std::string newYork =
      withCreationDate(information("cuwizard", "20251121041500-05'00'"), "20180305103000");
  const std::string london =
      withCreationDate(information("cuwizard   ", "20261122091500Z"), "20180305103000");
  EXPECT_EQ(newYork, rome);
  EXPECT_EQ(london, rome);
}

TEST(CreationDate, OfATextThatHasNoneLeavesItAsItIs) {
  for (const std::string& text :
       {std::string(), std::string("endobj"), std::string("/CreationDate (D:2026"),
        std::string("/CreationDate (D:2026)\n"), std::string("/CreationDate (D:20261122091500Z")}) {
    EXPECT_EQ(withCreationDate(text, "20180305103000"), text);
  }
}

TEST(CreationDate, NeedsNoCreator) {
  EXPECT_EQ(withCreationDate("/CreationDate (D:20261122091500Z)", "20180305103000"),
            "/CreationDate (D:20180305103000) ");
  EXPECT_EQ(withCreationDate(")\n/Producer /CreationDate (D:20261122091500Z)", "20180305103000"),
            ")\n/Producer /CreationDate (D:20180305103000) ");
}

TEST(DatedDevice, DatesWhateverPiecesItIsGiven) {
  const std::string before =
      information("cuwizard", "20261122101500+01'00'") + "/CreationDate (D:20261122101500Z)";
  for (std::size_t piece = 1; piece < before.size() + 7; piece += 7) {
    QBuffer target;
    target.open(QIODevice::WriteOnly);
    DatedPdf device(target, Date::fromYmd(2018, 3, 5).value(), {9, 8, 7});
    for (std::size_t at = 0; at < before.size(); at += piece) {
      const std::string part = before.substr(at, piece);
      ASSERT_EQ(device.write(part.data(), static_cast<qint64>(part.size())),
                static_cast<qint64>(part.size()));
    }
    EXPECT_EQ(target.data().toStdString(), withCreationDate(before, "20180305090807")) << piece;
  }
}

TEST(DatedDevice, PassesAnErrorOn) {
  QBuffer closed;
  DatedPdf device(closed, Date::fromYmd(2018, 3, 5).value(), {});
  EXPECT_EQ(device.write("x"), 1);
  EXPECT_EQ(device.write("endobj"), -1);
  EXPECT_EQ(device.write("y"), -1);
}

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
