#include "desktop/matches.h"

#include "desktop/text.h"

namespace cu::desktop {
namespace {

QString folded(QStringView letter) {
  if (letter[0].isSpace()) return QStringLiteral(" ");
  return desktop::folded(letter.toString());
}

}  // namespace

std::vector<Stretch> matches(const QString& text, const QString& wanted) {
  std::vector<Stretch> found;
  const QString searched = desktop::folded(wanted);
  if (searched.isEmpty()) return found;
  QString plain;
  std::vector<qsizetype> origins;  // of each letter of `plain`
  plain.reserve(text.size());
  origins.reserve(static_cast<std::size_t>(text.size()) + 1);
  for (qsizetype at = 0; at < text.size();) {
    const bool pair = text[at].isHighSurrogate() && at + 1 < text.size();
    const qsizetype width = pair ? 2 : 1;
    const QString letters = folded(QStringView(text).mid(at, width));
    for (const QChar letter : letters) {
      plain += letter;
      origins.push_back(at);
    }
    at += width;
  }
  origins.push_back(text.size());
  for (qsizetype at = plain.indexOf(searched); at >= 0; at = plain.indexOf(searched, at + searched.size())) {
    const qsizetype from = origins[static_cast<std::size_t>(at)];
    const qsizetype end = origins[static_cast<std::size_t>(at + searched.size())];
    found.push_back({from, end - from});
  }
  return found;
}

}  // namespace cu::desktop
