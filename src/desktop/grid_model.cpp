#include "desktop/grid_model.h"

#include <QGuiApplication>
#include <algorithm>
#include <array>
#include <utility>

#include "desktop/grid_drawing.h"
#include "desktop/table_style.h"
#include "desktop/text.h"

namespace cu::desktop {
namespace {

constexpr int kRight = 1;
constexpr int kCentre = 2;
constexpr qsizetype kDrawnCells = 8192;  // more than a screen has

bool sameColumns(const std::vector<GridColumn>& a, const std::vector<GridColumn>& b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (a[i].field != b[i].field || a[i].visible != b[i].visible) return false;
  }
  return true;
}

Qt::Alignment aligned(int alignment) {
  if (alignment == kRight) return Qt::AlignRight | Qt::AlignVCenter;
  if (alignment == kCentre) return Qt::AlignCenter;
  return Qt::AlignLeft | Qt::AlignVCenter;
}

}  // namespace

bool countOnly(const QString& caption) {
  return !caption.isEmpty() &&
         std::none_of(caption.begin(), caption.end(), [](QChar c) { return c.isLetter(); });
}

QString unbroken(const QString& caption) { return QString(caption).replace(u' ', QChar::Nbsp); }

GridModel::GridModel(Grid& grid, QObject* parent) : QAbstractTableModel(parent), grid_(&grid) { refresh(); }

void GridModel::refresh() {
  if (grid_ == nullptr || !grid_->drawing()) return;
  cached_ = -1;
  drawn_.clear();
  drawnBefore_.clear();
  const auto rows = static_cast<int>(grid_->rowCount());
  const bool others = binding_ != grid_->binding() && by_.any();
  const bool another = others || rows != rows_ || !sameColumns(columns_, grid_->columns());
  binding_ = grid_->binding();
  if (another) beginResetModel();
  columns_ = grid_->columns();
  rows_ = rows;
  fields_.assign(columns_.size(), Columns::kNone);
  reader_.reset();
  if (rows_ > 0) {
    const Columns& fields = grid_->rows()->Fields();
    for (std::size_t i = 0; i < columns_.size(); ++i) fields_[i] = fields.find(columns_[i].field);
    cells_.resize(fields.size());
    reader_.emplace(*grid_);
  }
  if (another) {
    order();
    endResetModel();
    return;
  }
  if (columns_.empty()) return;
  const int last = static_cast<int>(columns_.size()) - 1;
  emit headerDataChanged(Qt::Horizontal, 0, last);
  const int inView = rowsInView();
  if (inView > 0) emit dataChanged(index(0, 0), index(inView - 1, last));
}

// A column or a state that is not there at present does not arrange anything, but stays wanted.
Arrangement GridModel::present() const {
  Arrangement by = by_;
  const auto column = columnOf(by.field);
  if (!column || !sortable(*grid_, this->column(*column))) by.field.clear();
  for (std::size_t i = 0; i < grid_->states.size(); ++i) {
    if (!exists(*grid_, grid_->states[i])) by.states &= ~(1U << i);
  }
  return by;
}

void GridModel::order() {
  const Arrangement by = present();
  inOrder_ = !by.any();
  order_.clear();
  places_.clear();
  if (inOrder_) return;
  order_ = arranged(*grid_, by);
  places_.assign(static_cast<std::size_t>(rows_), -1);
  for (std::size_t i = 0; i < order_.size(); ++i) places_[order_[i]] = static_cast<std::int32_t>(i);
}

void GridModel::arrange(const Arrangement& by) {
  by_ = by;
  if (grid_ == nullptr || held()) return;
  beginResetModel();
  order();
  endResetModel();
}

int GridModel::gridRow(int row) const {
  if (row < 0 || row >= rowCount()) return -1;
  return inOrder_ ? row : static_cast<int>(order_[static_cast<std::size_t>(row)]);
}

int GridModel::viewRow(int gridRow) const {
  if (gridRow < 0 || gridRow >= rows_) return -1;
  return inOrder_ ? gridRow : places_[static_cast<std::size_t>(gridRow)];
}

std::vector<bool> GridModel::inView() const {
  std::vector<bool> seen;
  if (allInView()) return seen;
  for (const std::int32_t place : places_) seen.push_back(place >= 0);
  return seen;
}

std::size_t GridModel::outdated() const {
  if (grid_ == nullptr || held() || !by_.filters() || inOrder_) return 0;
  Arrangement by = present();
  by.field.clear();
  std::vector<bool> now(static_cast<std::size_t>(rows_));
  for (const std::uint32_t row : arranged(*grid_, by)) now[row] = true;
  std::size_t rows = 0;
  for (std::size_t i = 0; i < now.size(); ++i) rows += now[i] == (places_[i] >= 0) ? 0U : 1U;
  return rows;
}

bool GridModel::held() const {
  return grid_ != nullptr && (!grid_->drawing() || grid_->rowCount() != static_cast<std::size_t>(rows_));
}

int GridModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rowsInView(); }

int GridModel::rowsInView() const { return inOrder_ ? rows_ : static_cast<int>(order_.size()); }

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

bool GridModel::readable(int row) const {
  return grid_ != nullptr && row >= 0 && row < rows_ && static_cast<std::size_t>(row) < grid_->rowCount();
}

const CellView* GridModel::cells(int row) const {
  if (cached_ != row) {
    grid_->rows()->Peek(static_cast<std::size_t>(row) + 1, cells_.data());
    cached_ = row;
  }
  return cells_.data();
}

const CellView& GridModel::cell(int row, int column) const {
  static const CellView kNull{};
  const std::size_t field = fields_[static_cast<std::size_t>(column)];
  return field == Columns::kNone ? kNull : cells(row)[field];
}

bool GridModel::isFlag(int at) const { return column(at).type == kGridBoolean; }
bool GridModel::isMenu(int at) const { return column(at).caption.empty() && column(at).visible; }

std::optional<int> GridModel::columnOf(std::string_view field) const {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (columns_[i].field == field) return static_cast<int>(i);
  }
  return std::nullopt;
}

QString GridModel::text(int row, int at) const { return textAt(gridRow(row), at); }

QString GridModel::textAt(int row, int at) const {
  return readable(row) ? shown(grid_->shown(column(at), cell(row, at))) : QString();
}

Value GridModel::value(int row, int at) const {
  const int of = gridRow(row);
  if (!readable(of)) return {};
  const CellView& stored = cell(of, at);
  if (stored.isNull()) return {};
  if (column(at).type == kGridDouble) return Value::ofDecimal(stored.decimal());
  const bool number = stored.type() == ValueType::Integer && !isFlag(at);
  return number || stored.type() == ValueType::Date ? Value::of(stored) : Value::ofText(utf8(text(row, at)));
}

bool GridModel::flag(int row, int at) const { return drawn(gridRow(row), at).flag; }

const GridModel::Drawn* GridModel::remembered(qint64 place) const {
  auto found = drawn_.constFind(place);
  if (found != drawn_.constEnd()) return &*found;
  found = drawnBefore_.constFind(place);
  return found == drawnBefore_.constEnd() ? nullptr : &*found;
}

void GridModel::remember(qint64 place, const Drawn& drawn) const {
  if (drawn_.size() >= kDrawnCells) drawnBefore_ = std::exchange(drawn_, {});
  drawn_.insert(place, drawn);
}

GridModel::Drawn GridModel::drawn(int row, int at) const {
  if (grid_ == nullptr || row < 0 || row >= rows_) return {};
  const qint64 place = static_cast<qint64>(row) * columnCount() + at;
  if (held()) {
    const Drawn* const before = remembered(place);
    return before != nullptr ? *before : Drawn();
  }
  Drawn now{textAt(row, at)};
  if (isFlag(at)) {
    const CellView& value = cell(row, at);
    now.flag = !value.isNull() && value.flag();
  }
  remember(place, now);
  return now;
}

std::uint32_t GridModel::states(int row) const {
  const int of = gridRow(row);
  if (of < 0 || grid_ == nullptr || grid_->states.empty() || !reader_) return 0;
  const qint64 place = -1 - qint64{of};
  if (held()) {
    const Drawn* const before = remembered(place);
    return before != nullptr ? before->states : 0;
  }
  const Drawn now{{}, false, reader_->states(cells(of))};
  remember(place, now);
  return now.states;
}

QStringList GridModel::stateNames(int row) const {
  QStringList names;
  const std::uint32_t on = states(row);
  for (std::size_t i = 0; on >> i != 0 && grid_ != nullptr; ++i) {
    if ((on >> i & 1U) != 0 && grid_->states[i].mark != RowMark::None) names += shown(grid_->states[i].name);
  }
  return names;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  switch (role) {
    case Qt::DisplayRole:
      return drawn(gridRow(index.row()), index.column()).text;
    case Qt::TextAlignmentRole:
      return QVariant(aligned(column(index.column()).alignment));
    case Qt::AccessibleTextRole: {
      if (isMenu(index.column())) return QStringLiteral("Menu della riga");
      // The caption of a flag may be a count, which does not describe the row.
      const QString caption = isFlag(index.column()) && countOnly(shown(column(index.column()).caption))
                                  ? QStringLiteral("Selezione")
                                  : shown(column(index.column()).caption);
      QStringList told{caption + QStringLiteral(": ") + text(index.row(), index.column())};
      if (isFlag(index.column()) && index.column() == 0) told += stateNames(index.row());
      return told.join(QStringLiteral(", "));
    }
    case Qt::ForegroundRole:
      return foreground(index.row(), index.column());
    case Qt::ToolTipRole:
      return isMenu(index.column()) ? QStringLiteral("Menu della riga")
                                    : meaning(index.row(), index.column());
    default:
      return {};
  }
}

// A zero is paler than an amount, and still to be read.
QVariant GridModel::foreground(int row, int at) const {
  if (column(at).type != kGridDouble) return {};
  const bool zero = showsZero(drawn(gridRow(row), at).text);
  return zero ? QVariant(paleInk(QGuiApplication::palette())) : QVariant();
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Vertical) return rowHeader(section, role);
  if (orientation != Qt::Horizontal || section >= static_cast<int>(columns_.size())) return {};
  switch (role) {
    case Qt::DisplayRole:
      return shown(column(section).caption);
    case Qt::TextAlignmentRole:
      return QVariant(aligned(column(section).alignment));
    case Qt::AccessibleTextRole: {
      if (isMenu(section)) return QStringLiteral("Menu della riga");
      const QString caption = shown(column(section).caption);
      if (column(section).field != by_.field) return caption;
      return caption + (by_.descending ? QStringLiteral(", in ordine decrescente")
                                       : QStringLiteral(", in ordine crescente"));
    }
    default:
      return {};
  }
}

QVariant GridModel::rowHeader(int row, int role) const {
  if (role != Qt::AccessibleTextRole && role != Qt::ToolTipRole) return {};
  if (role == Qt::AccessibleTextRole || grid_ == nullptr) return stateNames(row).join(QStringLiteral(", "));
  QStringList meanings;
  const std::uint32_t on = states(row);
  for (std::size_t i = 0; on >> i != 0; ++i) {
    const RowState& state = grid_->states[i];
    if ((on >> i & 1U) != 0 && state.mark != RowMark::None) meanings += shown(state.meaning);
  }
  return sentenceTip(meanings.join(u' '));
}

const std::vector<SearchedField>& GridModel::searched() const {
  static const std::vector<SearchedField> kNone;
  return grid_ == nullptr || held() ? kNone : grid_->searched;
}

QString GridModel::fieldText(int row, std::string_view field) const {
  const int of = gridRow(row);
  if (!readable(of)) return {};
  const std::size_t at = grid_->rows()->Fields().find(field);
  return at == Columns::kNone ? QString() : shown(cells(of)[at].toText()).trimmed();
}

QString GridModel::meaning(int row, int at) const {
  if (grid_ == nullptr || !grid_->meaning) return {};
  return sentenceTip(shown(grid_->meaning(column(at), utf8(text(row, at)))));
}

}  // namespace cu::desktop
