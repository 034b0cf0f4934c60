#include "reporting/italian.h"

#include <QList>

#include <array>
#include <utility>

#include "base/thousands.h"

namespace cu::reporting {
namespace {

constexpr std::array<const char*, 12> kMonths = {"gennaio",   "febbraio", "marzo",    "aprile",
                                                 "maggio",    "giugno",   "luglio",   "agosto",
                                                 "settembre", "ottobre",  "novembre", "dicembre"};

}  // namespace

QString fromUtf8(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString italianAmount(Decimal amount) {
  std::string text = amount.toFixed(2, ',');
  if (text == "-0,00") text = "0,00";
  return fromUtf8(groupThousands(std::move(text)));
}

QString italianDate(Date date) { return date == Date() ? QString() : fromUtf8(date.toItalian()); }

QString writtenDate(Date date) {
  return QString::number(date.day()) + ' ' +
         QString::fromLatin1(kMonths[static_cast<std::size_t>(date.month() - 1)]) + ' ' +
         QString::number(date.year());
}

QString addressLine(const QString& street, const QString& cap, const QString& town, const QString& province,
                    const QString& country) {
  QString place = cap.trimmed();
  if (!place.isEmpty() && !town.trimmed().isEmpty()) place += ' ';
  place += town.trimmed();
  if (!province.trimmed().isEmpty()) place += " (" + province.trimmed() + ')';
  if (!country.trimmed().isEmpty() && country.compare("Italia", Qt::CaseInsensitive) != 0) {
    place += (place.isEmpty() ? "" : ", ") + country.trimmed();
  }
  if (street.trimmed().isEmpty()) return place;
  return place.isEmpty() ? street.trimmed() : street.trimmed() + " - " + place;
}

QString upperCase(const QString& text) {
  QString result;
  for (const char32_t c : text.toUcs4()) {
    const char32_t upper = QChar::toUpper(c);
    result += QString::fromUcs4(&upper, 1);
  }
  return result;
}

}  // namespace cu::reporting
