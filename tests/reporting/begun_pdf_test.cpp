// Forms that are laid out in threads.

#include "reporting/begun_pdf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>
#include <future>
#include <map>
#include <utility>

#include "report_support.h"
#include "reporting/layout_threads.h"
#include "reporting/report_error.h"
#include "support/memory_file_system.h"

namespace cu::test {
namespace {

using reporting::LayoutThreads;
using testing::ElementsAre;
using testing::IsEmpty;

const std::vector<ChosenLine> kChosen = {{101, "A"}, {103, "A"}, {128, "A"}, {104, "A"}};

// Prints the forms of the lines, a file each, with that many at a time.
class FormShop {
 public:
  explicit FormShop(std::size_t jobs)
      : reports({.frontEnd = screen, .files = files, .clock = clock, .creator = "Quadrivio", .jobs = jobs}),
        run(reports.beginRun()) {}
  std::unique_ptr<ReportEngine> engine(const std::string& path) {
    auto made = reports.create();
    made->setSession(12, 1, 1);
    made->setConnection(demo());
    made->setObjectType(342);
    made->setSelectionFormula(formFormula(2017));
    made->setReportFile(kForms);
    made->setDefinition(3421);
    PrintShop::nameFile(*made, path);
    return made;
  }
  ScriptedFrontEnd screen;
  MemoryFileSystem files;
  FixedClock clock{2018, 3, 5};
  PdfReports reports;
  std::unique_ptr<PrintRun> run;
};

std::map<std::string, std::string> formsOneByOne() {
  FormShop shop(1);
  for (const ChosenLine& line : kChosen) {
    chooseLines({line});
    shop.engine("/" + std::to_string(line.payee))->run(3);
  }
  return shop.files.files;
}

std::map<std::string, std::string> formsAhead(std::size_t jobs) {
  FormShop shop(jobs);
  std::deque<std::pair<std::unique_ptr<ReportEngine>, std::unique_ptr<BegunPrint>>> begun;
  for (const ChosenLine& line : kChosen) {
    chooseLines({line});
    auto engine = shop.engine("/" + std::to_string(line.payee));
    auto print = engine->begin(3);
    begun.emplace_back(std::move(engine), std::move(print));
  }
  chooseLines({});
  EXPECT_THAT(shop.files.files, IsEmpty()) << "no file before its print is finished";
  for (const auto& each : begun) each.second->finish();
  return shop.files.files;
}

TEST(FormsInThreads, HaveTheBytesOfFormsOneByOne) {
  const auto expected = formsOneByOne();
  ASSERT_EQ(expected.size(), kChosen.size());
  for (const std::size_t jobs : {2U, 3U, 8U}) {
    for (int again = 0; again < 5; ++again) EXPECT_TRUE(formsAhead(jobs) == expected) << jobs << " " << again;
  }
}

TEST(FormsInThreads, OfAnAnnulmentHaveNoAmountsEither) {
  FormShop alone(1);
  FormShop shop(2);
  chooseLines({{101, "A"}}, 2);
  alone.engine("/a")->run(3);
  auto engine = shop.engine("/a");
  engine->begin(3)->finish();
  EXPECT_TRUE(shop.files.files == alone.files.files);
}

TEST(FormsInThreads, OfNoLinesAreThePageWithAMessage) {
  FormShop alone(1);
  FormShop shop(2);
  chooseLines({});
  alone.engine("/a")->run(3);
  auto engine = shop.engine("/a");
  engine->begin(3)->finish();
  EXPECT_TRUE(shop.files.files == alone.files.files);
}

TEST(FormsInThreads, AreAsManyAheadAsKeepTheThreadsBusy) {
  EXPECT_EQ(FormShop(1).run->ahead(), 0U);
  EXPECT_EQ(FormShop(3).run->ahead(), 6U);
}

TEST(FormsInThreads, LeaveNoFileWhereTheyAreNotFinished) {
  FormShop shop(2);
  chooseLines({{101, "A"}});
  for (int i = 0; i < 10; ++i) {
    auto engine = shop.engine("/a");
    engine->begin(3);
  }
  EXPECT_THAT(shop.files.files, IsEmpty());
}

TEST(FormsInThreads, FailAtTheirFileWhenTheyAreFinished) {
  FormShop shop(2);
  chooseLines({{101, "A"}});
  shop.files.files["/a"] = "quella di prima";
  auto engine = shop.engine("/a");
  const auto begun = engine->begin(3);
  shop.files.failNth(MemoryFileSystem::Operation::Rename, 1, kErrorDeviceIo);
  EXPECT_THROW(begun->finish(), FileError);
  EXPECT_THAT(shop.files.files, ElementsAre(testing::Pair("/a", "quella di prima")));
}

TEST(FormsInThreads, FailAtTheirRowsWhenTheyAreBegun) {
  FormShop shop(2);
  auto engine = shop.engine("/a");
  engine->setSelectionFormula("{__ViewName.Anno} >= duemila");
  EXPECT_THROW(engine->begin(3), Error);
}

TEST(FormsInThreads, NeedARunWithThreads) {
  FormShop shop(1);
  EXPECT_THROW(shop.engine("/a")->begin(3), Error);
  FormShop table(2);
  EXPECT_THROW(table.engine("/a")->begin(0), Error) << "a table for a spreadsheet";
}

TEST(LayoutThreads, ReturnAndRaiseWhatTheTasksDo) {
  LayoutThreads threads(2);
  auto good = threads.start([] { return QByteArray("pdf"); });
  auto bad = threads.start([]() -> QByteArray { throw Error(kErrorReportOutput, "no"); });
  EXPECT_EQ(good.get(), "pdf");
  EXPECT_THROW(bad.get(), Error);
}

TEST(LayoutThreads, DropTheTasksThatHaveNotBegun) {
  std::future<QByteArray> dropped;
  {
    LayoutThreads none(0);
    dropped = none.start([] { return QByteArray("pdf"); });
  }
  EXPECT_THROW(dropped.get(), std::future_error);
}

}  // namespace
}  // namespace cu::test
