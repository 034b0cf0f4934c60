#pragma once

#include <QString>
#include <cstdint>
#include <optional>

#include "data/database.h"
#include "reporting/canvas.h"
#include "reporting/form_boxes.h"
#include "reporting/rows.h"

namespace cu::reporting {

// The displayed value of a box of the form.
struct BoxValue {
  QString text;
  Align align = Align::Left;
  std::optional<Decimal> amount;  // set where it is a non-zero amount
};

// The boxes of the current row of the certificates.
class MainModuleValues {
 public:
  explicit MainModuleValues(const Rows& rows, const modello::Modello& form = modello::kModello)
      : rows_(rows), form_(form) {}
  BoxValue of(const LaidBox& box) const;
  BoxValue fundCode(const modello::Campo& campo) const;

 private:
  bool holds(modello::Condizione condition) const;
  QString notSubjectCode(const modello::Campo& campo) const;
  QString phone(const modello::Campo& campo) const;
  const Rows& rows_;
  const modello::Modello& form_;
};

// The boxes of the current row of a file's cells, whose columns are the codes.
class FileValues {
 public:
  explicit FileValues(const Rows& rows) : rows_(rows) {}
  BoxValue of(const LaidBox& box) const;

 private:
  const Rows& rows_;
};

// The kind of a communication (Path1) that annuls a certificate: its form has no amounts.
inline constexpr std::int64_t kCommunicationAnnulment = 2;
// Whether the form of the current row has amounts, and may have further modules.
bool hasModules(const Rows& certificates);
// Reads the additional modules of a certificate, by ascending row number.
Rows readModules(Connection& connection, const Rows& certificates);

// The boxes of the current row of the modules; those of the fund are read from the certificate.
class FurtherModuleValues {
 public:
  FurtherModuleValues(const Rows& modules, const Rows& certificates)
      : modules_(modules), certificates_(certificates) {}
  BoxValue of(const LaidBox& box) const;

 private:
  const Rows& modules_;
  const Rows& certificates_;
};

}  // namespace cu::reporting
