#pragma once

#include <QString>
#include <cstdint>
#include <optional>

#include "host/database.h"
#include "reporting/canvas.h"
#include "reporting/definition.h"
#include "reporting/rows.h"

namespace cu::reporting {

// What a box of the form shows.
struct BoxValue {
  QString text;
  Align align = Align::Left;
  std::optional<Decimal> amount;  // where it is one that is not zero
};

// The year by which the form's layout is chosen: 2014 and 2015 have one of their own, every other year has
// the newest.
std::int32_t layoutYear(std::int32_t year);

// The boxes of the current row of the certificates.
class MainModuleValues {
 public:
  explicit MainModuleValues(const Rows& rows) : rows_(rows) {}
  BoxValue of(const FormBox& box) const;

 private:
  bool holds(BoxCondition condition) const;
  QString notSubjectCode(const FormBox& box) const;
  QString fundCode(const FormBox& box) const;
  QString phone(const FormBox& box) const;
  const Rows& rows_;
};

// The additional modules of a certificate, by ascending number of their rows.
Rows readModules(Connection& connection, const Rows& certificates);

// The boxes of the current row of the modules; those of the fund are the certificate's.
class FurtherModuleValues {
 public:
  FurtherModuleValues(const Rows& modules, const Rows& certificates)
      : modules_(modules), certificates_(certificates) {}
  BoxValue of(const FormBox& box) const;

 private:
  const Rows& modules_;
  const Rows& certificates_;
};

}  // namespace cu::reporting
