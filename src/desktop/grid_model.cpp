#include "desktop/grid_model.h"

#include <algorithm>
#include <array>
#include <utility>

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
  const bool another = rows != rows_ || !sameColumns(columns_, grid_->columns());
  if (another) beginResetModel();
  columns_ = grid_->columns();
  rows_ = rows;
  fields_.assign(columns_.size(), Columns::kNone);
  if (rows_ > 0) {
    const Columns& fields = grid_->rows()->Fields();
    for (std::size_t i = 0; i < columns_.size(); ++i) fields_[i] = fields.find(columns_[i].field);
    cells_.resize(fields.size());
  }
  if (another) {
    endResetModel();
    return;
  }
  if (columns_.empty()) return;
  const int last = static_cast<int>(columns_.size()) - 1;
  emit headerDataChanged(Qt::Horizontal, 0, last);
  if (rows_ > 0) emit dataChanged(index(0, 0), index(rows_ - 1, last));
}

bool GridModel::held() const {
  return grid_ != nullptr && (!grid_->drawing() || grid_->rowCount() != static_cast<std::size_t>(rows_));
}

int GridModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

const CellView& GridModel::cell(int row, int column) const {
  static const CellView kNull{};
  const std::size_t field = fields_[static_cast<std::size_t>(column)];
  if (field == Columns::kNone) return kNull;
  if (cached_ != row) {
    grid_->rows()->Peek(static_cast<std::size_t>(row) + 1, cells_.data());
    cached_ = row;
  }
  return cells_[field];
}

bool GridModel::isFlag(int at) const { return column(at).type == kGridBoolean; }
bool GridModel::isMenu(int at) const { return column(at).caption.empty() && column(at).visible; }

std::optional<int> GridModel::columnOf(std::string_view field) const {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (columns_[i].field == field) return static_cast<int>(i);
  }
  return std::nullopt;
}

QString GridModel::text(int row, int at) const {
  if (grid_ == nullptr || row < 0 || row >= rows_ || static_cast<std::size_t>(row) >= grid_->rowCount())
    return {};
  return shown(grid_->shown(column(at), cell(row, at)));
}

bool GridModel::flag(int row, int at) const { return drawn(row, at).flag; }

GridModel::Drawn GridModel::drawn(int row, int at) const {
  if (grid_ == nullptr || row < 0 || row >= rows_) return {};
  const qint64 place = static_cast<qint64>(row) * columnCount() + at;
  if (held()) {
    const auto found = drawn_.constFind(place);
    return found != drawn_.constEnd() ? *found : drawnBefore_.value(place);
  }
  Drawn now{text(row, at)};
  if (isFlag(at)) {
    const CellView& value = cell(row, at);
    now.flag = !value.isNull() && value.flag();
  }
  if (drawn_.size() >= kDrawnCells) drawnBefore_ = std::exchange(drawn_, {});
  drawn_.insert(place, now);
  return now;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  switch (role) {
    case Qt::DisplayRole:
      return drawn(index.row(), index.column()).text;
    case Qt::TextAlignmentRole:
      return QVariant(aligned(column(index.column()).alignment));
    case Qt::AccessibleTextRole: {
      if (isMenu(index.column())) return QStringLiteral("Menu della riga");
      // The caption of a flag may be a count, which does not describe the row.
      const QString caption = isFlag(index.column()) && countOnly(shown(column(index.column()).caption))
                                  ? QStringLiteral("Selezione")
                                  : shown(column(index.column()).caption);
      return caption + QStringLiteral(": ") + text(index.row(), index.column());
    }
    case Qt::ToolTipRole:
      return isMenu(index.column()) ? QStringLiteral("Menu della riga")
                                    : meaning(index.row(), index.column());
    default:
      return {};
  }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section >= static_cast<int>(columns_.size())) return {};
  switch (role) {
    case Qt::DisplayRole:
      return shown(column(section).caption);
    case Qt::TextAlignmentRole:
      return QVariant(aligned(column(section).alignment));
    case Qt::AccessibleTextRole:
      return isMenu(section) ? QStringLiteral("Menu della riga") : shown(column(section).caption);
    default:
      return {};
  }
}

int GridModel::find(const QString& what, int at, int from) const {
  const QString wanted = folded(what);
  if (wanted.isEmpty() || rows_ == 0 || grid_ == nullptr) return -1;
  int further = -1;
  for (int step = 0; step < rows_; ++step) {
    const int row = (from + step) % rows_;
    const qsizetype found = folded(text(row, at)).indexOf(wanted);
    if (found == 0) return row;
    if (found > 0 && further < 0) further = row;
  }
  return further;
}

int GridModel::findNext(const QString& what, int at, int row) const {
  const QString wanted = folded(what);
  if (wanted.isEmpty() || rows_ == 0 || grid_ == nullptr) return -1;
  enum Kind : std::size_t { Begins, Has, Lacks };
  const auto kindOf = [&](int of) {
    const qsizetype found = folded(text(of, at)).indexOf(wanted);
    if (found < 0) return Lacks;
    return found == 0 ? Begins : Has;
  };
  const Kind here = row < 0 || row >= rows_ ? Lacks : kindOf(row);
  if (here == Lacks) return find(what, at, row + 1);
  std::array<int, 3> first{-1, -1, -1};
  for (int of = 0; of < rows_; ++of) {
    const Kind kind = of == row ? here : kindOf(of);
    if (kind == here && of > row) return of;
    if (first.at(kind) < 0) first.at(kind) = of;
  }
  const int other = first.at(here == Begins ? Has : Begins);
  return other >= 0 ? other : first.at(here);
}

QString GridModel::meaning(int row, int at) const {
  if (grid_ == nullptr || !grid_->meaning) return {};
  return sentenceTip(shown(grid_->meaning(column(at), utf8(text(row, at)))));
}

}  // namespace cu::desktop
