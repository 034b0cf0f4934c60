#include "desktop/cells.h"

#include <QEvent>
#include <QGridLayout>
#include <QResizeEvent>
#include <QVBoxLayout>
#include <algorithm>

namespace cu::desktop {
namespace {

constexpr int kCellWidth = 196;
constexpr int kMostColumns = 5;
constexpr int kFewestColumns = 2;

// Columns that a cell takes of those there are.
int spanOf(Cell::Width width, int columns) {
  switch (width) {
    case Cell::Width::Narrow:
      return 1;
    case Cell::Width::Wide:
      return 2;
    case Cell::Width::Widest:
      return std::clamp(columns - 2, 2, 3);
  }
  return 1;
}

void small(QWidget& title) {
  QFont font = title.font();
  font.setPointSizeF(font.pointSizeF() * 0.88);
  title.setFont(font);
}

}  // namespace

Cell::Cell(QWidget* parent) : QWidget(parent) {
  auto* column = new QVBoxLayout(this);
  // Room for the line around the field that has the keyboard.
  column->setContentsMargins(4, 0, 4, 4);
  column->setSpacing(1);
  column->addStretch(1);
}

QLabel* Cell::addTitle() {
  auto* title = new QLabel(this);
  title->setWordWrap(true);
  setTitle(title);
  return title;
}

void Cell::setTitle(QWidget* title) {
  small(*title);
  static_cast<QVBoxLayout*>(layout())->insertWidget(1, title);
}

void Cell::setContent(QWidget* content) {
  content_ = content;
  content->installEventFilter(this);
  layout()->addWidget(content);
}

// A cell whose field is hidden takes no room.
bool Cell::eventFilter(QObject* watched, QEvent* event) {
  if (watched == content_ &&
      (event->type() == QEvent::HideToParent || event->type() == QEvent::ShowToParent)) {
    setVisible(event->type() == QEvent::ShowToParent);
  }
  return QWidget::eventFilter(watched, event);
}

CellBox::CellBox(QWidget* parent) : QWidget(parent), grid_(new QGridLayout(this)) {
  grid_->setContentsMargins(0, 0, 0, 0);
  grid_->setHorizontalSpacing(6);
  grid_->setVerticalSpacing(4);
}

Cell& CellBox::add() {
  cells_.push_back(new Cell(this));
  return *cells_.back();
}

void CellBox::setWidth(Cell& cell, Cell::Width width) {
  cell.width = width;
  columns_ = 0;
}

void CellBox::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  arrange(std::clamp(event->size().width() / kCellWidth, kFewestColumns, kMostColumns));
}

bool CellBox::event(QEvent* event) {
  // The first layout comes before the first size.
  if (columns_ == 0 && event->type() == QEvent::Polish) arrange(kMostColumns - 1);
  return QWidget::event(event);
}

void CellBox::arrange(int columns) {
  if (columns == columns_) return;
  columns_ = columns;
  while (QLayoutItem* item = grid_->takeAt(0)) delete item;
  for (int i = 0; i < kMostColumns; ++i) grid_->setColumnStretch(i, i < columns ? 1 : 0);
  int row = 0;
  int column = 0;
  for (Cell* cell : cells_) {
    const int span = spanOf(cell->width, columns);
    if (column + span > columns) {
      ++row;
      column = 0;
    }
    grid_->addWidget(cell, row, column, 1, span);
    column += span;
  }
}

}  // namespace cu::desktop
