#include "desktop/totals_table.h"

#include <algorithm>

#include "desktop/grid_drawing.h"
#include "desktop/text.h"

namespace cu::desktop {
namespace {

constexpr int kColumnGap = 18;
constexpr int kBandGap = 4;
constexpr const char* kTotalled[] = {"Scelte", "Evidenziate", "Tutte"};

QString capital(const QString& name) { return name.left(1).toUpper() + name.mid(1); }

QString amount(const Grid& grid, const std::optional<Decimal>& sum) {
  if (!sum) return QStringLiteral("fuori misura");
  const Value value = Value::ofDecimal(*sum);
  return shown(grid.shown({.field = {}, .caption = {}, .type = kGridDouble}, value.view()));
}

}  // namespace

TotalsTable::TotalsTable(const Grid& grid, QWidget* parent) : QWidget(parent), grid_(grid) {
  setObjectName(QStringLiteral("totali"));
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
  names_ = {QStringLiteral("Righe"), capital(shown(grid.subjects))};
  for (const RowSum& sum : grid.sums) names_.push_back(capital(shown(sum.name)));
  titles_.push_back(newTitles());
  for (std::size_t row = 0; row < cells_.size(); ++row) {
    for (const QString& name : names_) {
      auto* const cell = new QLabel(row == 0 ? name : QString(), this);
      cell->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
      cell->setTextFormat(Qt::PlainText);
      if (row > 0) cell->setTextInteractionFlags(Qt::TextSelectableByMouse);
      cells_.at(row).push_back(cell);
    }
  }
}

std::vector<QLabel*> TotalsTable::newTitles() {
  std::vector<QLabel*> titles;
  for (const char* const title : kTotalled) titles.push_back(new QLabel(QString::fromUtf8(title), this));
  return titles;
}

int TotalsTable::lineHeight() const { return titles_.front().front()->sizeHint().height(); }

int TotalsTable::titleWidth() const {
  int width = 0;
  for (const QLabel* title : titles_.front()) width = std::max(width, title->sizeHint().width());
  return width;
}

int TotalsTable::widthOf(std::size_t column) const {
  int width = 0;
  for (const auto& row : cells_) width = std::max(width, row[column]->sizeHint().width());
  return width;
}

std::vector<TotalsTable::Placed> TotalsTable::placed(int width) const {
  std::vector<Placed> columns;
  const int first = titleWidth() + kColumnGap;
  int band = 0;
  int left = first;
  for (std::size_t column = 0; column < names_.size(); ++column) {
    if (cells_.front()[column]->isHidden()) continue;
    const int wide = widthOf(column);
    if (left > first && left + wide > width) {
      ++band;
      left = first;
    }
    columns.push_back({column, band, left, wide});
    left += wide + kColumnGap;
  }
  return columns;
}

QSize TotalsTable::sizeHint() const {
  const std::vector<Placed> columns = placed(QWIDGETSIZE_MAX);
  const int width = columns.empty() ? titleWidth() : columns.back().left + columns.back().width;
  return {width, static_cast<int>(cells_.size()) * lineHeight()};
}

QSize TotalsTable::minimumSizeHint() const {
  int widest = 0;
  for (const Placed& each : placed(QWIDGETSIZE_MAX)) widest = std::max(widest, each.width);
  return {titleWidth() + kColumnGap + widest, static_cast<int>(cells_.size()) * lineHeight()};
}

int TotalsTable::heightForWidth(int width) const {
  const std::vector<Placed> columns = placed(width);
  const int bands = columns.empty() ? 1 : columns.back().band + 1;
  return bands * static_cast<int>(cells_.size()) * lineHeight() + (bands - 1) * kBandGap;
}

void TotalsTable::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  place();
}

void TotalsTable::place() {
  const std::vector<Placed> columns = placed(width());
  const int height = lineHeight();
  const int bandHeight = static_cast<int>(cells_.size()) * height + kBandGap;
  const int bands = columns.empty() ? 1 : columns.back().band + 1;
  while (static_cast<int>(titles_.size()) < bands) titles_.push_back(newTitles());
  for (std::size_t band = 0; band < titles_.size(); ++band) {
    for (std::size_t row = 0; row < titles_[band].size(); ++row) {
      QLabel& title = *titles_[band][row];
      title.setGeometry(0, static_cast<int>(band) * bandHeight + static_cast<int>(row + 1) * height,
                        titleWidth(), height);
      title.setVisible(static_cast<int>(band) < bands);
    }
  }
  for (const Placed& each : columns) {
    for (std::size_t row = 0; row < cells_.size(); ++row) {
      cells_.at(row)[each.column]->setGeometry(
          each.left, each.band * bandHeight + static_cast<int>(row) * height, each.width, height);
    }
  }
  bands_ = bands;
  updateGeometry();
}

void TotalsTable::setTotals(const GridTotals& totals) {
  showRow(1, totals.chosen);
  showRow(3, totals.all);
  for (std::size_t i = 0; i < grid_.sums.size(); ++i) {
    const bool there =
        std::any_of(grid_.columns().begin(), grid_.columns().end(),
                    [&](const GridColumn& column) { return column.field == grid_.sums[i].fields.front(); });
    for (const auto& row : cells_) row[i + 2]->setVisible(there);
  }
  place();
}

void TotalsTable::setHighlighted(const RowTotals& totals) {
  showRow(2, totals);
  place();
}

void TotalsTable::showRow(std::size_t row, const RowTotals& totals) {
  std::vector<QString> texts{QStringLiteral("%L1").arg(totals.rows),
                             QStringLiteral("%L1").arg(totals.subjects)};
  for (std::size_t i = 0; i < grid_.sums.size(); ++i) {
    texts.push_back(amount(grid_, i < totals.sums.size() ? totals.sums[i] : Decimal()));
  }
  for (std::size_t i = 0; i < texts.size(); ++i) {
    QLabel& cell = *cells_.at(row)[i];
    if (cell.text() == texts[i]) continue;
    cell.setText(texts[i]);
    cell.setAccessibleName(
        QStringLiteral("%1, %2: %3").arg(QString::fromUtf8(kTotalled[row - 1]), names_[i], texts[i]));
  }
}

QString TotalsTable::text(int row, int column) const {
  return cells_.at(static_cast<std::size_t>(row) + 1).at(static_cast<std::size_t>(column))->text();
}

}  // namespace cu::desktop
