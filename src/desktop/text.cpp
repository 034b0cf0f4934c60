#include "desktop/text.h"

#include <QTextDocument>

namespace cu::desktop {

QString spoken(std::string_view caption) {
  const QString text = shown(caption);
  QString plain;
  plain.reserve(text.size());
  for (qsizetype at = 0; at < text.size(); ++at) {
    if (text[at] == u'&' && at + 1 < text.size()) ++at;
    plain += text[at];
  }
  return plain;
}

QString lines(std::string_view text) {
  return shown(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

QString sentenceTip(const QString& text) {
  return text.isEmpty() ? QString() : QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped());
}

QString dataTip(const QString& text) { return Qt::mightBeRichText(text) ? sentenceTip(text) : text; }

QString titled(std::string_view title) {
  return title.empty() ? QStringLiteral("Autocomposizione") : shown(title);
}

QString folded(const QString& text) {
  bool ascii = true;
  for (const QChar letter : text) ascii = ascii && letter.unicode() < 0x80;
  if (ascii) return text.toLower();
  QString plain;
  for (const QChar letter : text.normalized(QString::NormalizationForm_D)) {
    if (letter.category() != QChar::Mark_NonSpacing) plain += letter;
  }
  return plain.toCaseFolded();
}

}  // namespace cu::desktop
