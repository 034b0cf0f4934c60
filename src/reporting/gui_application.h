#pragma once

#include <QString>

namespace cu::reporting {

// Fonts and painting need the toolkit's application object. Where a program has none yet, one is made that
// needs no screen; it stays until the process ends. To be called on the thread that prints.
void ensureGuiApplication();

// The family in which all reports are set. Error (kErrorReportOutput) where it is not installed: another one
// would break lines elsewhere, or lack letters.
QString reportFontFamily();

}  // namespace cu::reporting
