#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace cu::desktop {

inline QString shown(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string utf8(const QString& text) { return text.toStdString(); }

// A caption without mnemonic marks, for a screen reader.
QString spoken(std::string_view caption);

// The lines of a box, for a widget.
QString lines(std::string_view text);

// A tooltip: for data, escaped where the toolkit would take it for rich text; for a sentence, wrapped.
QString dataTip(const QString& text);
QString sentenceTip(const QString& text);

// A window without a title has the program's; the toolkit would use the name of its file.
QString titled(std::string_view title);

// Letters without case and accents, for searching.
QString folded(const QString& text);

}  // namespace cu::desktop
