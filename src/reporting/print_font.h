#pragma once

#include <QByteArray>
#include <QRawFont>
#include <QString>

namespace cu::reporting {

// The font of all reports, as a print needs it: regular and bold of DejaVu Sans, with the letters of Europe's
// alphabets, and without what is made for screens. A PDF embeds a font anew each time, and the programs that
// fit outlines to a screen's dots, run for each glyph, would take half of the time of a short print.
//
// The family under which the toolkit knows them. Error (kErrorReportOutput) where DejaVu Sans is not
// installed: another font would break lines elsewhere, or lack letters.
QString printFontFamily();

// The tables of a font that a print needs, as a font file of their own under another family's name.
QByteArray printFontOf(const QRawFont& font, const QString& family);

}  // namespace cu::reporting
