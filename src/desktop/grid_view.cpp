#include "desktop/grid_view.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QMenu>
#include <QMouseEvent>
#include <algorithm>
#include <cstdlib>
#include <optional>

#include "controls/form.h"
#include "desktop/form_window.h"
#include "desktop/grid_drawing.h"
#include "desktop/qt_front_end.h"
#include "desktop/text.h"
#include "desktop/whole_text.h"

namespace cu::desktop {
namespace {

constexpr int kFormUnitsPerPixel = 15;

}  // namespace

GridTable::GridTable(GridView& view, QWidget* parent) : QTableView(parent), view_(view) {
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setTabKeyNavigation(false);
  setAlternatingRowColors(true);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  setWordWrap(false);
  setCornerButtonEnabled(false);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
  setHorizontalHeader(new WrappedHeader(this));
  setItemDelegate(new CellPainter(this));
  tellWhole(*this);
}

// The arrows move only from a column that is shown.
void GridTable::setCurrent(int row) {
  const int before = currentIndex().column();
  const bool seen = before >= 0 && !isColumnHidden(before);
  if (currentIndex().row() == row && (row < 0 || seen)) return;
  setting_ = true;
  if (row < 0) {
    setCurrentIndex({});
  } else {
    int column = seen ? before : 0;
    while (isColumnHidden(column) && column + 1 < model()->columnCount()) ++column;
    selectionModel()->setCurrentIndex(model()->index(row, column),
                                      QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(model()->index(row, horizontalHeader()->logicalIndex(0)));
  }
  setting_ = false;
}

void GridTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  // The mark of the current row covers the whole row.
  viewport()->update();
  if (!setting_ && current.isValid() && current.row() != previous.row()) view_.rowChosen(current.row());
}

// Ctrl with Home or End moves to the first or last row; the toolkit would also move to the last column, and
// scroll the first ones out of view.
QModelIndex GridTable::moveCursor(CursorAction action, Qt::KeyboardModifiers held) {
  const bool far = held.testFlag(Qt::ControlModifier) && (action == MoveHome || action == MoveEnd);
  const QModelIndex current = currentIndex();
  if (!far || !current.isValid()) return QTableView::moveCursor(action, held);
  return model()->index(action == MoveHome ? 0 : model()->rowCount() - 1, current.column());
}

// Ctrl with an arrow, Home or End moves far, and moves the highlight too; with Shift it highlights all rows
// up to there.
QItemSelectionModel::SelectionFlags GridTable::selectionCommand(const QModelIndex& index,
                                                                const QEvent* event) const {
  if (event == nullptr || event->type() != QEvent::KeyPress) {
    return QTableView::selectionCommand(index, event);
  }
  const Qt::KeyboardModifiers held = static_cast<const QKeyEvent*>(event)->modifiers();
  if (!held.testFlag(Qt::ControlModifier)) return QTableView::selectionCommand(index, event);
  return (held.testFlag(Qt::ShiftModifier) ? QItemSelectionModel::SelectCurrent
                                           : QItemSelectionModel::ClearAndSelect) |
         QItemSelectionModel::Rows;
}

// A click with Ctrl may have removed the highlight from the current row: the nearest highlighted row then
// becomes the current one; if there is none, the row is highlighted again.
void GridTable::highlightCurrent() {
  const QModelIndex current = currentIndex();
  if (!current.isValid() || selectionModel()->isRowSelected(current.row())) return;
  const QModelIndexList rows = selectionModel()->selectedRows();
  const auto nearest = std::min_element(rows.begin(), rows.end(), [&](const auto& a, const auto& b) {
    return std::abs(a.row() - current.row()) < std::abs(b.row() - current.row());
  });
  if (nearest == rows.end()) {
    selectionModel()->select(current, QItemSelectionModel::Select | QItemSelectionModel::Rows);
  } else {
    const QModelIndex next = model()->index(nearest->row(), current.column());
    selectionModel()->setCurrentIndex(next, QItemSelectionModel::NoUpdate);
  }
}

void GridTable::mousePressEvent(QMouseEvent* event) {
  const QModelIndex at = indexAt(event->pos());
  // Confirmed before the press: otherwise the toolkit would highlight the row in spite of the answer.
  const bool allowed = !at.isValid() || view_.goTo(at.row());
  pressed_ = allowed && event->button() == Qt::LeftButton ? at : QModelIndex();
  if (!allowed) return;
  QTableView::mousePressEvent(event);
  highlightCurrent();
}

void GridTable::mouseMoveEvent(QMouseEvent* event) {
  QTableView::mouseMoveEvent(event);
  highlightCurrent();
}

void GridTable::mouseReleaseEvent(QMouseEvent* event) {
  QTableView::mouseReleaseEvent(event);
  highlightCurrent();
  const QModelIndex released = indexAt(event->pos());
  const bool same = pressed_.isValid() && released == pressed_;
  const bool plain = event->modifiers() == Qt::NoModifier;
  pressed_ = QModelIndex();
  if (same && plain) view_.cellPressed(released.row(), released.column());
}

void GridTable::mouseDoubleClickEvent(QMouseEvent* event) {
  pressed_ = QModelIndex();
  const QModelIndex clicked = indexAt(event->pos());
  if (event->button() == Qt::LeftButton && clicked.isValid()) view_.doubleClicked(clicked.row());
}

void GridTable::contextMenuEvent(QContextMenuEvent* event) {
  const QModelIndex at = event->reason() == QContextMenuEvent::Mouse ? indexAt(event->pos()) : currentIndex();
  if (at.isValid()) setCurrentIndex(at);
  view_.openRowMenu();
}

void GridTable::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) {
    view_.copySelection();
    return;
  }
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && currentIndex().isValid()) {
    view_.doubleClicked(currentIndex().row());
    return;
  }
  // The space bar is a key of the grid; it selects nothing here.
  if (event->key() == Qt::Key_Space) return;
  QTableView::keyPressEvent(event);
  // The toolkit highlights the target row of the key even where the move was rejected.
  const QModelIndex current = currentIndex();
  if (!current.isValid() || selectionModel()->isRowSelected(current.row())) return;
  selectionModel()->select(current, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

GridView::GridView(FormWindow& window, Grid& grid, QWidget* parent)
    : View(window, grid),
      grid_(grid),
      model_(grid),
      table_(new GridTable(*this, parent)),
      memory_(shown(grid.form().name() + "." + grid.name())) {
  setWidget(table_);
  table_->setModel(&model_);
  QHeaderView* const header = table_->horizontalHeader();
  QObject::connect(header, &QHeaderView::sectionResized, table_, [this](int column, int, int now) {
    if (!placing_ && live()) memory_.setWidth(shown(model_.column(column).field), now);
  });
  QObject::connect(header, &QHeaderView::sectionMoved, table_, [this] {
    if (!placing_ && live()) rememberOrder();
  });
  QObject::connect(header, &QHeaderView::sectionPressed, table_,
                   [this](int column) { headerPressed(column); });
  header->setContextMenuPolicy(Qt::CustomContextMenu);
  QObject::connect(header, &QWidget::customContextMenuRequested, table_,
                   [this](const QPoint& at) { headerMenu(at); });
}

GridView::~GridView() = default;

void GridView::refresh() {
  if (!grid_.drawing()) return;
  model_.refresh();
  placeColumns();
  table_->setCurrent(static_cast<int>(grid_.row()) - 1);
}

// The recordset's cursor may be moved without the grid.
void GridView::afterEvent() {
  if (live() && !model_.held()) table_->setCurrent(static_cast<int>(grid_.row()) - 1);
}

int GridView::widthOf(int column) const {
  const GridColumn& of = model_.column(column);
  const int kept = memory_.width(shown(of.field));
  if (kept > 0) return kept;
  // A caption is never cut: its longest word fits, and the count of all rows.
  QString caption = shown(of.caption);
  if (countOnly(caption)) caption = unbroken(QStringLiteral("[ %1 ]").arg(model_.rowCount()));
  int words = 0;
  for (const QString& word : caption.split(u' ')) {
    words = std::max(words, table_->horizontalHeader()->fontMetrics().horizontalAdvance(word) + 14);
  }
  // Nor are the texts of the first rows, up to a limit.
  constexpr int kSample = 60;
  constexpr int kWidest = 300;
  int texts = 0;
  for (int row = 0; of.type == kGridText && row < std::min(kSample, model_.rowCount()); ++row) {
    texts = std::max(texts, table_->fontMetrics().horizontalAdvance(model_.text(row, column)) + 12);
  }
  return std::max({of.width / kFormUnitsPerPixel, words, std::min(texts, kWidest)});
}

void GridView::placeColumns() {
  QString columns;
  for (const GridColumn& column : grid_.columns()) columns += shown(column.field) + u'|';
  // The rows are loaded after the columns: widths are computed again when the first rows are there.
  columns += model_.rowCount() > 0 ? u'1' : u'0';
  if (columns == placed_) return;
  placed_ = columns;
  placing_ = true;
  QHeaderView& header = *table_->horizontalHeader();
  for (int i = 0; i < model_.columnCount(); ++i) {
    table_->setColumnHidden(i, !model_.column(i).visible);
    table_->setColumnWidth(i, widthOf(i));
  }
  int place = 0;
  for (const QString& field : memory_.order()) {
    const auto column = model_.columnOf(utf8(field));
    if (column) header.moveSection(header.visualIndex(*column), place++);
  }
  static_cast<WrappedHeader&>(header).fitHeight();
  placing_ = false;
}

void GridView::rememberOrder() {
  QStringList order;
  const QHeaderView& header = *table_->horizontalHeader();
  for (int place = 0; place < header.count(); ++place) {
    order += shown(model_.column(header.logicalIndex(place)).field);
  }
  memory_.setOrder(order);
}

bool GridView::goTo(int row) {
  const std::size_t wanted = static_cast<std::size_t>(row) + 1;
  if (!live() || !grid_.drops) return true;
  std::optional<bool> asks;  // none where it could not be determined
  window().frontEnd().runEvent([&] { asks = !grid_.drops(wanted).empty(); });
  if (!asks || !*asks) return asks.has_value();
  bool allowed = false;
  act([&] {
    allowed = mayChoose(wanted);
    if (allowed) grid_.selectRow(wanted);
  });
  return allowed;
}

bool GridView::mayChoose(std::size_t row) {
  return !grid_.drops || window().frontEnd().mayDrop(grid_.form(), grid_.drops(row));
}

void GridView::rowChosen(int row) {
  const std::size_t chosen = static_cast<std::size_t>(row) + 1;
  if (!live() || chosen == grid_.row()) return;
  act([this, chosen] {
    if (mayChoose(chosen)) grid_.selectRow(chosen);
  });
}

void GridView::cellPressed(int row, int column) {
  if (!live()) return;
  const std::string field = model_.column(column).field;
  const std::size_t pressed = static_cast<std::size_t>(row) + 1;
  act([&] {
    if (mayChoose(pressed)) grid_.press(pressed, field);
  });
}

void GridView::headerPressed(int column) {
  if (!live()) return;
  const std::string field = model_.column(column).field;
  act([&] { grid_.press(0, field); });
}

void GridView::doubleClicked(int row) { openRow(static_cast<std::size_t>(row) + 1); }

void GridView::openRow(std::size_t row) {
  if (!live()) return;
  act([this, row] {
    if (mayChoose(row)) grid_.doubleClick(row);
  });
}

// The table keeps its current row while the grid's rows are filtered to one.
std::size_t GridView::rowBeside(int step) const {
  const int current = table_->currentIndex().row();
  const int beside = current + step;
  if (current < 0 || beside < 0 || beside >= model_.rowCount()) return 0;
  return static_cast<std::size_t>(beside) + 1;
}

std::vector<std::size_t> GridView::highlighted() const {
  std::vector<std::size_t> rows;
  for (const QModelIndex& row : table_->selectionModel()->selectedRows()) {
    rows.push_back(static_cast<std::size_t>(row.row()) + 1);
  }
  if (rows.size() < 2) return {};
  std::sort(rows.begin(), rows.end());
  return rows;
}

bool GridView::keyDown(std::int16_t code, std::int16_t shift) {
  if (!live()) return false;
  bool consumed = false;
  window().act(grid_, [&] {
    grid_.highlight(highlighted());
    consumed = grid_.keyDown(code, shift);
  });
  if (live()) grid_.highlight({});
  return consumed;
}

void GridView::openRowMenu() {
  if (!live() || grid_.row() == 0) return;
  for (int column = 0; column < model_.columnCount(); ++column) {
    if (!model_.isMenu(column)) continue;
    cellPressed(static_cast<int>(grid_.row()) - 1, column);
    return;
  }
}

void GridView::copySelection() {
  const QHeaderView& header = *table_->horizontalHeader();
  QList<int> columns;
  for (int place = 0; place < header.count(); ++place) {
    const int column = header.logicalIndex(place);
    if (!table_->isColumnHidden(column) && !model_.isMenu(column)) columns += column;
  }
  QModelIndexList rows = table_->selectionModel()->selectedRows();
  std::sort(rows.begin(), rows.end());
  QStringList copied;
  for (const QModelIndex& row : rows) {
    QStringList cells;
    for (const int column : columns) cells += model_.text(row.row(), column);
    copied += cells.join(u'\t');
  }
  if (!copied.isEmpty()) QApplication::clipboard()->setText(copied.join(u'\n'));
}

void GridView::headerMenu(const QPoint& at) {
  QMenu menu(table_);
  QAction* const original = menu.addAction(QStringLiteral("Larghezze e ordine originali"));
  if (menu.exec(table_->horizontalHeader()->mapToGlobal(at)) != original) return;
  memory_.forget();
  placing_ = true;
  for (int i = 0; i < model_.columnCount(); ++i) {
    QHeaderView& header = *table_->horizontalHeader();
    header.moveSection(header.visualIndex(i), i);
  }
  placed_.clear();
  placeColumns();
}

int GridView::searchColumn() const {
  for (int column = 0; column < model_.columnCount(); ++column) {
    if (model_.column(column).visible && model_.column(column).type == kGridText) return column;
  }
  return -1;
}

bool GridView::search(const QString& text, bool following) {
  if (!live() || searchColumn() < 0) return false;
  const int current = static_cast<int>(grid_.row()) - 1;
  const int found = following ? model_.findNext(text, searchColumn(), current)
                              : model_.find(text, searchColumn(), std::max(0, current));
  if (found < 0) return false;
  // Only the row changes: the focus stays where it is.
  FormWindow& shownIn = window();
  shownIn.act([&] { grid_.selectRow(static_cast<std::size_t>(found) + 1); });
  return true;
}

}  // namespace cu::desktop
