#include "desktop/grid_view.h"

#include <QHeaderView>
#include <algorithm>
#include <optional>
#include <utility>

#include "controls/form.h"
#include "desktop/first_size.h"
#include "desktop/follow_letters.h"
#include "desktop/form_window.h"
#include "desktop/frozen_columns.h"
#include "desktop/grid_drawing.h"
#include "desktop/qt_front_end.h"
#include "desktop/row_marks.h"
#include "desktop/text.h"

namespace cu::desktop {
namespace {

constexpr int kFormUnitsPerPixel = 15;
constexpr std::int16_t kDelete = 46;

}  // namespace

GridView::GridView(FormWindow& window, Grid& grid, QWidget* parent)
    : View(window, grid),
      grid_(grid),
      model_(grid),
      table_(new GridTable(*this, parent)),
      keys_(grid, nullptr),
      memory_(shown(grid.form().name() + "." + grid.name())) {
  setWidget(table_);
  table_->setVerticalHeader(new MarkHeader(model_, grid, table_));
  table_->setModel(&model_);
  QHeaderView* const header = table_->horizontalHeader();
  QObject::connect(header, &QHeaderView::sectionResized, table_, [this](int column, int, int now) {
    if (!placing_ && live()) memory_.setWidth(shown(model_.column(column).field), now);
  });
  QObject::connect(header, &QHeaderView::sectionMoved, table_, [this] {
    if (!placing_ && live()) rememberOrder();
  });
  table_->shareModel();
  for (QHeaderView* each : {header, table_->frozen().horizontalHeader()}) {
    QObject::connect(each, &QHeaderView::sectionPressed, table_,
                     [this](int column) { headerPressed(column); });
    QObject::connect(each, &QHeaderView::sectionClicked, table_, [this](int column) { sortBy(column); });
    each->setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(each, &QWidget::customContextMenuRequested, table_, [this, each](const QPoint& at) {
      headerMenu(each->logicalIndexAt(at), each->mapToGlobal(at));
    });
  }
  QObject::connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, table_,
                   [this] { report(); });
  letters_ = followLetters(*table_, [this] { fitLetters(); });
  keys_.readingOf = window.frontEnd().rowKeys;
  keys_.held = [this] { return model_.held(); };
  keys_.onRead = [this](bool anew) { keysRead(anew); };
  keys_.onFailed = [this](const std::string& state, const QString& error) {
    formWindow().frontEnd().toldAfter(
        utf8(QStringLiteral("Il filtro \"%1\" non è disponibile: %2").arg(shown(state), error)));
  };
}

// The table outlives its view, and its rows.
GridView::~GridView() {
  delete letters_;
  QObject::disconnect(table_->selectionModel(), nullptr, table_, nullptr);
}

// Heights and widths are measured in letters.
void GridView::fitLetters() {
  for (QHeaderView* each : {table_->verticalHeader(), table_->frozen().verticalHeader()}) {
    each->setDefaultSectionSize(table_->fontMetrics().height() + 8);
  }
  table_->fitLetters();
  if (!live() || placed_.isEmpty()) return;
  placed_.clear();
  placeColumns();
}

void GridView::refresh() {
  if (!grid_.drawing()) return;
  keys_.follow();
  model_.refresh();
  static_cast<MarkHeader*>(table_->verticalHeader())->refresh();
  placeColumns();
  markOrder();
  showCurrent();
  report();
}

// A filter of the state that was waiting for it takes effect.
void GridView::keysRead(bool anew) {
  if (anew && arrangement().states != 0) arrange(arrangement());
}

// The recordset's cursor may be moved without the grid.
void GridView::afterEvent() {
  if (!live() || model_.held()) return;
  // What a form opened by the event has stored besides the rows is not known here.
  if (std::exchange(closed_, window().frontEnd().formsClosed()) != window().frontEnd().formsClosed())
    keys_.again();
  showCurrent();
  report();
}

void GridView::showCurrent() { table_->setCurrent(model_.viewRow(static_cast<int>(grid_.row()) - 1)); }

void GridView::report() {
  if (live() && onChange) onChange();
}

bool GridView::currentHidden() const {
  return live() && grid_.row() > 0 && !model_.held() && model_.viewRow(static_cast<int>(grid_.row()) - 1) < 0;
}

void GridView::arrange(const Arrangement& by) {
  if (!live() || model_.held()) return;
  const std::vector<std::uint32_t> before = highlightedRows();
  const int column = table_->currentIndex().column();
  model_.arrange(by);
  QList<int> rows;
  for (const std::uint32_t row : before) {
    const int place = model_.viewRow(static_cast<int>(row));
    if (place >= 0) rows += place;
  }
  std::sort(rows.begin(), rows.end());
  const int current = model_.viewRow(static_cast<int>(grid_.row()) - 1);
  table_->setHighlighted(current < 0 ? QList<int>() : rows, current, column);
  // Without a row to stay at, the rows are seen from the first one.
  if (current < 0) table_->scrollToTop();
  markOrder();
  report();
}

// Ascending, descending, the order of the rows.
void GridView::sortBy(int column) {
  if (!live() || column < 0 || !sortable(grid_, model_.column(column))) return;
  const std::string& field = model_.column(column).field;
  Arrangement by = arrangement();
  if (by.field != field) {
    by.field = field;
    by.descending = false;
  } else if (!by.descending) {
    by.descending = true;
  } else {
    by.field.clear();
    by.descending = false;
  }
  arrange(by);
}

void GridView::markOrder() {
  const auto column = arrangement().sorts() ? model_.columnOf(arrangement().field) : std::nullopt;
  for (QHeaderView* header : {table_->horizontalHeader(), table_->frozen().horizontalHeader()}) {
    static_cast<WrappedHeader*>(header)->setSorted(column.value_or(-1), arrangement().descending);
  }
}

int GridView::widthOf(int column) const {
  const GridColumn& of = model_.column(column);
  const int kept = memory_.width(shown(of.field));
  if (kept > 0) return kept;
  // A caption is never cut: its longest word fits, and the count of all rows.
  QString caption = shown(of.caption);
  if (countOnly(caption)) caption = unbroken(QStringLiteral("[ %1 ]").arg(model_.gridRows()));
  int words = 0;
  for (const QString& word : caption.split(u' ')) {
    words = std::max(words, table_->horizontalHeader()->fontMetrics().horizontalAdvance(word) + 14);
  }
  // Nor are the texts of the first rows, up to a limit.
  constexpr int kSample = 60;
  constexpr int kWidest = 300;
  int texts = 0;
  for (int row = 0; of.type == kGridText && row < std::min(kSample, model_.gridRows()); ++row) {
    const QString text = model_.textAt(row, column);
    texts = std::max(texts, table_->fontMetrics().horizontalAdvance(text) + 12);
  }
  // The model's own width is measured for numbers of normal letters.
  const int own = of.width / kFormUnitsPerPixel;
  return std::max({of.type == kGridText ? own : inLetters(own), words, std::min(texts, inLetters(kWidest))});
}

void GridView::placeColumns() {
  QString columns;
  for (const GridColumn& column : grid_.columns()) columns += shown(column.field) + u'|';
  // The rows are loaded after the columns: widths are computed again when the first rows are there.
  columns += model_.gridRows() > 0 ? u'1' : u'0';
  if (columns == placed_) return;
  placed_ = columns;
  placing_ = true;
  QHeaderView& header = *table_->horizontalHeader();
  for (int i = 0; i < model_.columnCount(); ++i) {
    const bool hidden = mayHide(i) && memory_.hidden().contains(shown(model_.column(i).field));
    table_->setColumnHidden(i, hidden || !model_.column(i).visible);
    table_->setColumnWidth(i, widthOf(i));
  }
  int place = 0;
  for (const QString& field : memory_.order()) {
    const auto column = model_.columnOf(utf8(field));
    if (column) header.moveSection(header.visualIndex(*column), place++);
  }
  static_cast<WrappedHeader&>(header).fitHeight();
  placing_ = false;
  table_->frozen().place();
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
  const std::size_t wanted = formRow(row);
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
  const std::size_t chosen = formRow(row);
  if (!live() || chosen == grid_.row()) return;
  act([this, chosen] {
    if (mayChoose(chosen)) grid_.selectRow(chosen);
  });
}

void GridView::cellPressed(int row, int column) {
  if (!live()) return;
  const std::string field = model_.column(column).field;
  const std::size_t pressed = formRow(row);
  act([&] {
    if (mayChoose(pressed)) grid_.press(pressed, field);
  });
}

// A press beside the columns is in none.
void GridView::headerPressed(int column) {
  if (!live() || column < 0) return;
  const std::string field = model_.column(column).field;
  act([&] { grid_.press(0, field); });
}

void GridView::doubleClicked(int row) { openRow(formRow(row)); }

void GridView::openRow(std::size_t row) {
  if (!live()) return;
  // What was said of another row would be taken for this one's.
  window().frontEnd().forgetFacts();
  act([this, row] {
    if (mayChoose(row)) grid_.doubleClick(row);
  });
}

// The table keeps its current row while the grid's rows are filtered to one.
std::size_t GridView::rowBeside(int step) const {
  const int current = table_->currentIndex().row();
  return current < 0 ? 0 : formRow(current + step);
}

std::size_t GridView::formRow(int row) const { return static_cast<std::size_t>(model_.gridRow(row)) + 1; }

std::vector<std::uint32_t> GridView::highlightedRows() const {
  std::vector<std::uint32_t> rows;
  for (const QItemSelectionRange& range : table_->selectionModel()->selection()) {
    for (int row = range.top(); row <= range.bottom(); ++row) {
      const int of = model_.gridRow(row);
      if (of >= 0) rows.push_back(static_cast<std::uint32_t>(of));
    }
  }
  std::sort(rows.begin(), rows.end());
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  return rows;
}

std::vector<std::size_t> GridView::highlighted() const {
  const std::vector<std::uint32_t> rows = highlightedRows();
  if (rows.size() < 2) return {};
  std::vector<std::size_t> positions;
  positions.reserve(rows.size());
  for (const std::uint32_t row : rows) positions.push_back(row + std::size_t{1});
  return positions;
}

bool GridView::keyDown(std::int16_t code, std::int16_t shift) {
  if (!live()) return false;
  // On a row that is not in view nothing is done by mistake.
  if (currentHidden() && (code == Qt::Key_Space || code == kDelete)) return true;
  bool consumed = false;
  window().act(grid_, [&] {
    grid_.highlight(highlighted());
    consumed = grid_.keyDown(code, shift);
  });
  if (live()) grid_.highlight({});
  return consumed;
}

void GridView::openRowMenu() {
  const int row = table_->currentIndex().row();
  if (!live() || row < 0) return;
  for (int column = 0; column < model_.columnCount(); ++column) {
    if (!model_.isMenu(column)) continue;
    cellPressed(row, column);
    return;
  }
}

int GridView::searchColumn() const {
  for (int column = 0; column < model_.columnCount(); ++column) {
    if (model_.column(column).visible && model_.column(column).type == kGridText) return column;
  }
  return -1;
}

RowFound GridView::search(const QString& text, bool following) {
  if (!live() || searchColumn() < 0) return {};
  const int current = table_->currentIndex().row();
  RowFound found = following ? findNextRow(model_, text, searchColumn(), current)
                             : findRow(model_, text, searchColumn(), std::max(0, current));
  if (found.row < 0) return found;
  // Only the row changes: the focus stays where it is.
  FormWindow& shownIn = window();
  shownIn.act([&] { grid_.selectRow(formRow(found.row)); });
  return found;
}

}  // namespace cu::desktop
