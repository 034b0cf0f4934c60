#include "controls/datebox.h"

#include <gtest/gtest.h>

#include <vector>

#include "controls/controls_support.h"

namespace cu {
namespace {

using test::Stage;

TEST(DateBox, IsEmptyAndWorthZeroAtFirst) {
  Stage stage;
  const DateBox box(stage.form, "dtDataFirma", nullptr);
  EXPECT_EQ(box.text(), "");
  EXPECT_EQ(box.value(), 0);
}

TEST(DateBox, CountsTheDaysOfWhatAPersonTypes) {
  Stage stage;
  DateBox box(stage.form, "dtDataFirma", nullptr);
  std::vector<std::int32_t> values;
  box.onChange = [&] { values.push_back(box.value()); };
  box.enter("05/03/2017");
  EXPECT_EQ(box.value(), 42799);
  EXPECT_EQ(values.size(), 10U);
  EXPECT_EQ(values.back(), 42799);
  EXPECT_EQ(values[8], 0);
}

TEST(DateBox, ATextThatIsNoDateIsKeptAndWorthZero) {
  Stage stage;
  DateBox box(stage.form, "dtDataFirma", nullptr);
  for (const char* text : {"domani", "31/02/2017", "05/03/17", "2017-03-05"}) {
    box.enter(text);
    EXPECT_EQ(box.text(), text);
    EXPECT_EQ(box.value(), 0);
  }
}

TEST(DateBox, ADateTypedWithoutZerosTakesItsFullShapeWhenTheFocusGoes) {
  Stage stage;
  DateBox box(stage.form, "dtDataFirma", nullptr);
  box.enter("5/3/2017");
  EXPECT_EQ(box.text(), "5/3/2017");
  EXPECT_EQ(box.value(), 42799);
  int changes = 0;
  box.onChange = [&] { ++changes; };
  stage.form.setFocus(&box);
  stage.form.setFocus(nullptr);
  EXPECT_EQ(box.text(), "05/03/2017");
  EXPECT_EQ(box.value(), 42799);
  EXPECT_EQ(changes, 0);
}

TEST(DateBox, ATextThatIsNoDateKeepsItsShapeWhenTheFocusGoes) {
  Stage stage;
  DateBox box(stage.form, "dtDataFirma", nullptr);
  box.enter("31/2/2017");
  stage.form.setFocus(&box);
  stage.form.setFocus(nullptr);
  EXPECT_EQ(box.text(), "31/2/2017");
}

TEST(DateBox, BlanksBesideADateDoNotCount) {
  Stage stage;
  DateBox box(stage.form, "dtDataFirma", nullptr);
  box.enter(" 28/02/2017 ");
  EXPECT_EQ(box.text(), " 28/02/2017 ");
  EXPECT_EQ(box.entered(), "28/02/2017");
  EXPECT_EQ(box.value(), 42794);
  stage.form.setFocus(&box);
  stage.form.setFocus(nullptr);
  EXPECT_EQ(box.text(), "28/02/2017");
}

TEST(DateBox, WithoutADateNothingHasBeenEntered) {
  Stage stage;
  DateBox box(stage.form, "dtDataFirma", nullptr);
  EXPECT_EQ(box.entered(), "");
  for (const char* text : {"31/02/2026", "28.02.17", "   ", "28/02/ 2017"}) {
    box.enter(text);
    EXPECT_EQ(box.entered(), "") << text;
    EXPECT_FALSE(box.date()) << text;
  }
  box.enter("5/3/2017");
  EXPECT_EQ(box.entered(), "05/03/2017");
}

TEST(DateBox, DayZeroAndEarlierDaysAreNumbersToo) {
  Stage stage;
  DateBox box(stage.form, "dtDataImpegno", nullptr);
  box.setText("30/12/1899");
  EXPECT_EQ(box.value(), 0);
  box.setText("29/12/1899");
  EXPECT_EQ(box.value(), -1);
}

TEST(DateBox, IsSetToADayByCode) {
  Stage stage;
  DateBox box(stage.form, "dtDataFirma", nullptr);
  int changes = 0;
  box.onChange = [&] { ++changes; };
  box.setDate(Date::fromSerial(42799));
  box.setDate(Date::fromSerial(42799));
  EXPECT_EQ(box.text(), "05/03/2017");
  EXPECT_EQ(changes, 1);
}

}  // namespace
}  // namespace cu
