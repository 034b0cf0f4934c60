#include "base/date.h"

#include <gtest/gtest.h>

#include <limits>

namespace cu {
namespace {

Date day(int year, int month, int dayOfMonth) {
  const auto date = Date::fromYmd(year, month, dayOfMonth);
  EXPECT_TRUE(date.has_value()) << year << '-' << month << '-' << dayOfMonth;
  return date.value_or(Date());
}

TEST(Date, CountsDaysFromTheThirtiethOfDecember1899) {
  EXPECT_EQ(day(1899, 12, 30).serial(), 0);
  EXPECT_EQ(day(1899, 12, 31).serial(), 1);
  EXPECT_EQ(day(1900, 1, 1).serial(), 2);
  EXPECT_EQ(day(1899, 12, 29).serial(), -1);
  EXPECT_EQ(day(1900, 3, 1).serial(), 61);
  EXPECT_EQ(day(1970, 1, 1).serial(), 25569);
  EXPECT_EQ(day(2017, 3, 5).serial(), 42799);
  EXPECT_EQ(day(1, 1, 1).serial(), Date::kFirst);
  EXPECT_EQ(day(9999, 12, 31).serial(), Date::kLast);
}

TEST(Date, DayZeroIsADayLikeAnother) {
  EXPECT_EQ(Date(), Date::fromSerial(0));
  EXPECT_EQ(Date().toItalian(), "30/12/1899");
  EXPECT_EQ(Date().toIso(), "1899-12-30");
}

TEST(Date, WritesItsForms) {
  const Date date = day(2017, 3, 5);
  EXPECT_EQ(date.toItalian(), "05/03/2017");
  EXPECT_EQ(date.toIso(), "2017-03-05");
  EXPECT_EQ(date.toCompact(), "20170305");
  EXPECT_EQ(date.toDdmmyyyy(), "05032017");
  EXPECT_EQ(date.year(), 2017);
  EXPECT_EQ(date.month(), 3);
  EXPECT_EQ(date.day(), 5);
  EXPECT_EQ(day(33, 1, 2).toItalian(), "02/01/0033");
}

TEST(Date, KnowsLeapYears) {
  EXPECT_TRUE(Date::fromYmd(2016, 2, 29).has_value());
  EXPECT_TRUE(Date::fromYmd(2000, 2, 29).has_value());
  EXPECT_FALSE(Date::fromYmd(2017, 2, 29).has_value());
  EXPECT_FALSE(Date::fromYmd(1900, 2, 29).has_value());
  EXPECT_FALSE(Date::fromYmd(2100, 2, 29).has_value());
  EXPECT_EQ(day(2016, 3, 1).serial() - day(2016, 2, 28).serial(), 2);
}

TEST(Date, RefusesDaysThatDoNotExist) {
  EXPECT_FALSE(Date::fromYmd(2017, 0, 1).has_value());
  EXPECT_FALSE(Date::fromYmd(2017, 13, 1).has_value());
  EXPECT_FALSE(Date::fromYmd(2017, 1, 0).has_value());
  EXPECT_FALSE(Date::fromYmd(2017, 1, 32).has_value());
  EXPECT_FALSE(Date::fromYmd(2017, 4, 31).has_value());
  EXPECT_FALSE(Date::fromYmd(0, 1, 1).has_value());
  EXPECT_FALSE(Date::fromYmd(10000, 1, 1).has_value());
  EXPECT_FALSE(Date::fromYmd(-5, 1, 1).has_value());
  EXPECT_FALSE(Date::fromYmd(2017, -1, -1).has_value());
}

TEST(Date, EveryDayOfFourCenturiesComesBack) {
  for (std::int32_t serial = day(1800, 1, 1).serial(); serial <= day(2200, 1, 1).serial(); ++serial) {
    const Date date = Date::fromSerial(serial);
    ASSERT_EQ(Date::fromYmd(date.year(), date.month(), date.day()), date);
    ASSERT_EQ(Date::parseItalian(date.toItalian()), date);
    ASSERT_EQ(Date::parseIso(date.toIso()), date);
    ASSERT_EQ(Date::parseIso(date.toCompact()), date);
  }
}

TEST(Date, ReadsTheItalianForm) {
  EXPECT_EQ(Date::parseItalian("05/03/2017"), day(2017, 3, 5));
  EXPECT_EQ(Date::parseItalian("5/3/2017"), day(2017, 3, 5));
  EXPECT_EQ(Date::parseItalian("05/3/2017"), day(2017, 3, 5));
  EXPECT_EQ(Date::parseItalian("29/02/2016"), day(2016, 2, 29));
}

TEST(Date, RefusesBadItalianTexts) {
  for (const char* text : {"",
                           " ",
                           "/",
                           "//",
                           "///",
                           "05/03",
                           "05/03/",
                           "/03/2017",
                           "05//2017",
                           "05/03/17",
                           "05/03/02017",
                           "005/03/2017",
                           "05/003/2017",
                           "2017/03/05",
                           "05-03-2017",
                           "05.03.2017",
                           "05032017",
                           "aa/bb/cccc",
                           "05/03/20a7",
                           "05/03/2017 ",
                           " 05/03/2017",
                           "05/03/2017/",
                           "05/03/2017 10:30",
                           "+5/03/2017",
                           "-5/03/2017",
                           "29/02/2017",
                           "31/04/2017",
                           "00/01/2017",
                           "01/00/2017",
                           "01/13/2017",
                           "32/01/2017",
                           "01/01/0000",
                           "03/05/-201"}) {
    EXPECT_FALSE(Date::parseItalian(text).has_value()) << '"' << text << '"';
  }
}

TEST(Date, ReadsWhatDatabasesWrite) {
  for (const char* text : {"2017-03-05", "20170305", "2017-03-05 10:30:00", "2017-03-05T10:30:00",
                           "20170305 00:00", "2017-03-05 00:00:00.000"}) {
    EXPECT_EQ(Date::parseIso(text), day(2017, 3, 5)) << text;
  }
}

TEST(Date, RefusesBadIsoTexts) {
  for (const char* text :
       {"",           "2017",       "2017-03",    "2017-3-5",    "2017-03-5",  "17-03-05",
        "2017/03/05", "2017-02-29", "20170229",   "2017-03-05x", "201703051",  "2017030",
        "0000-01-01", "2017-13-01", "abcdefgh",   "abcd-ef-gh",  "-017-03-05", "05/03/2017",
        "2017-03/05", "2017-03-xx", "2017-xx-05", "201703xx"}) {
    EXPECT_FALSE(Date::parseIso(text).has_value()) << '"' << text << '"';
  }
}

TEST(Date, NumbersBeyondTheCalendarAreTheNearerEnd) {
  const Date low = Date::fromSerial(std::numeric_limits<std::int32_t>::min());
  const Date high = Date::fromSerial(std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(low.toItalian(), "01/01/0001");
  EXPECT_EQ(high.toItalian(), "31/12/9999");
  EXPECT_EQ(Date::fromSerial(Date::kLast + 1).toIso(), "9999-12-31");
}

TEST(Date, IsOrderedByDay) {
  EXPECT_LT(day(2016, 12, 31), day(2017, 1, 1));
  EXPECT_EQ(day(2017, 1, 1), day(2017, 1, 1));
}

TEST(TimeOfDay, WritesHoursAndMinutes) {
  EXPECT_EQ((TimeOfDay{10, 30, 59}).toHhmm(), "1030");
  EXPECT_EQ((TimeOfDay{0, 5, 0}).toHhmm(), "0005");
  EXPECT_EQ((TimeOfDay{23, 59, 59}).toHhmm(), "2359");
}

}  // namespace
}  // namespace cu
