#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/value.h"

namespace cu {

// The conversions of the suite's application-wide object: null-safe values, literals, folders.
class Conversioni {
 public:
  virtual ~Conversioni() = default;

  virtual std::string toText(const CellView& value) const = 0;
  virtual double toDouble(const CellView& value) const = 0;
  virtual std::int32_t toLong(const CellView& value) const = 0;
  virtual std::int32_t toLong(std::string_view text) const = 0;  // 0 for a text that is not a number

  // Literals of a statement. A null text is NULL, an empty one ''; quotes are doubled. A number has a decimal
  // point, no exponent and no superfluous zeros; a null number is NULL. An id of 0 or null is NULL. A flag is
  // 1 or 0; a null flag is NULL. A date text is 'YYYYMMDD', NULL when it is empty or no date.
  virtual std::string literal(const CellView& text) const = 0;
  virtual std::string literal(std::string_view text) const = 0;
  virtual std::string literalNumber(const CellView& number) const = 0;
  virtual std::string literalId(const CellView& id) const = 0;
  virtual std::string literalFlag(const CellView& flag) const = 0;
  virtual std::string literalDate(std::string_view italianDate) const = 0;
  // The absolute value of a field as text; NULL for a null.
  virtual std::string absolute(const CellView& number) const = 0;

  virtual std::string defaultFolder() const = 0;    // for the CU file
  virtual std::string documentsFolder() const = 0;  // default documents folder

  // Adapts a statement to the database before it is sent.
  virtual std::string fnAnsi2jet(std::string statement) const = 0;
};

}  // namespace cu
