#include "desktop/grid_export.h"

#include <QFile>
#include <filesystem>

#include "base/error.h"
#include "controls/form.h"
#include "desktop/grid_view.h"
#include "desktop/text.h"

namespace cu::desktop {
namespace {

[[noreturn]] void cannotWrite(const QString& path, const QString& why) {
  throw Error(kErrorPathAccess, utf8(QStringLiteral("%1 non si può scrivere: %2").arg(path, why)));
}

// Of a file that gets its name afterwards, and that its owner alone can read; `named` is what the user knows.
void writeText(const QString& path, const std::string& content, const QString& named) {
  QFile::remove(path);
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly, QFile::ReadOwner | QFile::WriteOwner) ||
      file.write(content.data(), static_cast<qint64>(content.size())) !=
          static_cast<qint64>(content.size()) ||
      !file.flush()) {
    cannotWrite(named, file.errorString());
  }
}

}  // namespace

QString headingText(const GridModel& model, int column) {
  const QString caption = shown(model.column(column).caption);
  return model.isFlag(column) && countOnly(caption) ? QStringLiteral("Scelta") : caption;
}

tabelle::TabellaDaScrivere tableAsSeen(GridView& view) {
  const GridModel& model = view.model();
  const QList<int> columns = view.columnsSeen();
  tabelle::TabellaDaScrivere table;
  table.foglio = "Righe";
  for (const int column : columns) table.colonne.push_back(utf8(headingText(model, column)));
  for (int row = 0; row < model.rowCount(); ++row) {
    std::vector<Value>& cells = table.righe.emplace_back();
    for (const int column : columns) cells.push_back(model.value(row, column));
  }
  return table;
}

void writeTable(const tabelle::TabellaDaScrivere& table, const QString& path) {
  const QString unfinished = path + QStringLiteral(".parziale");
  try {
    const bool workbook = path.endsWith(QStringLiteral(".xlsx"), Qt::CaseInsensitive);
    writeText(unfinished,
              workbook ? tabelle::componiXlsx(table, {.file = utf8(path)}) : tabelle::scriviCsv(table), path);
    if (QFile::exists(path)) QFile::setPermissions(unfinished, QFile::permissions(path));
    std::error_code failed;
    std::filesystem::rename(utf8(unfinished), utf8(path), failed);
    if (failed) cannotWrite(path, QString::fromStdString(failed.message()));
  } catch (const Error&) {
    QFile::remove(unfinished);
    throw;
  }
}

}  // namespace cu::desktop
