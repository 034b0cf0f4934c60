#include "reporting/form_values.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "modello/moduli.h"
#include "modello/regole.h"
#include "reporting/italian.h"

namespace cu::reporting {

using modello::Campo;
using modello::Condizione;
using modello::Forma;

namespace {

// The amounts of which at least one makes the block of contributions present.
std::vector<std::string_view> contributions() {
  std::vector<std::string_view> columns;
  for (const modello::Campo& campo : modello::kModello.campi) {
    if (campo.condizione == Condizione::BloccoC && genere(campo.forma) == modello::Genere::Importo) {
      columns.push_back(campo.colonna);
    }
  }
  return columns;
}

BoxValue amount(Decimal value) {
  if (value.isZero()) return {{}, Align::Right, {}};
  return {italianAmount(value), Align::Right, value};
}
BoxValue flag(bool value) { return {value ? QString("X") : QString(), Align::Center, {}}; }
BoxValue plain(const CellView& cell) { return {fromUtf8(cell.toText()).trimmed(), Align::Left, {}}; }

// The value of a box that requires at most one column.
BoxValue simple(Forma form, const CellView& cell) {
  switch (form) {
    case Forma::Maiuscolo:
      return {upperCase(plain(cell).text), Align::Left, {}};
    case Forma::Data:
      return {italianDate(cell.date()), Align::Left, {}};
    case Forma::Uno:
    case Forma::Flag:
      return flag(cell.flag());
    case Forma::Importo:
    case Forma::ImportoConSegno:
    case Forma::Somma:
      return amount(cell.decimal());
    case Forma::Testo:
    case Forma::Destra:
    case Forma::RifilatoADestra:
    case Forma::Intero:
    case Forma::DataFirma:
    case Forma::Telefono:
    case Forma::CodiceNonSoggetti:
    case Forma::CodicePressoEnte:
      break;
  }
  return plain(cell);
}

bool anyContribution(const Rows& rows) {
  static const std::vector<std::string_view> kColumns = contributions();
  return std::any_of(kColumns.begin(), kColumns.end(),
                     [&](std::string_view column) { return !rows.get(column).decimal().isZero(); });
}

}  // namespace

bool MainModuleValues::holds(Condizione condition) const {
  switch (condition) {
    case Condizione::Sempre:
      return true;
    case Condizione::PersonaFisica:
      return rows_.get("PersonaFisica").flag();
    case Condizione::NonResidente:
      return rows_.get("NonResidente").flag();
    case Condizione::Schumacker:
      return rows_.get("NonResidente").flag() && rows_.get("NonResidenteSchumacker").flag();
    case Condizione::AnnoDovuto:
      return rows_.get("Anticipazione").flag() || modello::chiedeAnno(rows_.get("Codice").text());
    case Condizione::CausaleN:
      return modello::haAddizionali(rows_.get("Codice").text());
    case Condizione::BloccoC:
      return anyContribution(rows_);
    case Condizione::NonNelFile:
      break;
  }
  return false;
}

// The code; where none was chosen and sums are not subject, the year's code for all other cases.
QString MainModuleValues::notSubjectCode(const Campo& campo) const {
  QString chosen = rows_.text(campo.colonna).trimmed();
  if (!chosen.isEmpty()) return chosen;
  if ((rows_.get(campo.altre[0]).decimal() + rows_.get(campo.altre[1]).decimal()).isZero()) return {};
  return fromUtf8(modello::codiceNonSoggetti(rows_.get(campo.altre[2]).integer(), form_));
}

// Empty where the company has no code at the fund, although the file then repeats the fund's name.
BoxValue MainModuleValues::fundCode(const Campo& campo) const {
  const std::size_t source = modello::fontePressoEnte(rows_.get(campo.colonna).integer());
  return source == 0 ? BoxValue{} : BoxValue{rows_.text(campo.altre.at(source)).trimmed(), Align::Left, {}};
}

QString MainModuleValues::phone(const Campo& campo) const {
  QString number;
  for (const std::string_view field : {campo.colonna, campo.altre[0]}) {
    number = rows_.text(field);
    number.removeIf([](QChar c) { return QString(" -/\\().+").contains(c); });
    const bool digits =
        std::all_of(number.begin(), number.end(), [](QChar c) { return c >= '0' && c <= '9'; });
    if (digits && !number.isEmpty()) break;
  }
  return number;
}

BoxValue MainModuleValues::of(const LaidBox& box) const {
  const Campo& campo = *box.main;
  if (!holds(campo.condizione)) return {};
  // Read only where the database has its table.
  if (campo.riscrittura == modello::Riscrittura::Propria && !rows_.has(campo.colonna)) return {};
  switch (campo.forma) {
    case Forma::Somma:
      return amount(rows_.get(campo.colonna).decimal() + rows_.get(campo.altre[0]).decimal());
    case Forma::Telefono:
      return {phone(campo), Align::Left, {}};
    case Forma::CodiceNonSoggetti:
      return {notSubjectCode(campo), Align::Left, {}};
    case Forma::CodicePressoEnte:
      return fundCode(campo);
    case Forma::Testo:
    case Forma::Maiuscolo:
    case Forma::Destra:
    case Forma::RifilatoADestra:
    case Forma::Intero:
    case Forma::Data:
    case Forma::DataFirma:
    case Forma::Uno:
    case Forma::Flag:
    case Forma::Importo:
    case Forma::ImportoConSegno:
      break;
  }
  return simple(campo.forma, rows_.get(campo.colonna));
}

BoxValue FileValues::of(const LaidBox& box) const {
  if (box.main == nullptr) return {};
  const modello::Codice code = modello::codice(*box.main);
  const std::string text = rows_.get({code.data(), code.size()}).toText();
  const Forma form = box.main->forma;
  if (text.empty()) return {};
  if (genere(form) == modello::Genere::Importo) {
    std::string number = text;
    std::replace(number.begin(), number.end(), ',', '.');
    const std::optional<Decimal> value = Decimal::parse(number);
    return value ? amount(*value) : BoxValue{fromUtf8(text), Align::Right, {}};
  }
  if (genere(form) == modello::Genere::Flag && text == "1") return flag(true);
  constexpr std::size_t kDay = 8;
  if (form == Forma::Data && text.size() == kDay) {
    const std::string italian = text.substr(0, 2) + "/" + text.substr(2, 2) + "/" + text.substr(4);
    if (Date::parseItalian(italian)) return {fromUtf8(italian), Align::Left, {}};
  }
  return {fromUtf8(text), Align::Left, {}};
}

bool hasModules(const Rows& certificates) {
  return certificates.get("Path1").integer() != kCommunicationAnnulment;
}

Rows readModules(Connection& connection, const Rows& certificates) {
  const auto part = [&](std::string_view column) {
    return modello::ParteChiave{column, certificates.get(column).integer()};
  };
  return Rows(connection, modello::fnSelectModuli({{part("IDAnagrafica"), part("IDCausalePagamento"),
                                                    part("Anno"), part("IDAzienda")}}) +
                              " ORDER BY ModuloXContoIndividuale.IDModuloXContoIndividuale");
}

BoxValue FurtherModuleValues::of(const LaidBox& box) const {
  if (box.main->condizione == Condizione::BloccoC) {
    if (!anyContribution(modules_)) return {};
    if (box.main->forma == Forma::CodicePressoEnte)
      return MainModuleValues(certificates_).fundCode(*box.main);
  }
  if (box.further == nullptr) return {};
  // The module does not have the fund's columns.
  const Rows& rows = modules_.has(box.further->colonna) ? modules_ : certificates_;
  return simple(box.further->forma, rows.get(box.further->colonna));
}

}  // namespace cu::reporting
