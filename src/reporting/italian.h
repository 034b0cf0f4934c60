#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "base/date.h"
#include "base/decimal.h"

namespace cu::reporting {

QString fromUtf8(std::string_view text);

// "1.234,56": two decimals, rounded half away from zero.
QString italianAmount(Decimal amount);
// "31/12/2017"; "" for day 0.
QString italianDate(Date date);
// "31 dicembre 2017".
QString writtenDate(Date date);

// "Via dei Mulini 18 - 37121 Verona (VR)": empty parts are omitted, with their marks.
QString addressLine(const QString& street, const QString& cap, const QString& town, const QString& province,
                    const QString& country);

// Converts letter by letter, as the telematic file does: a letter whose upper case would be two letters is
// unchanged.
QString upperCase(const QString& text);

}  // namespace cu::reporting
