#include <QString>

#include "tabelle/lettura.h"

namespace cu::tabelle {
namespace {

// A typed apostrophe in place of an accent, and the characters that a copied text has for it.
bool apostrofo(QChar c) {
  return c == '\'' || c == '`' || c == QChar(0x2019) || c == QChar(0x2018) || c == QChar(0xB4);
}

}  // namespace

std::string normalizza(std::string_view intestazione) {
  const QString testo = QString::fromUtf8(intestazione.data(), static_cast<qsizetype>(intestazione.size()));
  QString tenuto;
  for (const QChar c : testo) {
    if (!apostrofo(c)) tenuto += c;
  }
  QString esito;
  for (const QChar c : tenuto.normalized(QString::NormalizationForm_KD).toCaseFolded()) {
    const bool tolto = c.isSpace() || c.isMark() || c.category() == QChar::Other_Control ||
                       c.category() == QChar::Other_Format || c == '_' || c == '.';
    if (!tolto) esito += c;
  }
  return esito.toStdString();
}

}  // namespace cu::tabelle
