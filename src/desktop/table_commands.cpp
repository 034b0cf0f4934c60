#include "desktop/table_commands.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QMessageBox>
#include <QTableView>
#include <algorithm>
#include <utility>

#include "base/error.h"
#include "desktop/file_dialog.h"
#include "desktop/grid_drawing.h"
#include "desktop/grid_export.h"
#include "desktop/table_captions.h"
#include "desktop/table_export.h"
#include "desktop/text.h"

namespace cu::desktop {

using captions::caption;

TableCommands::TableCommands(QTableView& table, const QString& name)
    : QObject(&table), table_(table), name_(name), memory_(name) {
  table.installEventFilter(this);
  table.viewport()->installEventFilter(this);
  QHeaderView* const header = table.horizontalHeader();
  header->setSectionsMovable(remembers());
  header->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(header, &QWidget::customContextMenuRequested, this, [this, header](const QPoint& at) {
    headerMenu(header->logicalIndexAt(at), header->mapToGlobal(at));
  });
  // The last column has the width that the others leave.
  connect(header, &QHeaderView::sectionResized, this, [this, header](int column, int, int now) {
    const QList<int> seen = columnsSeen();
    const bool stretched = header->stretchLastSection() && !seen.isEmpty() && seen.last() == column;
    if (placed_ && !quiet_ && remembers() && !stretched && !nameOf(column).isEmpty()) {
      memory_.setWidth(nameOf(column), now);
    }
  });
  connect(header, &QHeaderView::sectionMoved, this, [this] {
    if (placed_ && !quiet_) rememberOrder();
  });
}

QString TableCommands::headingOf(int column) const {
  return table_.model()->headerData(column, Qt::Horizontal).toString();
}

QString TableCommands::nameOf(int column) const {
  const QVariant name = table_.model()->headerData(column, Qt::Horizontal, kColumnNameRole);
  return name.isValid() ? name.toString() : headingOf(column);
}

void TableCommands::quietly(const std::function<void()>& change) {
  const bool before = std::exchange(quiet_, true);
  change();
  quiet_ = before;
}

void TableCommands::placeColumns() {
  quietly([this] {
    if (setWidths) setWidths();
    if (!remembers()) return;
    QHeaderView& header = *table_.horizontalHeader();
    const QStringList hidden = memory_.hidden();
    const QStringList order = memory_.order();
    for (int column = 0; column < header.count(); ++column) {
      const QString name = nameOf(column);
      table_.setColumnHidden(column, !name.isEmpty() && hidden.contains(name));
      if (const int width = name.isEmpty() ? 0 : memory_.width(name); width > 0) {
        table_.setColumnWidth(column, width);
      }
    }
    for (int place = 0; const QString& name : order) {
      for (int column = 0; column < header.count(); ++column) {
        if (nameOf(column) == name) header.moveSection(header.visualIndex(column), place++);
      }
    }
  });
  static_cast<WrappedHeader*>(table_.horizontalHeader())->fitHeight();
  placed_ = true;
}

QList<int> TableCommands::columnsSeen() const {
  const QHeaderView& header = *table_.horizontalHeader();
  QList<int> columns;
  for (int place = 0; place < header.count(); ++place) {
    const int column = header.logicalIndex(place);
    if (!table_.isColumnHidden(column) && !nameOf(column).isEmpty()) columns += column;
  }
  return columns;
}

void TableCommands::copy(bool headings) const {
  QList<int> rows;
  for (const QItemSelectionRange& range : table_.selectionModel()->selection()) {
    for (int row = range.top(); row <= range.bottom(); ++row) rows += row;
  }
  std::sort(rows.begin(), rows.end());
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  if (rows.isEmpty()) return;
  const QList<int> columns = columnsSeen();
  QStringList copied;
  const auto add = [&](const std::function<QString(int)>& cell) {
    QStringList cells;
    for (const int column : columns) cells += cell(column);
    copied += cells.join(u'\t');
  };
  if (headings) add([this](int column) { return headingOf(column); });
  for (const int row : rows) {
    add([this, row](int column) { return table_.model()->index(row, column).data().toString(); });
  }
  QApplication::clipboard()->setText(copied.join(u'\n'));
}

void TableCommands::exportTable() {
  const QString path = fileToSave(table_.window(), caption(captions::kExportTitle),
                                  QStringLiteral("righe.xlsx"), caption(captions::kExportKinds));
  if (path.isEmpty()) return;
  try {
    writeTable(tableAsShown(*table_.model(), columnsSeen()), path);
  } catch (const Error& error) {
    QMessageBox box(QMessageBox::Warning, table_.window()->windowTitle(), {}, QMessageBox::Ok,
                    table_.window());
    box.setTextFormat(Qt::PlainText);
    box.setText(shown(error.description()));
    box.exec();
  }
}

bool TableCommands::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ContextMenu) {
    const auto& asked = *static_cast<QContextMenuEvent*>(event);
    const QRect current = table_.visualRect(table_.currentIndex());
    const bool byHand = asked.reason() == QContextMenuEvent::Mouse;
    rowMenu(byHand ? asked.globalPos() : table_.viewport()->mapToGlobal(current.bottomLeft()));
    return true;
  }
  if (watched == &table_ && event->type() == QEvent::KeyPress) {
    const auto& pressed = *static_cast<QKeyEvent*>(event);
    if (keyPressed(pressed.key(), pressed.modifiers())) {
      event->accept();
      return true;
    }
  }
  return QObject::eventFilter(watched, event);
}

bool TableCommands::keyPressed(int key, Qt::KeyboardModifiers held) {
  const bool shifted = held == (Qt::ControlModifier | Qt::ShiftModifier);
  if (key == Qt::Key_C && (held == Qt::ControlModifier || shifted)) {
    copy(shifted);
    return true;
  }
  if (key == Qt::Key_Down && held == Qt::AltModifier) {
    openHeaderMenu(std::max(0, table_.currentIndex().column()));
    return true;
  }
  if ((key == Qt::Key_Home || key == Qt::Key_End) && held == Qt::ControlModifier) {
    goToEnd(key == Qt::Key_End);
    return true;
  }
  return false;
}

// The toolkit would also go to the first or last column.
void TableCommands::goToEnd(bool last) {
  const int rows = table_.model()->rowCount();
  if (rows == 0) return;
  const QList<int> seen = columnsSeen();
  const int column = std::max(table_.currentIndex().column(), seen.isEmpty() ? 0 : seen.first());
  table_.setCurrentIndex(table_.model()->index(last ? rows - 1 : 0, column));
}

void TableCommands::openHeaderMenu(int column) {
  const QHeaderView& header = *table_.horizontalHeader();
  const int left = std::max(0, header.sectionViewportPosition(column));
  headerMenu(column, header.viewport()->mapToGlobal(QPoint(left, header.height())));
}

void TableCommands::headerMenu(int column, const QPoint& at) {
  if (table_.model() == nullptr || table_.model()->columnCount() == 0) return;
  QMenu menu(&table_);
  if (column >= 0 && table_.isSortingEnabled()) addOrder(menu, column);
  if (remembers()) addColumns(menu, column);
  addCopies(menu);
  menu.exec(at);
}

void TableCommands::rowMenu(const QPoint& at) {
  if (table_.model() == nullptr || table_.model()->rowCount() == 0) return;
  QMenu menu(&table_);
  if (addRowCommands && table_.currentIndex().isValid()) {
    addRowCommands(menu);
    menu.addSeparator();
  }
  addCopies(menu);
  menu.exec(at);
}

void TableCommands::addOrder(QMenu& menu, int column) {
  const QHeaderView& header = *table_.horizontalHeader();
  const int now = header.sortIndicatorSection();
  const auto add = [&](const char16_t* text, int by, Qt::SortOrder order) {
    QAction* const action = menu.addAction(caption(text));
    action->setCheckable(true);
    action->setChecked(now == by && (by < 0 || header.sortIndicatorOrder() == order));
    connect(action, &QAction::triggered, this, [this, by, order] { table_.sortByColumn(by, order); });
  };
  add(captions::kAscending, column, Qt::AscendingOrder);
  add(captions::kDescending, column, Qt::DescendingOrder);
  if (header.isSortIndicatorClearable()) add(captions::kFirstOrder, -1, Qt::AscendingOrder);
  menu.addSeparator();
}

void TableCommands::addColumns(QMenu& menu, int column) {
  const qsizetype seen = columnsSeen().size();
  if (column >= 0 && !nameOf(column).isEmpty()) {
    QAction* const hide = menu.addAction(caption(captions::kHideColumn));
    hide->setEnabled(seen > 1);
    connect(hide, &QAction::triggered, this, [this, column] { hideColumn(column, true); });
  }
  QMenu& columns = *menu.addMenu(caption(captions::kColumns));
  for (int each = 0; each < table_.model()->columnCount(); ++each) {
    if (headingOf(each).isEmpty() || nameOf(each).isEmpty()) continue;
    const bool hidden = table_.isColumnHidden(each);
    QAction* const choice = columns.addAction(headingOf(each));
    choice->setCheckable(true);
    choice->setChecked(!hidden);
    choice->setEnabled(hidden || seen > 1);
    connect(choice, &QAction::toggled, this, [this, each](bool on) { hideColumn(each, !on); });
  }
  QAction* const original = menu.addAction(caption(captions::kFirstColumns));
  connect(original, &QAction::triggered, this, [this] {
    memory_.forget();
    QHeaderView& header = *table_.horizontalHeader();
    quietly([&header] {
      for (int i = 0; i < header.count(); ++i) header.moveSection(header.visualIndex(i), i);
    });
    placeColumns();
  });
  menu.addSeparator();
}

void TableCommands::addCopies(QMenu& menu) {
  const bool any = table_.selectionModel() != nullptr && table_.selectionModel()->hasSelection();
  QAction* const plain = menu.addAction(caption(captions::kCopy), this, [this] { copy(false); });
  QAction* const headed = menu.addAction(caption(captions::kCopyWithHeadings), this, [this] { copy(true); });
  plain->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_C));
  headed->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C));
  for (QAction* each : {plain, headed}) each->setEnabled(any);
  // Once the menu is closed.
  QAction* const file = menu.addAction(caption(captions::kExport));
  connect(
      file, &QAction::triggered, this, [this] { exportTable(); }, Qt::QueuedConnection);
}

void TableCommands::hideColumn(int column, bool hidden) {
  QStringList names = memory_.hidden();
  names.removeAll(nameOf(column));
  if (hidden) names += nameOf(column);
  memory_.setHidden(names);
  placeColumns();
  keepCurrentSeen();
}

void TableCommands::rememberOrder() {
  QStringList order;
  const QHeaderView& header = *table_.horizontalHeader();
  for (int place = 0; place < header.count(); ++place) order += nameOf(header.logicalIndex(place));
  memory_.setOrder(order);
}

// The arrows move only from a column that is shown.
void TableCommands::keepCurrentSeen() {
  const QModelIndex current = table_.currentIndex();
  const QList<int> seen = columnsSeen();
  if (!current.isValid() || !table_.isColumnHidden(current.column()) || seen.isEmpty()) return;
  table_.selectionModel()->setCurrentIndex(current.siblingAtColumn(seen.first()),
                                           QItemSelectionModel::NoUpdate);
}

}  // namespace cu::desktop
