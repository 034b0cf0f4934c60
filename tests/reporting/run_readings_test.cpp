#include "reporting/run_readings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "report_support.h"

namespace cu::test {
namespace {

using testing::HasSubstr;

// The demonstration company, with every statement recorded.
class NotingConnection : public Connection {
 public:
  std::int64_t Execute(std::string_view statement) override { return demo().Execute(statement); }
  void Query(std::string_view source, RowStore& rows) override {
    sent.emplace_back(source);
    demo().Query(source, rows);
  }
  void BeginRead() override { demo().BeginRead(); }
  void EndRead() noexcept override { demo().EndRead(); }
  std::ptrdiff_t count(const std::string& piece) const {
    return std::count_if(sent.begin(), sent.end(),
                         [&](const std::string& each) { return each.find(piece) != std::string::npos; });
  }
  std::vector<std::string> sent;
};

constexpr const char* kColumns = " WHERE 1 = 0";
constexpr const char* kCompanyStatement = " FROM Azienda ";

class Runs : public testing::Test {
 protected:
  void SetUp() override { chooseLines({{101, "A"}}); }
  std::string form(int year = 2017) {
    auto engine = shop.engine(kForms, formFormula(year));
    engine->setConnection(connection);
    PrintShop::nameFile(*engine, shop.folder / "a.pdf");
    engine->run(3);
    return shop.folder.read("a.pdf");
  }
  NotingConnection connection;
  PrintShop shop;
};

TEST_F(Runs, ReadColumnsAndCompanyOnce) {
  const auto run = shop.reports->beginRun();
  const std::string first = form();
  const std::size_t statements = connection.sent.size();
  EXPECT_EQ(form(), first);
  EXPECT_EQ(connection.sent.size(), 2 * statements - 2);
  EXPECT_EQ(connection.count(kColumns), 1);
  EXPECT_EQ(connection.count(kCompanyStatement), 1);
}

TEST_F(Runs, ReadTheRowsOfEachPrint) {
  const auto run = shop.reports->beginRun();
  const std::string first = form();
  chooseLines({{103, "A"}});
  EXPECT_NE(form(), first);
}

TEST_F(Runs, ForgetAtTheirEnd) {
  auto run = shop.reports->beginRun();
  form();
  run = nullptr;
  form();
  form();
  EXPECT_EQ(connection.count(kColumns), 3);
  EXPECT_EQ(connection.count(kCompanyStatement), 3);
}

TEST_F(Runs, ShareNothingWithOneAnother) {
  auto run = shop.reports->beginRun();
  form();
  run = shop.reports->beginRun();
  form();
  EXPECT_EQ(connection.count(kColumns), 2);
}

TEST_F(Runs, HoldEachConnectionsOwn) {
  const auto run = shop.reports->beginRun();
  form();
  NotingConnection other;
  auto engine = shop.engine(kForms, formFormula(2017));
  engine->setConnection(other);
  PrintShop::nameFile(*engine, shop.folder / "a.pdf");
  engine->run(3);
  EXPECT_EQ(other.count(kColumns), 1);
  EXPECT_EQ(other.count(kCompanyStatement), 1);
}

TEST_F(Runs, HoldEachReportsAndCompanysOwn) {
  const auto run = shop.reports->beginRun();
  form();
  auto accounts = shop.engine(kAccounts, "{__ViewName.IDAzienda} = 1");
  accounts->setConnection(connection);
  accounts->setSession(12, 2, 1);
  PrintShop::nameFile(*accounts, shop.folder / "b.pdf");
  accounts->run(3);
  EXPECT_EQ(connection.count(kColumns), 2);
  EXPECT_EQ(connection.count(kCompanyStatement), 2);
}

}  // namespace
}  // namespace cu::test
