#pragma once

#include <QColor>

namespace cu::reporting {

// The colours of all reports, distinguishable also on a monochrome printer.
inline const QColor kInk(0x1A, 0x24, 0x2C);
inline const QColor kAccent(0x1F, 0x4E, 0x6B);
inline const QColor kAlert(0x9C, 0x2B, 0x23);
inline const QColor kMuted(0x55, 0x65, 0x70);
inline const QColor kRule(0xB4, 0xC3, 0xCD);
inline const QColor kTint(0xEC, 0xF2, 0xF6);
inline const QColor kTag(0xDC, 0xE7, 0xEE);
inline const QColor kFaint(0xA3, 0xB0, 0xB9);
inline const QColor kPaper(0xFF, 0xFF, 0xFF);

}  // namespace cu::reporting
