#include <QString>

#include "tabelle/lettura.h"

namespace cu::tabelle {
namespace {

// A typed apostrophe in place of an accent, and the characters that a copied text has for it.
bool apostrofo(QChar c) {
  return c == '\'' || c == '`' || c == QChar(0x2019) || c == QChar(0x2018) || c == QChar(0xB4);
}

QString ridotto(const QString& testo) {
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
  return esito;
}

}  // namespace

std::string normalizza(std::string_view intestazione) {
  // What a decomposition or a folding brings forth may be reduced further: a wide apostrophe becomes a plain
  // one.
  constexpr int kVolte = 8;
  QString testo = QString::fromUtf8(intestazione.data(), static_cast<qsizetype>(intestazione.size()));
  for (int volta = 0; volta < kVolte; ++volta) {
    const QString esito = ridotto(testo);
    if (esito == testo) break;
    testo = esito;
  }
  return testo.toStdString();
}

}  // namespace cu::tabelle
