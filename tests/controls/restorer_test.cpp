// Restoring the content of a box from before the user typed.

#include <gtest/gtest.h>

#include "controls/controls_support.h"
#include "controls/datebox.h"
#include "controls/numericbox.h"

namespace cu::test {
namespace {

struct Restored : Stage {
  TextBox text{form, "txt", nullptr};
  AmountBox amount{form, "cur", nullptr};
  DateBox date{form, "dt", nullptr};
  Restored() { amount.setFormat(2, "€", ",", "."); }
};

TEST(Restorer, GivesATextBackAndRaisesTheChange) {
  Restored on;
  on.text.setText("Rossi");
  const Event restore = on.text.restorer();
  on.text.enter("Bianchi");
  int changes = 0;
  on.text.onChange = [&] { ++changes; };
  restore();
  EXPECT_EQ(on.text.text(), "Rossi");
  EXPECT_EQ(changes, 1);
  on.date.setText("05/03/2017");
  const Event day = on.date.restorer();
  on.date.enter("06");
  day();
  EXPECT_EQ(on.date.text(), "05/03/2017");
}

TEST(Restorer, GivesBackATextThatIsLongerThanItsBox) {
  Restored on;
  on.text.setMaxLength(4);
  on.text.setText("Rossini");
  const Event restore = on.text.restorer();
  on.text.enter("Bian");
  restore();
  EXPECT_EQ(on.text.text(), "Ross");
  EXPECT_EQ(on.text.stored(), "Rossini");
}

TEST(Restorer, GivesAnAmountBackWithThePlacesThatAreNotShown) {
  Restored on;
  on.amount.setNumber(Decimal::fromScaled(12'345'678));
  const Event restore = on.amount.restorer();
  on.amount.enter("7");
  restore();
  EXPECT_EQ(on.amount.number(), Decimal::fromScaled(12'345'678));
  EXPECT_EQ(on.amount.text(), "1.234,57");
}

TEST(Restorer, GivesAnEmptyAmountBackEmpty) {
  Restored on;
  const Event restore = on.amount.restorer();
  on.amount.enter("7");
  restore();
  EXPECT_EQ(on.amount.text(), "");
  EXPECT_TRUE(on.amount.number().isZero());
}

}  // namespace
}  // namespace cu::test
