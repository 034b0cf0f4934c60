#include "base/decimal.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "base/error.h"

namespace cu {
namespace {

constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();

Decimal scaled(std::int64_t value) { return Decimal::fromScaled(value); }

template <class Operation>
int errorOf(Operation operation) {
  try {
    operation();
  } catch (const Error& error) {
    return error.number();
  }
  return 0;
}

TEST(Decimal, ParsesWhatADatabaseWrites) {
  const std::vector<std::pair<std::string, std::int64_t>> table = {
      {"0", 0},
      {"1", 10000},
      {"-1", -10000},
      {"+1", 10000},
      {"1234.5678", 12345678},
      {"-1234.5678", -12345678},
      {"0.0001", 1},
      {".5", 5000},
      {"5.", 50000},
      {"-.5", -5000},
      {"007.50", 75000},
      {"  12.3  ", 123000},
      {"1.2000000000", 12000},
      {"-0", 0},
      {"-0.00", 0},
      {"922337203685477.5807", kMax},
      {"-922337203685477.5807", -kMax},
      {"000000000000000000000000000001", 10000},
  };
  for (const auto& [text, expected] : table) {
    const auto value = Decimal::parse(text);
    ASSERT_TRUE(value.has_value()) << text;
    EXPECT_EQ(value->scaled(), expected) << text;
  }
}

TEST(Decimal, ParseRefusesEverythingElse) {
  for (const char* text : {"",
                           " ",
                           "-",
                           "+",
                           ".",
                           "-.",
                           "1,5",
                           "1.2.3",
                           "1e5",
                           "1 2",
                           "- 1",
                           "--1",
                           "+-1",
                           "abc",
                           "1a",
                           "a1",
                           "1.5a",
                           "0x10",
                           "NaN",
                           "inf",
                           "1'000",
                           "1.000,00",
                           "\t1",
                           "1\n",
                           "\xC2\xA0"
                           "1"}) {
    EXPECT_FALSE(Decimal::parse(text).has_value()) << '"' << text << '"';
  }
}

TEST(Decimal, ParseRoundsTheFifthPlaceHalfAwayFromZero) {
  EXPECT_EQ(Decimal::parse("0.00004")->scaled(), 0);
  EXPECT_EQ(Decimal::parse("0.00005")->scaled(), 1);
  EXPECT_EQ(Decimal::parse("-0.00004")->scaled(), 0);
  EXPECT_EQ(Decimal::parse("-0.00005")->scaled(), -1);
  EXPECT_EQ(Decimal::parse("0.000049999999999999999999999")->scaled(), 0);
  EXPECT_EQ(Decimal::parse("1.99995")->scaled(), 20000);
  EXPECT_EQ(Decimal::parse("-1.99995")->scaled(), -20000);
}

TEST(Decimal, ParseRefusesWhatDoesNotFit) {
  EXPECT_FALSE(Decimal::parse("922337203685477.5808").has_value());
  EXPECT_FALSE(Decimal::parse("-922337203685477.5808").has_value());
  EXPECT_FALSE(Decimal::parse("922337203685477.58075").has_value());
  EXPECT_TRUE(Decimal::parse("922337203685477.58074").has_value());
  EXPECT_FALSE(Decimal::parse("922337203685478").has_value());
  EXPECT_FALSE(Decimal::parse("99999999999999999999").has_value());
  EXPECT_FALSE(Decimal::parse(std::string(1000, '9')).has_value());
}

TEST(Decimal, TextHasNoSuperfluousZerosAndNoExponent) {
  const std::vector<std::pair<std::int64_t, std::string>> table = {
      {0, "0"},
      {1, "0.0001"},
      {-1, "-0.0001"},
      {10, "0.001"},
      {10000, "1"},
      {15000, "1.5"},
      {100000, "10"},
      {1000000000000, "100000000"},
      {-12345000, "-1234.5"},
      {kMax, "922337203685477.5807"},
      {kMin, "-922337203685477.5808"},
  };
  for (const auto& [value, text] : table) EXPECT_EQ(scaled(value).toText(), text);
}

TEST(Decimal, TextReadsBackToTheSameAmount) {
  std::mt19937_64 random(20170305);
  for (int i = 0; i < 20000; ++i) {
    const auto value = static_cast<std::int64_t>(random()) >> (random() % 64);
    if (value == kMin) continue;
    const Decimal decimal = scaled(value);
    EXPECT_EQ(Decimal::parse(decimal.toText()), decimal);
    EXPECT_EQ(Decimal::parse(decimal.toFixed(4, '.')), decimal);
  }
}

TEST(Decimal, FixedPlaces) {
  struct Row {
    std::int64_t value;
    int places;
    std::string text;
  };
  const std::vector<Row> table = {
      {0, 2, "0,00"},
      {0, 0, "0"},
      {5, 2, "0,00"},
      {50, 2, "0,01"},
      {49, 2, "0,00"},
      {-50, 2, "-0,01"},
      {12345678, 0, "1235"},
      {12345678, 1, "1234,6"},
      {12345678, 2, "1234,57"},
      {12345678, 3, "1234,568"},
      {12345678, 4, "1234,5678"},
      {-12345678, 2, "-1234,57"},
      {99999, 2, "10,00"},
      {9950, 0, "1"},
      {5000, 0, "1"},
      {4999, 0, "0"},
      {10000, 2, "1,00"},
      {1000000000000, 2, "100000000,00"},
      {kMax, 4, "922337203685477,5807"},
      {kMax, 2, "922337203685477,58"},
      {kMin, 4, "-922337203685477,5808"},
      {kMin, 0, "-922337203685478"},
  };
  for (const Row& row : table) EXPECT_EQ(scaled(row.value).toFixed(row.places, ','), row.text);
}

TEST(Decimal, ANegativeAmountThatRoundsToZeroKeepsItsSign) {
  EXPECT_EQ(scaled(-1).toFixed(2, ','), "-0,00");
  EXPECT_EQ(scaled(-49).toFixed(2, ','), "-0,00");
  EXPECT_EQ(scaled(-4999).toFixed(0, ','), "-0");
}

TEST(Decimal, FixedIntoABufferWritesTheSame) {
  char buffer[24];
  for (const std::int64_t value : {std::int64_t{0}, std::int64_t{-49}, std::int64_t{12345678}, kMax, kMin}) {
    for (int places = 0; places <= 4; ++places) {
      const std::size_t length = scaled(value).toFixed(places, '.', buffer);
      EXPECT_EQ(std::string(buffer, length), scaled(value).toFixed(places, '.'));
    }
  }
}

TEST(Decimal, RoundsHalfAwayFromZero) {
  struct Row {
    std::int64_t value;
    int places;
    std::int64_t rounded;
  };
  const std::vector<Row> table = {
      {12345, 4, 12345},   {12345, 3, 12350},   {12344, 3, 12340}, {-12345, 3, -12350}, {12350, 2, 12400},
      {12349, 2, 12300},   {-12349, 2, -12300}, {15000, 0, 20000}, {25000, 0, 30000},   {-15000, 0, -20000},
      {-25000, 0, -30000}, {4999, 0, 0},        {-4999, 0, 0},     {5000, 0, 10000},    {-5000, 0, -10000},
      {500, 1, 1000},      {499, 1, 0},         {0, 0, 0},
  };
  for (const Row& row : table) {
    EXPECT_EQ(scaled(row.value).rounded(row.places).scaled(), row.rounded)
        << row.value << " at " << row.places;
  }
}

TEST(Decimal, RoundingIsSymmetric) {
  std::mt19937_64 random(7);
  for (int i = 0; i < 5000; ++i) {
    const auto value = static_cast<std::int64_t>(random() >> 8);
    for (int places = 0; places <= 4; ++places) {
      EXPECT_EQ(scaled(-value).rounded(places), -scaled(value).rounded(places));
      EXPECT_EQ(scaled(value).rounded(places).toFixed(places, ','), scaled(value).toFixed(places, ','));
    }
  }
}

TEST(Decimal, RoundingBeyondTheRangeOverflows) {
  EXPECT_EQ(errorOf([] { return scaled(kMax).rounded(0); }), 6);
  EXPECT_EQ(errorOf([] { return scaled(kMin).rounded(0); }), 6);
  EXPECT_EQ(scaled(kMax).rounded(4).scaled(), kMax);
  EXPECT_EQ(scaled(kMin).rounded(4).scaled(), kMin);
}

TEST(Decimal, FromIntegerHasLimits) {
  EXPECT_EQ(Decimal::fromInteger(-5).scaled(), -50000);
  EXPECT_EQ(Decimal::fromInteger(922337203685477).scaled(), 9223372036854770000);
  EXPECT_EQ(Decimal::fromInteger(-922337203685477).scaled(), -9223372036854770000);
  EXPECT_EQ(errorOf([] { return Decimal::fromInteger(922337203685478); }), 6);
  EXPECT_EQ(errorOf([] { return Decimal::fromInteger(-922337203685478); }), 6);
  EXPECT_EQ(errorOf([] { return Decimal::fromInteger(kMax); }), 6);
  EXPECT_EQ(errorOf([] { return Decimal::fromInteger(kMin); }), 6);
}

TEST(Decimal, FromDoubleTakesWhatWasMeant) {
  const std::vector<std::pair<double, std::int64_t>> table = {
      {0.0, 0},
      {-0.0, 0},
      {0.1 + 0.2, 3000},
      {1.00005, 10001},  // its binary fraction is below the half
      {-1.00005, -10001},
      {2.00005, 20001},
      {1.00004999, 10000},
      {0.00005, 1},
      {-0.00005, -1},
      {0.00004999, 0},
      {1234.56, 12345600},
      {1e-30, 0},
      {-1e-300, 0},
      {5e-324, 0},
      {123456789012.345, 1234567890123450},
      {99999999999999.0, 999999999999990000},
      {-99999999999999.0, -999999999999990000},
      {919999999999999.0, 9199999999999990000},
      {1e14, 1000000000000000000},
      {9999999999999.99 + 9999999999999.99, 199999999999999800},  // sixteen digits
      {123456789012345.6, 1234567890123456000},
  };
  for (const auto& [value, expected] : table)
    EXPECT_EQ(Decimal::fromDouble(value).scaled(), expected) << value;
}

TEST(Decimal, FromDoubleRefusesWhatIsNoAmount) {
  const double infinity = std::numeric_limits<double>::infinity();
  const double nothing = std::numeric_limits<double>::quiet_NaN();
  for (const double value : {infinity, -infinity, nothing, 1e15, -1e15, 1e300, 9.2e14, -9.2e14}) {
    EXPECT_EQ(errorOf([value] { return Decimal::fromDouble(value); }), 6) << value;
  }
}

TEST(Decimal, AmountsOfFifteenDigitsSurviveTheWayThroughDouble) {
  std::mt19937_64 random(15);
  for (int i = 0; i < 20000; ++i) {
    const auto value = static_cast<std::int64_t>(random() % 1'000'000'000'000'000);
    EXPECT_EQ(Decimal::fromDouble(scaled(value).toDouble()).scaled(), value);
    EXPECT_EQ(Decimal::fromDouble(scaled(-value).toDouble()).scaled(), -value);
  }
}

TEST(Decimal, SumsOfCentsInDoubleComeBackExact) {
  double sum = 0;
  for (int i = 0; i < 100'000; ++i) sum += 0.01;
  EXPECT_EQ(Decimal::fromDouble(sum).toText(), "1000");
}

TEST(Decimal, AddsAndSubtractsExactly) {
  EXPECT_EQ((scaled(1) + scaled(2)).scaled(), 3);
  EXPECT_EQ((scaled(1) - scaled(2)).scaled(), -1);
  EXPECT_EQ((-scaled(5)).scaled(), -5);
  EXPECT_EQ((scaled(kMax) - scaled(kMax)).scaled(), 0);
  EXPECT_EQ((scaled(kMin) - scaled(kMin)).scaled(), 0);
  EXPECT_EQ((scaled(-1) - scaled(kMin)).scaled(), kMax);
  EXPECT_EQ((scaled(kMax) + scaled(kMin)).scaled(), -1);
}

TEST(Decimal, ArithmeticBeyondTheRangeOverflows) {
  EXPECT_EQ(errorOf([] { return scaled(kMax) + scaled(1); }), 6);
  EXPECT_EQ(errorOf([] { return scaled(kMin) + scaled(-1); }), 6);
  EXPECT_EQ(errorOf([] { return scaled(kMin) - scaled(1); }), 6);
  EXPECT_EQ(errorOf([] { return scaled(kMax) - scaled(-1); }), 6);
  EXPECT_EQ(errorOf([] { return scaled(0) - scaled(kMin); }), 6);
  EXPECT_EQ(errorOf([] { return -scaled(kMin); }), 6);
  EXPECT_EQ(errorOf([] { return scaled(kMin).abs(); }), 6);
}

TEST(Decimal, AbsoluteValueAndOrder) {
  EXPECT_EQ(scaled(-7).abs(), scaled(7));
  EXPECT_EQ(scaled(7).abs(), scaled(7));
  EXPECT_TRUE(Decimal().isZero());
  EXPECT_FALSE(scaled(-1).isZero());
  EXPECT_LT(scaled(-1), scaled(0));
  EXPECT_GT(scaled(10001), Decimal::fromInteger(1));
  EXPECT_EQ(scaled(10000), Decimal::fromInteger(1));
}

}  // namespace
}  // namespace cu
