#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace cu {

// An exact amount with four decimal places, stored as a 64-bit integer of ten-thousandths. The range is about
// +-922,337,203,685,477; arithmetic beyond it raises Error 6 (overflow).
class Decimal {
 public:
  constexpr Decimal() = default;
  static constexpr Decimal fromScaled(std::int64_t tenThousandths) {
    Decimal d;
    d.scaled_ = tenThousandths;
    return d;
  }
  static Decimal fromInteger(std::int64_t units);
  // Rounds to four places, half away from zero; NaN or a value out of range raises Error 6.
  static Decimal fromDouble(double value);
  // "-1234.5678"; more than four decimals are rounded half away from zero. Only blanks are allowed around it.
  static std::optional<Decimal> parse(std::string_view text);

  constexpr std::int64_t scaled() const { return scaled_; }
  double toDouble() const { return static_cast<double>(scaled_) / 10000.0; }
  bool isZero() const { return scaled_ == 0; }
  Decimal abs() const;

  // Rounds half away from zero; places 0 to 4.
  Decimal rounded(int places) const;
  // Decimal point, no exponent, no superfluous zeros: "1234.5", "-0.0001", "0".
  std::string toText() const;
  // Exactly `places` decimals (0 to 4), rounded half away from zero, no thousands mark; a negative value that
  // rounds to zero keeps its sign ("-0,00").
  std::string toFixed(int places, char decimalMark) const;
  // Writes the same text into a buffer of at least 24 bytes; returns the length.
  std::size_t toFixed(int places, char decimalMark, char* buffer) const;

  friend Decimal operator+(Decimal a, Decimal b);
  friend Decimal operator-(Decimal a, Decimal b);
  friend Decimal operator-(Decimal a);
  friend constexpr auto operator<=>(Decimal a, Decimal b) = default;  // NOLINT(modernize-use-nullptr)

 private:
  std::int64_t scaled_ = 0;
};

}  // namespace cu
