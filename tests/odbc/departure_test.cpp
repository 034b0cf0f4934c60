// A server that ends its TLS session in order, and with it the stream: a program that stops without crashing.
// The FreeTDS driver then waits forever for more data.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <chrono>
#include <optional>

#include "support.h"

namespace cu::odbc::test {
namespace {

using ::testing::StartsWith;
using Reply = TdsServer::Reply;
using Then = TdsServer::Then;

OdbcSettings settingsOfTds(const TdsServer& server, int statementSeconds) {
  OdbcSettings settings;
  settings.text =
      "Driver=FreeTDS;Server=127.0.0.1;Port=" + std::to_string(server.port()) + ";Database=suite;UID=cu";
  settings.password = "segreto";
  settings.statementSeconds = statementSeconds;
  return settings;
}

// Seconds of wall-clock time, and of processor time of the whole process.
struct Spent {
  double clock = 0;
  double processor = 0;
};

Spent spentOn(const std::function<void()>& work) {
  const auto processor = [] {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
      return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
  };
  const auto start = std::chrono::steady_clock::now();
  const double before = processor();
  work();
  return {std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count(),
          processor() - before};
}

Reply welcome() { return {tds::welcome()}; }
Reply numbers(std::uint32_t count, bool whole, Then then = Then::Stays) {
  std::string tokens = tds::columnOfNumbers("n");
  for (std::uint32_t i = 1; i <= count; ++i) tokens += tds::rowOf(i);
  return {tokens + (whole ? tds::done() : std::string()), then};
}

// The time limit of a statement: none, less than the user would wait, more.
class Departures : public ::testing::TestWithParam<int> {
 protected:
  void dropsAndComesBack(OdbcConnection& connection, const std::string& statement) {
    std::optional<DatabaseError> error;
    const Spent spent = spentOn([&] { error = errorOf([&] { query(connection, statement); }); });
    EXPECT_STREQ(error->what(), kDropped);
    EXPECT_EQ(error->kind(), DatabaseErrorKind::Unavailable);
    EXPECT_EQ(error->statementKind(), "SELECT");
    EXPECT_LT(spent.clock, 5);
    EXPECT_LT(spent.processor, 1);
    EXPECT_EQ(single(connection, "SELECT resta"), "1");
  }
};

TEST_P(Departures, BeforeAnAnswerAreToldAndTheNextStatementConnectsAnew) {
  const TdsServer server([](std::string_view statement) {
    if (statement == "SELECT via") return Reply{"", Then::Leaves};
    return statement.empty() ? welcome() : numbers(1, true);
  });
  const auto connection = OdbcConnection::open(settingsOfTds(server, GetParam()), ignore);
  dropsAndComesBack(*connection, "SELECT via");
}

TEST_P(Departures, WithinAResultAreToldAndTheNextStatementConnectsAnew) {
  const TdsServer server([](std::string_view statement) {
    if (statement == "SELECT via") return numbers(3000, false, Then::Leaves);
    return statement.empty() ? welcome() : numbers(1, true);
  });
  const auto connection = OdbcConnection::open(settingsOfTds(server, GetParam()), ignore);
  dropsAndComesBack(*connection, "SELECT via");
}

TEST_P(Departures, BetweenTwoStatementsAreToldByTheSecond) {
  const TdsServer server([](std::string_view statement) {
    return statement.empty() ? welcome()
                             : numbers(1, true, statement == "SELECT ultima" ? Then::Leaves : Then::Stays);
  });
  const auto connection = OdbcConnection::open(settingsOfTds(server, GetParam()), ignore);
  EXPECT_EQ(single(*connection, "SELECT ultima"), "1");
  dropsAndComesBack(*connection, "SELECT dopo");
}

TEST_P(Departures, BehindAWholeResultTakeNothingFromIt) {
  const TdsServer server([](std::string_view statement) {
    return statement.empty() ? welcome()
                             : numbers(20000, true, statement == "SELECT tutto" ? Then::Leaves : Then::Stays);
  });
  const auto connection = OdbcConnection::open(settingsOfTds(server, GetParam()), ignore);
  EXPECT_EQ(query(*connection, "SELECT tutto").size(), 20000u);
  EXPECT_STREQ(errorOf([&] { query(*connection, "SELECT dopo"); }).what(), kDropped);
}

// The result is abandoned at an amount that the program cannot represent; the rest of it never arrives.
TEST_P(Departures, WhileTheRestOfAResultIsGivenUpCostNoFurtherStatement) {
  const TdsServer server([](std::string_view statement) {
    if (statement == "SELECT troppo") {
      std::string tokens = tds::columnOfAmounts("n");
      for (int i = 0; i < 3000; ++i) tokens += tds::rowBeyondAll();
      return Reply{tokens, Then::LeavesWhenCancelled};
    }
    return statement.empty() ? welcome() : numbers(1, true);
  });
  const auto connection = OdbcConnection::open(settingsOfTds(server, GetParam()), ignore);
  std::optional<DatabaseError> error;
  const Spent spent = spentOn([&] { error = errorOf([&] { query(*connection, "SELECT troppo"); }); });
  EXPECT_STREQ(error->what(), "Un importo del risultato è fuori dai limiti del programma.");
  EXPECT_LT(spent.clock, 5);
  EXPECT_EQ(single(*connection, "SELECT resta"), "1");
}

TEST_P(Departures, DuringALoginAreToldAsSuch) {
  const TdsServer server([](std::string_view) { return Reply{"", Then::Leaves}; });
  std::optional<DatabaseError> error;
  const Spent spent = spentOn(
      [&] { error = errorOf([&] { OdbcConnection::open(settingsOfTds(server, GetParam()), ignore); }); });
  EXPECT_EQ(error->kind(), DatabaseErrorKind::Unavailable);
  EXPECT_THAT(error->what(), StartsWith("Il server del database "));
  EXPECT_LT(spent.clock, 5);
  EXPECT_LT(spent.processor, 1);
}

// The client cannot detect that: to it the server simply does not answer.
TEST(DeparturesFromTls, ThatLeaveTheStreamOpenEndWithTheTimeAllowed) {
  const TdsServer server([](std::string_view statement) {
    return statement.empty() ? welcome() : Reply{"", Then::EndsTls};
  });
  const auto connection = OdbcConnection::open(settingsOfTds(server, 1), ignore);
  std::optional<DatabaseError> error;
  const Spent spent = spentOn([&] { error = errorOf([&] { query(*connection, "SELECT via"); }); });
  EXPECT_EQ(error->kind(), DatabaseErrorKind::Timeout) << error->what();
  EXPECT_LT(spent.clock, 8);
  EXPECT_LT(spent.processor, 1);
}

INSTANTIATE_TEST_SUITE_P(StatementTimeouts, Departures, ::testing::Values(0, 1, 600),
                         [](const ::testing::TestParamInfo<int>& each) {
                           return each.param == 0 ? "None" : std::to_string(each.param) + "Seconds";
                         });

}  // namespace
}  // namespace cu::odbc::test
