#include "reporting/form_values.h"

#include <algorithm>
#include <array>

#include "host/text.h"
#include "reporting/italian.h"

namespace cu::reporting {
namespace {

constexpr std::array<const char*, 5> kContributions = {
    "ContributiCaricoAzienda", "ContributiCaricoPercipiente", "ImportoAltriContributi", "ContributiDovuti",
    "ContributiVersati"};
constexpr std::int64_t kEnpam = 1;
constexpr std::int64_t kEnpapi = 2;

BoxValue amount(Decimal value) {
  if (value.isZero()) return {{}, Align::Right, {}};
  return {italianAmount(value), Align::Right, value};
}
BoxValue flag(bool value) { return {value ? QString("X") : QString(), Align::Center, {}}; }
BoxValue plain(const CellView& cell) { return {fromUtf8(cell.toText()).trimmed(), Align::Left, {}}; }

// Of the columns of one row, with the kinds that need no more than one field.
BoxValue simple(BoxKind kind, const CellView& cell) {
  switch (kind) {
    case BoxKind::Upper:
      return {upperCase(plain(cell).text), Align::Left, {}};
    case BoxKind::Date:
      return {italianDate(cell.date()), Align::Left, {}};
    case BoxKind::Flag:
      return flag(cell.flag());
    case BoxKind::Amount:
    case BoxKind::Sum:
      return amount(cell.decimal());
    case BoxKind::Text:
    case BoxKind::Integer:
    case BoxKind::Phone:
    case BoxKind::NotSubjectCode:
    case BoxKind::FundCode:
      return plain(cell);
  }
  return {};
}

bool anyContribution(const Rows& rows) {
  return std::any_of(kContributions.begin(), kContributions.end(),
                     [&](const char* column) { return !rows.get(column).decimal().isZero(); });
}

}  // namespace

std::int32_t layoutYear(std::int32_t year) {
  constexpr std::int32_t kFirst = 2014;
  constexpr std::int32_t kNewest = 2017;
  return year < kFirst || year > kNewest ? kNewest : year;
}

bool MainModuleValues::holds(BoxCondition condition) const {
  switch (condition) {
    case BoxCondition::Always:
      return true;
    case BoxCondition::Person:
      return rows_.get("PersonaFisica").flag();
    case BoxCondition::NonResident:
      return rows_.get("NonResidente").flag();
    case BoxCondition::Schumacker:
      return rows_.get("NonResidente").flag() && rows_.get("NonResidenteSchumacker").flag();
    case BoxCondition::YearDue: {
      const std::string_view reason = rows_.get("Codice").text();
      return rows_.get("Anticipazione").flag() || reason == "G" || reason == "H" || reason == "I";
    }
    case BoxCondition::ReasonN:
      return rows_.get("Codice").text() == "N";
    case BoxCondition::Contributions:
      return anyContribution(rows_);
  }
  return false;
}

// The code, or where sums are not subject and none was chosen the one that the year had for all other cases.
QString MainModuleValues::notSubjectCode(const FormBox& box) const {
  QString chosen = rows_.text(box.fields[0]).trimmed();
  if (!chosen.isEmpty()) return chosen;
  if ((rows_.get(box.fields[1]).decimal() + rows_.get(box.fields[2]).decimal()).isZero()) return {};
  const std::int64_t year = rows_.get(box.fields[3]).integer();
  if (year < 2016) return "3";
  return year == 2016 ? "6" : "7";
}

QString MainModuleValues::fundCode(const FormBox& box) const {
  const std::int64_t fund = rows_.get(box.fields[0]).integer();
  if (fund == kEnpam) return rows_.text(box.fields[1]);
  if (fund == kEnpapi) return rows_.text(box.fields[2]);
  return {};
}

QString MainModuleValues::phone(const FormBox& box) const {
  QString number;
  for (const std::string& field : box.fields) {
    number = rows_.text(field);
    number.removeIf([](QChar c) { return QString(" -/\\().+").contains(c); });
    const bool digits =
        std::all_of(number.begin(), number.end(), [](QChar c) { return c >= '0' && c <= '9'; });
    if (digits && !number.isEmpty()) break;
  }
  return number;
}

BoxValue MainModuleValues::of(const FormBox& box) const {
  if (!holds(box.condition)) return {};
  switch (box.kind) {
    case BoxKind::Sum:
      return amount(rows_.get(box.fields[0]).decimal() + rows_.get(box.fields[1]).decimal());
    case BoxKind::Phone:
      return {phone(box), Align::Left, {}};
    case BoxKind::NotSubjectCode:
      return {notSubjectCode(box), Align::Left, {}};
    case BoxKind::FundCode:
      return {fundCode(box).trimmed(), Align::Left, {}};
    case BoxKind::Text:
    case BoxKind::Upper:
    case BoxKind::Integer:
    case BoxKind::Date:
    case BoxKind::Flag:
    case BoxKind::Amount:
      return simple(box.kind, rows_.get(box.fields[0]));
  }
  return {};
}

Rows readModules(Connection& connection, const Rows& certificates) {
  const auto id = [&](const char* column) { return fromInteger(certificates.get(column).integer()); };
  return Rows(
      connection,
      "SELECT ModuloXContoIndividuale.*, CodicePerNonSoggetti.Codice AS CodicePerNonSoggetti"
      " FROM ModuloXContoIndividuale LEFT JOIN CodicePerNonSoggetti"
      " ON ModuloXContoIndividuale.IDCodicePerNonSoggetti = CodicePerNonSoggetti.IDCodicePerNonSoggetti"
      " WHERE ModuloXContoIndividuale.IDAnagrafica = " +
          id("IDAnagrafica") + " AND ModuloXContoIndividuale.IDCausalePagamento = " +
          id("IDCausalePagamento") + " AND ModuloXContoIndividuale.Anno = " + id("Anno") +
          " AND ModuloXContoIndividuale.IDAzienda = " + id("IDAzienda") +
          " ORDER BY ModuloXContoIndividuale.IDModuloXContoIndividuale");
}

BoxValue FurtherModuleValues::of(const FormBox& box) const {
  if (box.condition == BoxCondition::Contributions) {
    if (!anyContribution(modules_)) return {};
    if (box.kind == BoxKind::FundCode)
      return MainModuleValues(certificates_)
          .of({box.number, box.caption, box.kind, BoxCondition::Always, box.fields, {}, {}, box.width});
  }
  if (box.moduleField.empty()) return {};
  // The fund's columns are not the module's own.
  const Rows& rows = modules_.has(box.moduleField) ? modules_ : certificates_;
  return simple(box.kind, rows.get(box.moduleField));
}

}  // namespace cu::reporting
