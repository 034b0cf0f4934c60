#include "base/thousands.h"

#include <gtest/gtest.h>

namespace cu {
namespace {

TEST(GroupThousands, PutsAPointBeforeEachThreeWholeDigits) {
  EXPECT_EQ(groupThousands("0"), "0");
  EXPECT_EQ(groupThousands("999"), "999");
  EXPECT_EQ(groupThousands("1000"), "1.000");
  EXPECT_EQ(groupThousands("-999,50"), "-999,50");
  EXPECT_EQ(groupThousands("-1000,00"), "-1.000,00");
  EXPECT_EQ(groupThousands("1234567,8901"), "1.234.567,8901");
  EXPECT_EQ(groupThousands(""), "");
}

}  // namespace
}  // namespace cu
