#include "base/value.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "base/error.h"

namespace cu {
namespace {

constexpr std::int64_t kMaxInteger = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMinInteger = std::numeric_limits<std::int64_t>::min();

CellView text(std::string_view content) { return CellView::ofText(content); }
CellView amount(std::string_view content) { return CellView::ofDecimal(Decimal::parse(content).value()); }
CellView dayCell(int year, int month, int dayOfMonth) {
  return CellView::ofDate(Date::fromYmd(year, month, dayOfMonth).value());
}

TEST(CellView, IsNullByItself) {
  const CellView cell{};
  EXPECT_TRUE(cell.isNull());
  EXPECT_EQ(cell.type(), ValueType::Null);
  EXPECT_EQ(cell.integer(), 0);
  EXPECT_EQ(cell.decimal(), Decimal());
  EXPECT_EQ(cell.date(), Date());
  EXPECT_FALSE(cell.flag());
  EXPECT_EQ(cell.text(), "");
  EXPECT_EQ(cell.toText(), "");
}

TEST(CellView, AnIntegerInEveryShape) {
  const CellView cell = CellView::ofInteger(-12);
  EXPECT_FALSE(cell.isNull());
  EXPECT_EQ(cell.integer(), -12);
  EXPECT_EQ(cell.decimal().toText(), "-12");
  EXPECT_EQ(cell.toText(), "-12");
  EXPECT_EQ(cell.text(), "");
  EXPECT_TRUE(cell.flag());
  EXPECT_FALSE(CellView::ofInteger(0).flag());
  EXPECT_EQ(CellView::ofInteger(42799).date(), Date::fromYmd(2017, 3, 5));
}

TEST(CellView, AnAmountInEveryShape) {
  EXPECT_EQ(amount("12.5").integer(), 13);
  EXPECT_EQ(amount("-12.5").integer(), -13);
  EXPECT_EQ(amount("12.4999").integer(), 12);
  EXPECT_EQ(amount("12.5").toText(), "12.5");
  EXPECT_EQ(amount("0").toText(), "0");
  EXPECT_EQ(amount("12.5").text(), "");
  EXPECT_TRUE(amount("1").flag());
  EXPECT_FALSE(amount("0").flag());
  EXPECT_EQ(amount("42799").date(), Date::fromYmd(2017, 3, 5));
}

TEST(CellView, ATextInEveryShape) {
  EXPECT_EQ(text("2016").integer(), 2016);
  EXPECT_EQ(text("12a").integer(), 12);
  EXPECT_EQ(text("abc").integer(), 0);
  EXPECT_EQ(text("-1").flag(), true);
  EXPECT_EQ(text("0").flag(), false);
  EXPECT_EQ(text("1234.5678").decimal().toText(), "1234.5678");
  EXPECT_EQ(text("12,5").decimal().toText(), "12");
  EXPECT_EQ(text("").decimal(), Decimal());
  EXPECT_EQ(text("05/03/2017").date(), Date::fromYmd(2017, 3, 5));
  EXPECT_EQ(text("2017-03-05 00:00:00").date(), Date::fromYmd(2017, 3, 5));
  EXPECT_EQ(text("domani").date(), Date());
  EXPECT_EQ(text("  due ").text(), "  due ");
  EXPECT_EQ(text("  due ").toText(), "  due ");
}

TEST(CellView, ADateInEveryShape) {
  EXPECT_EQ(dayCell(2017, 3, 5).date(), Date::fromYmd(2017, 3, 5));
  EXPECT_EQ(dayCell(2017, 3, 5).integer(), 42799);
  EXPECT_EQ(dayCell(2017, 3, 5).decimal().toText(), "42799");
  EXPECT_EQ(dayCell(2017, 3, 5).toText(), "05/03/2017");
  EXPECT_EQ(dayCell(1899, 12, 30).toText(), "30/12/1899");
}

TEST(CellView, TrueIsMinusOneAndAnyNumberButZeroIsTrue) {
  EXPECT_EQ(Value::ofFlag(true).view().integer(), -1);
  EXPECT_EQ(Value::ofFlag(true).view().toText(), "-1");
  EXPECT_EQ(Value::ofFlag(false).view().integer(), 0);
  EXPECT_TRUE(CellView::ofInteger(1).flag());
  EXPECT_TRUE(CellView::ofInteger(-1).flag());
  EXPECT_TRUE(CellView::ofInteger(7).flag());
}

TEST(CellView, ANumberThatIsNoDayIsNone) {
  EXPECT_EQ(CellView::ofInteger(kMaxInteger).date(), Date());
  EXPECT_EQ(CellView::ofInteger(kMinInteger).date(), Date());
  EXPECT_EQ(CellView::ofInteger(Date::kLast + 1).date(), Date());
  EXPECT_EQ(CellView::ofInteger(Date::kFirst).date().toIso(), "0001-01-01");
  EXPECT_EQ(CellView::ofDecimal(Decimal::fromScaled(kMaxInteger)).date(), Date());
}

TEST(CellView, AnAmountBeyondTheRangeIsAnOverflow) {
  const auto numberOf = [](const CellView& cell) {
    try {
      (void)cell.decimal();
    } catch (const Error& error) {
      return error.number();
    }
    return 0;
  };
  EXPECT_EQ(numberOf(CellView::ofInteger(kMaxInteger)), 6);
  EXPECT_EQ(numberOf(text("12345678901234567 e altro")), 6);
  EXPECT_EQ(numberOf(text("922337203685477.5807")), 0);
}

TEST(CellView, ATextKeepsNulBytesAndLength) {
  const std::string bytes("a\0b", 3);
  EXPECT_EQ(text(bytes).text().size(), 3U);
  EXPECT_EQ(text(bytes).toText(), bytes);
}

TEST(Value, OwnsWhatTheViewShowed) {
  Value value;
  {
    const std::string passing = "un testo più lungo di ogni piccola memoria";
    value = Value::of(text(passing));
  }
  EXPECT_EQ(value.type(), ValueType::Text);
  EXPECT_EQ(value.view().text(), "un testo più lungo di ogni piccola memoria");
}

TEST(Value, EveryTypeGoesThroughAView) {
  const Value values[] = {Value(),
                          Value::ofInteger(kMinInteger),
                          Value::ofDecimal(Decimal::fromScaled(-1)),
                          Value::ofText(""),
                          Value::ofText("è"),
                          Value::ofDate(Date::fromSerial(-5))};
  const ValueType types[] = {ValueType::Null, ValueType::Integer, ValueType::Decimal,
                             ValueType::Text, ValueType::Text,    ValueType::Date};
  for (std::size_t i = 0; i < std::size(values); ++i) {
    EXPECT_EQ(values[i].type(), types[i]);
    EXPECT_EQ(values[i].view().type(), types[i]);
    EXPECT_EQ(Value::of(values[i].view()), values[i]);
  }
}

TEST(Value, IsEqualByTypeAndContent) {
  EXPECT_EQ(Value(), Value());
  EXPECT_EQ(Value::ofText("a"), Value::ofText("a"));
  EXPECT_NE(Value::ofText("a"), Value::ofText("A"));
  EXPECT_NE(Value(), Value::ofText(""));
  EXPECT_NE(Value(), Value::ofInteger(0));
  EXPECT_NE(Value::ofInteger(1), Value::ofDecimal(Decimal::fromInteger(1)));
}

}  // namespace
}  // namespace cu
