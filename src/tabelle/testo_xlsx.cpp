#include "tabelle/testo_xlsx.h"

#include <QString>

namespace cu::tabelle {

std::string senzaSequenze(const std::string& utf8) {
  constexpr qsizetype kLunghezza = 7;
  if (utf8.find("_x") == std::string::npos) return utf8;
  const QString scritto = QString::fromStdString(utf8);
  QString testo;
  for (qsizetype i = 0; i < scritto.size(); ++i) {
    const QStringView tratto = QStringView(scritto).mid(i, kLunghezza);
    bool cifre =
        tratto.size() == kLunghezza && tratto.startsWith(QLatin1String("_x")) && tratto.endsWith('_');
    for (qsizetype j = 2; cifre && j < 6; ++j) {
      const char16_t c = tratto[j].unicode();
      cifre = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
    }
    if (cifre) {
      testo += QChar(tratto.mid(2, 4).toUShort(nullptr, 16));
      i += kLunghezza - 1;
    } else {
      testo += scritto[i];
    }
  }
  return testo.toStdString();
}

std::string leggiTestoXlsx(LettoreXml& xml, QLatin1String elemento) {
  std::string testo;
  bool dentro = false;
  while (xml.avanza() && !xml.fine(elemento)) {
    if (xml.inizio(QLatin1String("rPh"))) {
      xml.salta();
    } else if (xml.inizio(QLatin1String("t"))) {
      dentro = true;
    } else if (xml.fine(QLatin1String("t"))) {
      dentro = false;
    } else if (dentro && xml.testo()) {
      aggiungiUtf8(testo, xml.caratteri());
    }
  }
  return senzaSequenze(testo);
}

}  // namespace cu::tabelle
