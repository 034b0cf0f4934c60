#include "apps/strumenti/esportazione.h"

#include <QAbstractItemModel>

#include "base/error.h"
#include "suite/platform_file.h"
#include "tabelle/scrittura.h"

namespace cu::strumenti {
namespace {

tabelle::TabellaDaScrivere comeMostrata(const QAbstractItemModel& modello) {
  tabelle::TabellaDaScrivere tabella;
  tabella.foglio = "Certificazioni";
  for (int colonna = 0; colonna < modello.columnCount(); ++colonna) {
    tabella.colonne.push_back(modello.headerData(colonna, Qt::Horizontal).toString().toStdString());
  }
  for (int riga = 0; riga < modello.rowCount(); ++riga) {
    std::vector<Value>& celle = tabella.righe.emplace_back();
    for (int colonna = 0; colonna < modello.columnCount(); ++colonna) {
      celle.push_back(Value::ofText(modello.index(riga, colonna).data().toString().toStdString()));
    }
  }
  return tabella;
}

}  // namespace

QString scriviTabella(const QAbstractItemModel& modello, const QString& percorso) {
  const std::string file = percorso.toStdString();
  try {
    const bool cartella = percorso.endsWith(QStringLiteral(".xlsx"), Qt::CaseInsensitive);
    replaceFile(file,
                cartella ? tabelle::componiXlsx(comeMostrata(modello), {.file = file})
                         : tabelle::scriviCsv(comeMostrata(modello)),
                NewFile::OwnerOnly);
  } catch (const Error& errore) {
    return QStringLiteral("%1 non si può scrivere: %2")
        .arg(percorso, QString::fromStdString(errore.description()));
  }
  return {};
}

}  // namespace cu::strumenti
