#pragma once

#include <gtest/gtest.h>

#include <QCalendarWidget>
#include <QHeaderView>
#include <QRegularExpression>
#include <QTableView>
#include <algorithm>
#include <string>
#include <typeinfo>

#include "desktop/frozen_columns.h"
#include "desktop/grid_drawing.h"
#include "desktop/grid_table.h"
#include "desktop/table_commands.h"

// All tables of the program look and behave alike: whatever a test opens is compared with that.
namespace cu::test {

// Columns over a table are a part of it, and the days of a calendar are none.
inline bool isTableOfRows(const QTableView& table) {
  return dynamic_cast<const desktop::FrozenColumns*>(&table) == nullptr &&
         qobject_cast<const QCalendarWidget*>(table.parentWidget()) == nullptr;
}

// What differs from the style of all tables, a line each; empty for nothing.
inline std::string tableFaults(const QTableView& table) {
  if (!isTableOfRows(table)) return {};
  std::string faults;
  const auto expect = [&](bool right, const char* what) {
    if (!right) faults += std::string(what) + '\n';
  };
  expect(!table.accessibleName().isEmpty(), "has no name");
  expect(table.selectionBehavior() == QAbstractItemView::SelectRows, "highlights cells");
  expect(!table.tabKeyNavigation(), "keeps Tab");
  expect(table.alternatingRowColors(), "has rows of one tint");
  expect(!table.wordWrap(), "wraps its cells");
  expect(table.horizontalScrollMode() == QAbstractItemView::ScrollPerPixel, "scrolls by columns");
  expect(!table.isCornerButtonEnabled(), "has a button in its corner");
  expect(dynamic_cast<desktop::WrappedHeader*>(table.horizontalHeader()) != nullptr,
         "has a heading of its own");
  expect(typeid(*table.itemDelegate()) != typeid(QStyledItemDelegate), "draws no current row");
  const int above = table.verticalHeader()->defaultSectionSize() - table.fontMetrics().height();
  expect(above >= 6 && above <= 10, "has rows of another height");
  const bool commands = std::any_of(
      table.children().begin(), table.children().end(),
      [](const QObject* each) { return dynamic_cast<const desktop::TableCommands*>(each) != nullptr; });
  expect(commands || dynamic_cast<const desktop::GridTable*>(&table) != nullptr,
         "cannot be copied with headings");
  return faults;
}

// Amounts that are not at the right, from the first rows; those of a foreign file are shown as they are
// there.
inline std::string misplacedAmounts(const QTableView& table) {
  static const QRegularExpression kAmount(QStringLiteral("^-?\\d{1,3}(\\.?\\d{3})*,\\d\\d$"));
  constexpr int kRows = 30;
  std::string cells;
  const QAbstractItemModel* const model = table.model();
  if (model == nullptr || !isTableOfRows(table) ||
      table.accessibleName() == QStringLiteral("Prime righe del file") ||
      table.accessibleName() == QStringLiteral("Colonne da importare")) {
    return cells;
  }
  for (int row = 0; row < std::min(kRows, model->rowCount()); ++row) {
    for (int column = 0; column < model->columnCount(); ++column) {
      const QModelIndex cell = model->index(row, column);
      const QString text = cell.data().toString();
      const bool right = (cell.data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight) != 0;
      if (!right && kAmount.match(text).hasMatch()) cells += text.toStdString() + '\n';
    }
  }
  return cells;
}

// Looks at every table that is shown, and at the cells of every table that is drawn, while it lives.
class TableWatch : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Show) {
      if (const auto* const table = qobject_cast<QTableView*>(watched)) report(*table, tableFaults(*table));
    } else if (event->type() == QEvent::Paint) {
      const auto* const table = qobject_cast<QTableView*>(watched->parent());
      if (table != nullptr && table->viewport() == watched) report(*table, misplacedAmounts(*table));
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  static void report(const QTableView& table, const std::string& faults) {
    if (faults.empty()) return;
    ADD_FAILURE() << "the table \"" << table.accessibleName().toStdString() << "\" of \""
                  << table.window()->windowTitle().toStdString() << "\":\n"
                  << faults;
  }
};

}  // namespace cu::test
