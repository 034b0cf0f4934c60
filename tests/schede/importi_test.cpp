// Amounts of payments: percentages, and how they are shown.

#include "schede/importi.h"

#include <gtest/gtest.h>

namespace cu::schede {
namespace {

Decimal cent(std::int64_t centesimi) { return Decimal::fromScaled(centesimi * 100); }

TEST(Percento, RoundsHalfAwayFromZeroToCents) {
  const auto di = [](const char* importo, const char* percentuale) {
    return percento(*Decimal::parse(importo), *Decimal::parse(percentuale)).toText();
  };
  EXPECT_EQ(di("0.25", "10"), "0.03");
  EXPECT_EQ(di("-0.25", "10"), "-0.03");
  EXPECT_EQ(di("0.24", "10"), "0.02");
  EXPECT_EQ(di("99999999999.99", "100"), "99999999999.99");
  EXPECT_EQ(di("99999999999.99", "33.3333"), "33333300000");
  EXPECT_EQ(percento(cent(6249'99), 50), cent(3125'00));
  EXPECT_EQ(percento(cent(-6249'99), 50), cent(-3125'00));
}

TEST(Euro, ShowsThousandsAndCents) {
  EXPECT_EQ(euro(cent(1234567'80)), "1.234.567,80");
  EXPECT_EQ(euro(cent(-1234'50)), "-1.234,50");
  EXPECT_EQ(euro(cent(123'00)), "123,00");
}

}  // namespace
}  // namespace cu::schede
