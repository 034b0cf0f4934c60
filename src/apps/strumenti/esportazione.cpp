#include "apps/strumenti/esportazione.h"

#include <QAbstractItemModel>
#include <QSaveFile>
#include <QStringList>

namespace cu::strumenti {
namespace {

// A cell that a spreadsheet would take for a formula is written as a text.
QString cellaCsv(QString testo) {
  if (!testo.isEmpty() && QStringLiteral("=+@").contains(testo.front())) testo.prepend(u'\'');
  if (!testo.contains(u';') && !testo.contains(u'"') && !testo.contains(u'\n') && !testo.contains(u'\r')) {
    return testo;
  }
  return u'"' + testo.replace(QStringLiteral("\""), QStringLiteral("\"\"")) + u'"';
}

QByteArray rigaCsv(const QStringList& celle) {
  QStringList scritte;
  for (const QString& cella : celle) scritte += cellaCsv(cella);
  return (scritte.join(u';') + QStringLiteral("\r\n")).toUtf8();
}

}  // namespace

QString scriviCsv(const QAbstractItemModel& tabella, const QString& percorso) {
  QSaveFile file(percorso);
  const auto guasto = [&] {
    return QStringLiteral("%1 non si può scrivere: %2").arg(percorso, file.errorString());
  };
  if (!file.open(QIODevice::WriteOnly)) return guasto();
  file.write("\xEF\xBB\xBF");
  QStringList celle;
  for (int colonna = 0; colonna < tabella.columnCount(); ++colonna) {
    celle += tabella.headerData(colonna, Qt::Horizontal).toString();
  }
  file.write(rigaCsv(celle));
  for (int riga = 0; riga < tabella.rowCount(); ++riga) {
    celle.clear();
    for (int colonna = 0; colonna < tabella.columnCount(); ++colonna) {
      celle += tabella.index(riga, colonna).data().toString();
    }
    file.write(rigaCsv(celle));
  }
  return file.commit() ? QString() : guasto();
}

}  // namespace cu::strumenti
