#pragma once

#include <QString>
#include <vector>

namespace cu::desktop {

struct Stretch {
  qsizetype from = 0;
  qsizetype length = 0;
};

// Where a text contains another one, from left to right and without overlaps; case and accents are ignored,
// and each kind of white space equals a blank. None for an empty text.
std::vector<Stretch> matches(const QString& text, const QString& wanted);

}  // namespace cu::desktop
