// The commands on a grid's columns: order, choice, copying, a table in a file.

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QMenu>
#include <algorithm>

#include "controls/form.h"
#include "desktop/file_dialog.h"
#include "desktop/form_window.h"
#include "desktop/frozen_columns.h"
#include "desktop/grid_export.h"
#include "desktop/grid_view.h"
#include "desktop/qt_front_end.h"
#include "desktop/table_captions.h"
#include "desktop/text.h"

namespace cu::desktop {

using captions::caption;

QList<int> GridView::columnsSeen() const {
  const QHeaderView& header = *table_->horizontalHeader();
  QList<int> columns;
  for (int place = 0; place < header.count(); ++place) {
    const int column = header.logicalIndex(place);
    if (!table_->isColumnHidden(column) && !model_.isMenu(column)) columns += column;
  }
  return columns;
}

void GridView::copySelection(bool headings) {
  const QList<int> columns = columnsSeen();
  QList<int> rows;
  for (const QItemSelectionRange& range : table_->selectionModel()->selection()) {
    for (int row = range.top(); row <= range.bottom(); ++row) rows += row;
  }
  std::sort(rows.begin(), rows.end());
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  if (rows.isEmpty()) return;
  QStringList copied;
  if (headings) {
    QStringList cells;
    for (const int column : columns) cells += headingText(model_, column);
    copied += cells.join(u'\t');
  }
  for (const int row : rows) {
    QStringList cells;
    for (const int column : columns) cells += model_.text(row, column);
    copied += cells.join(u'\t');
  }
  QApplication::clipboard()->setText(copied.join(u'\n'));
}

void GridView::openHeaderMenu(int column) {
  if (column < 0) return;
  const QHeaderView& header = *table_->horizontalHeader();
  const int frozen = table_->frozen().columnViewportPosition(column);
  const int left =
      table_->frozen().shows(column) ? frozen : std::max(0, header.sectionViewportPosition(column));
  headerMenu(column, header.viewport()->mapToGlobal(QPoint(left, header.height())));
}

void GridView::headerMenu(int column, const QPoint& at) {
  if (!live()) return;
  QMenu menu(table_);
  if (column >= 0 && sortable(grid_, model_.column(column))) addOrder(menu, column);
  addColumns(menu);
  menu.addSeparator();
  QAction* const copy = menu.addAction(caption(captions::kCopyWithHeadings));
  QObject::connect(copy, &QAction::triggered, table_, [this] { copySelection(true); });
  bool exports = false;
  QAction* const file = menu.addAction(caption(captions::kExport));
  QObject::connect(file, &QAction::triggered, table_, [&exports] { exports = true; });
  menu.exec(at);
  if (exports && live()) exportTable();
}

void GridView::addOrder(QMenu& menu, int column) {
  const std::string field = model_.column(column).field;
  const auto add = [&](const QString& caption, const std::string& by, bool descending) {
    QAction* const order = menu.addAction(caption);
    order->setCheckable(true);
    order->setChecked(arrangement().field == by && arrangement().descending == descending);
    QObject::connect(order, &QAction::triggered, table_, [this, by, descending] {
      Arrangement wanted = arrangement();
      wanted.field = by;
      wanted.descending = descending;
      arrange(wanted);
    });
  };
  add(caption(captions::kAscending), field, false);
  add(caption(captions::kDescending), field, true);
  add(caption(captions::kFirstOrder), {}, false);
  menu.addSeparator();
  QAction* const hide = menu.addAction(caption(captions::kHideColumn));
  hide->setEnabled(columnsSeen().size() > 1 && mayHide(column));
  QObject::connect(hide, &QAction::triggered, table_, [this, column] { hideColumn(column, true); });
}

void GridView::addColumns(QMenu& menu) {
  QMenu& columns = *menu.addMenu(caption(captions::kColumns));
  for (int column = 0; column < model_.columnCount(); ++column) {
    if (!model_.column(column).visible || model_.isMenu(column) || !mayHide(column)) continue;
    QAction* const each = columns.addAction(headingText(model_, column));
    each->setCheckable(true);
    each->setChecked(!table_->isColumnHidden(column));
    each->setEnabled(table_->isColumnHidden(column) || columnsSeen().size() > 1);
    QObject::connect(each, &QAction::toggled, table_, [this, column](bool on) { hideColumn(column, !on); });
  }
  QAction* const original = menu.addAction(caption(captions::kFirstColumns));
  QObject::connect(original, &QAction::triggered, table_, [this] { forgetColumns(); });
}

// The marks that Space sets, with their count, are always seen.
bool GridView::mayHide(int column) const {
  return !model_.isFlag(column) || !countOnly(shown(model_.column(column).caption));
}

void GridView::hideColumn(int column, bool hidden) {
  const QString field = shown(model_.column(column).field);
  QStringList fields = memory_.hidden();
  fields.removeAll(field);
  if (hidden) fields += field;
  memory_.setHidden(fields);
  placed_.clear();
  placeColumns();
  // The current column is one that is seen.
  showCurrent();
}

void GridView::forgetColumns() {
  memory_.forget();
  placing_ = true;
  for (int i = 0; i < model_.columnCount(); ++i) {
    QHeaderView& header = *table_->horizontalHeader();
    header.moveSection(header.visualIndex(i), i);
  }
  placed_.clear();
  placeColumns();
}

void GridView::exportTable() {
  FileDialog dialog(table_, caption(captions::kExportTitle), QString(), caption(captions::kExportKinds));
  dialog.saves();
  dialog.selectFile(QStringLiteral("righe.xlsx"));
  if (window().frontEnd().run(dialog) != QDialog::Accepted || !live()) return;
  const QString path = dialog.selectedFiles().value(0);
  window().frontEnd().runEvent([&] {
    writeTable(tableAsSeen(*this), path);
    window().frontEnd().toldAnew(
        utf8(QStringLiteral("Esportate %L1 righe in %2.").arg(model_.rowCount()).arg(path)));
  });
}

}  // namespace cu::desktop
