#pragma once

#include <QByteArray>
#include <QRawFont>
#include <QString>

namespace cu::reporting {

// The font of all reports, reduced to what a print requires: regular and bold of DejaVu Sans, with the
// letters of Europe's alphabets, without data for screens. A PDF embeds the font each time, and its hinting
// programs, run for each glyph, would take half of the time of a short print.
//
// The family name registered with the toolkit. Raises Error (kErrorReportOutput) where DejaVu Sans is not
// installed: another font would break lines differently, or lack letters.
QString printFontFamily();

// The tables of a font required for a print, as a font file with another family name.
QByteArray printFontOf(const QRawFont& font, const QString& family);

}  // namespace cu::reporting
