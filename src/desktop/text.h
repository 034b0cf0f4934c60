#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace cu::desktop {

inline QString shown(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string utf8(const QString& text) { return text.toStdString(); }

// A caption as it is read aloud: without the marks of mnemonics.
QString spoken(std::string_view caption);

// Of a box: its lines, for a widget.
QString lines(std::string_view text);

// A tooltip: data as they are, which the toolkit would take for a marked-up text where they look like one;
// and a sentence, whose lines wrap.
QString dataTip(const QString& text);
QString sentenceTip(const QString& text);

// A window without a title of its own bears the program's; the toolkit would take the name of its file.
QString titled(std::string_view title);

// Letters without case and accents, for finding what a person types.
QString folded(const QString& text);

}  // namespace cu::desktop
