#include "desktop/totals_table.h"

#include <QGridLayout>
#include <algorithm>

#include "desktop/grid_drawing.h"
#include "desktop/text.h"

namespace cu::desktop {
namespace {

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
  auto* const table = new QGridLayout(this);
  table->setContentsMargins(0, 0, 0, 0);
  table->setHorizontalSpacing(18);
  table->setVerticalSpacing(0);
  names_ = {QStringLiteral("Righe"), capital(shown(grid.subjects))};
  for (const RowSum& sum : grid.sums) names_.push_back(capital(shown(sum.name)));
  for (std::size_t row = 0; row < cells_.size(); ++row) {
    const QString title = row == 0 ? QString() : QString::fromUtf8(kTotalled[row - 1]);
    table->addWidget(new QLabel(title, this), static_cast<int>(row), 0);
    for (std::size_t column = 0; column < names_.size(); ++column) {
      auto* const cell = new QLabel(row == 0 ? names_[column] : QString(), this);
      cell->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
      cell->setTextFormat(Qt::PlainText);
      if (row > 0) cell->setTextInteractionFlags(Qt::TextSelectableByMouse);
      table->addWidget(cell, static_cast<int>(row), static_cast<int>(column) + 1);
      cells_.at(row).push_back(cell);
    }
  }
  table->setColumnStretch(static_cast<int>(names_.size()) + 1, 1);
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
}

void TotalsTable::setHighlighted(const RowTotals& totals) { showRow(2, totals); }

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
