#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/decimal.h"
#include "controls/textbox.h"

namespace cu {

// A box for a number between two limits. While the user types, the box shows the text typed, and the value is
// what the text means so far; when the focus leaves, the number is formatted. A character that makes the text
// no number, or exceeds the limits, is rejected; a pasted text that is no number leaves the content
// unchanged. In a text without a decimal mark, a thousands mark followed by one or two digits is the decimal
// mark: "14000.5". A number set by code keeps its four decimals, also beyond the limits, until the user
// types. An empty text has the value 0.
class NumericBox : public EditBox {
 public:
  using EditBox::EditBox;

  Decimal number() const { return number_; }
  void setNumber(Decimal number);  // raises the change event when the number differs
  Decimal min() const { return min_; }
  Decimal max() const { return max_; }
  void setLimits(Decimal min, Decimal max);
  // A number in the format of the box, with further decimals where it has them.
  std::string inFull(Decimal number) const;
  // The text that the user types to enter the number; nullopt where the box takes fewer decimals.
  std::optional<std::string> typed(Decimal number) const;

  void leaving() override;
  Event restorer() override;

 protected:
  struct Shape {
    int decimals = 0;  // 0 to 4
    std::string decimalPoint = ",";
    std::string separator;  // between the thousands; empty for none
  };
  void setShape(Shape shape);
  const Shape& shape() const { return shape_; }

 private:
  bool admits(const std::string& before, char32_t character, const std::string& behind) const override;
  std::optional<std::string> pasted(std::string_view text) const override;
  bool leaves(const std::string& text) const override;
  void edited() override;
  // A text split at its decimal mark, or at the thousands mark that serves as such.
  struct Split {
    std::string_view whole;
    std::string_view places;
    bool marked = false;   // one of the two marks is present
    bool byPoint = false;  // the mark is the thousands mark
  };
  Split split(std::string_view text) const;
  bool hasMarks(std::string_view whole) const;
  bool placed(std::string_view whole) const;  // its thousands marks are placed correctly, or it has none
  bool wellFormed(std::string_view text) const;
  std::string shown(Decimal number) const { return shown(number, shape_.decimals); }
  std::string shown(Decimal number, int decimals) const;
  std::optional<Decimal> read(std::string_view text) const;
  bool allowed(Decimal number) const { return number >= min_ && number <= max_; }

  Shape shape_;
  Decimal number_;
  Decimal min_;
  Decimal max_ = Decimal::fromScaled(999'999'999'0000);
};

// A whole number.
class NumberBox : public NumericBox {
 public:
  using NumericBox::NumericBox;
  void accept(ControlVisitor& visitor) override { visitor.visit(*this); }
  std::int64_t value() const { return number().scaled() / 10000; }
  void setValue(std::int64_t value) { setNumber(Decimal::fromInteger(value)); }
};

// An amount of money, shown in the currency's format.
class AmountBox : public NumericBox {
 public:
  using NumericBox::NumericBox;
  void accept(ControlVisitor& visitor) override { visitor.visit(*this); }

  int CurrencyDecimalPlaces() const { return shape().decimals; }
  const std::string& CurrencySymbol() const { return symbol_; }
  const std::string& DecimalPoint() const { return shape().decimalPoint; }
  const std::string& Separator() const { return shape().separator; }
  void setFormat(int decimalPlaces, std::string symbol, std::string decimalPoint, std::string separator);

  double value() const { return number().toDouble(); }

 private:
  std::string symbol_;
};

}  // namespace cu
