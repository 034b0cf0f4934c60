#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/decimal.h"
#include "controls/textbox.h"

namespace cu {

// A box for a number between two limits. While a person types, the text is what was typed and the value what
// it says so far; when the focus goes the text takes the number's shape. A character that makes no number, or
// one beyond the limits, is not let in; a pasted text that is none leaves the content as it is. A thousands
// mark with one or two digits behind it, in a text without a decimal mark, is the decimal mark: "14000.5". A
// number put in by code is kept whole, to its fourth place and beyond the limits, until a person types. An
// empty text is worth 0.
class NumericBox : public EditBox {
 public:
  using EditBox::EditBox;

  Decimal number() const { return number_; }
  void setNumber(Decimal number);  // raises the change event when the number differs
  Decimal min() const { return min_; }
  Decimal max() const { return max_; }
  void setLimits(Decimal min, Decimal max);

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
  // A text at its decimal mark, or at the thousands mark that serves as such.
  struct Split {
    std::string_view whole;
    std::string_view places;
    bool marked = false;   // there is one of the two
    bool byPoint = false;  // it is the thousands mark
  };
  Split split(std::string_view text) const;
  bool hasMarks(std::string_view whole) const;
  bool placed(std::string_view whole) const;  // its thousands marks are where they belong, or it has none
  bool wellFormed(std::string_view text) const;
  std::string shown(Decimal number) const;
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
