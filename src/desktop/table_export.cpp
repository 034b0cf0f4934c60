#include "desktop/table_export.h"

#include <QAbstractItemModel>
#include <QRegularExpression>

#include "desktop/text.h"

namespace cu::desktop {

Value numberShown(const QString& text) {
  static const QRegularExpression kNumber(
      QStringLiteral("^-?(?:\\d{1,3}(?:\\.\\d{3})*|\\d{1,12})(,\\d{1,4})?$"));
  const QRegularExpressionMatch match = kNumber.match(text);
  if (!match.hasMatch()) return Value::ofText(utf8(text));
  QString digits = text;
  digits.remove(u'.').replace(u',', u'.');
  if (match.captured(1).isEmpty()) return Value::ofInteger(digits.toLongLong());
  const auto number = Decimal::parse(utf8(digits));
  return number ? Value::ofDecimal(*number) : Value::ofText(utf8(text));
}

tabelle::TabellaDaScrivere tableAsShown(const QAbstractItemModel& model, const QList<int>& columns) {
  tabelle::TabellaDaScrivere table;
  table.foglio = "Righe";
  for (const int column : columns) {
    table.colonne.push_back(utf8(model.headerData(column, Qt::Horizontal).toString()));
  }
  for (int row = 0; row < model.rowCount(); ++row) {
    std::vector<Value>& cells = table.righe.emplace_back();
    for (const int column : columns) {
      const QModelIndex at = model.index(row, column);
      const QString text = at.data().toString();
      const bool number = (at.data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight) != 0;
      cells.push_back(number ? numberShown(text) : Value::ofText(utf8(text)));
    }
  }
  return table;
}

}  // namespace cu::desktop
