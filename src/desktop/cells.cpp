#include "desktop/cells.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QResizeEvent>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace cu::desktop {
namespace {

constexpr int kCellWidth = 196;
constexpr int kCellLetters = 24;
constexpr int kCellSide =
    7;  // room for the line around the focus, the mark of a change, and between two boxes
constexpr int kNumberGap = 4;
constexpr int kMostColumns = 5;
constexpr int kFewestColumns = 2;

// The number of columns that a cell takes.
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
  // The columns are of equal width, whatever the cells would like.
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  column->setContentsMargins(kCellSide, 0, kCellSide, 4);
  column->setSpacing(1);
  column->addStretch(1);
}

QLabel* Cell::addTitle() {
  auto* title = new QLabel(this);
  title->setWordWrap(true);
  setTitle(title);
  return title;
}

void Cell::setNumber(const QString& number) {
  if (number.isEmpty()) return;
  number_ = new QLabel(number, this);
  small(*number_);
}

void Cell::setTitle(QWidget* title) {
  small(*title);
  auto* const column = static_cast<QVBoxLayout*>(layout());
  if (number_ == nullptr) {
    column->insertWidget(1, title);
    return;
  }
  auto* const row = new QHBoxLayout;
  row->setSpacing(kNumberGap);
  row->addWidget(std::exchange(number_, nullptr), 0, Qt::AlignTop);
  row->addWidget(title, 1);
  column->insertLayout(1, row);
}

QLabel* Cell::addNote() {
  auto* note = new QLabel(this);
  note->setWordWrap(true);
  note->setTextFormat(Qt::PlainText);
  small(*note);
  // The field is as wide as one of a single column.
  beside_->setSpacing(2 * kCellSide);
  beside_->addWidget(note, 1);
  return note;
}

void Cell::setContent(QWidget* content) {
  content_ = content;
  content->installEventFilter(this);
  beside_ = new QHBoxLayout;
  beside_->setSpacing(kCellSide);
  // A field with a caption of its own.
  if (number_ != nullptr) beside_->addWidget(number_);
  beside_->addWidget(content, 1);
  static_cast<QVBoxLayout*>(layout())->addLayout(beside_);
}

// A cell with a hidden field takes no space.
bool Cell::eventFilter(QObject* watched, QEvent* event) {
  if (watched == content_ &&
      (event->type() == QEvent::HideToParent || event->type() == QEvent::ShowToParent)) {
    setVisible(event->type() == QEvent::ShowToParent);
  }
  return QWidget::eventFilter(watched, event);
}

// A layout sends events to the box that it is made for.
CellBox::CellBox(QWidget* parent) : QWidget(parent) {
  grid_ = new QGridLayout(this);
  grid_->setContentsMargins(0, 0, 0, 0);
  // An empty column has no spacing: the cells keep their distance themselves.
  grid_->setHorizontalSpacing(0);
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
  arrange(std::clamp(event->size().width() / columnWidth(), kFewestColumns, kMostColumns));
}

// A larger font has fewer columns.
int CellBox::columnWidth() const {
  return std::max(kCellWidth, kCellLetters * fontMetrics().horizontalAdvance(u'0'));
}

bool CellBox::event(QEvent* event) {
  // The first layout runs before the first resize.
  if (columns_ == 0 && event->type() == QEvent::Polish) arrange(kMostColumns - 1);
  return QWidget::event(event);
}

// The places of cells with these numbers of columns.
std::vector<CellBox::Place> CellBox::places(const std::vector<int>& spans, int columns) const {
  std::vector<Place> found;
  int row = 0;
  int column = 0;
  for (std::size_t at = 0; at < cells_.size(); ++at) {
    const QString& asks = cells_[at]->asks;
    const bool again = at > 0 && !asks.isEmpty() && asks == cells_.front()->asks;
    if (again || column + spans[at] > columns) {
      ++row;
      column = 0;
    }
    found.push_back({row, column});
    column += spans[at];
  }
  return found;
}

// Cells for long texts take the free columns, as long as they stay in their row and no row is added; nor does
// a code with its description move another cell to the next row.
std::vector<int> CellBox::spans(int columns) const {
  std::vector<int> found;
  for (const Cell* cell : cells_) {
    // As many as its content requires.
    const int least = (cell->layout()->minimumSize().width() - 1) / columnWidth() + 1;
    const int span = spanOf(cell->width, columns);
    found.push_back(std::clamp(least, span, std::max(columns, span)));
  }
  if (found.empty()) return found;
  const std::vector<Place> before = places(found, columns);
  for (bool widened = true; widened;) {
    widened = false;
    for (std::size_t at = 0; at < cells_.size(); ++at) {
      if (found[at] >= std::min(cells_[at]->mostColumns, columns)) continue;
      ++found[at];
      const std::vector<Place> now = places(found, columns);
      const bool pushes = !std::equal(now.begin(), now.end(), before.begin(),
                                      [](const Place& a, const Place& b) { return a.row == b.row; });
      const bool stays = cells_[at]->width == Cell::Width::Widest && pushes;
      const bool moves = now[at].row != before[at].row || now.back().row > before.back().row;
      if (stays || moves) {
        --found[at];
      } else {
        widened = true;
      }
    }
  }
  return found;
}

void CellBox::arrange(int columns) {
  if (columns == columns_) return;
  columns_ = columns;
  while (QLayoutItem* item = grid_->takeAt(0)) delete item;
  for (int i = 0; i < kMostColumns; ++i) grid_->setColumnStretch(i, i < columns ? 1 : 0);
  const std::vector<int> taken = spans(columns);
  const std::vector<Place> where = places(taken, columns);
  for (std::size_t at = 0; at < cells_.size(); ++at) {
    grid_->addWidget(cells_[at], where[at].row, where[at].column, 1, taken[at]);
  }
}

}  // namespace cu::desktop
