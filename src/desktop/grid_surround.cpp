#include "desktop/grid_surround.h"

#include <QHBoxLayout>
#include <QLabel>
#include <utility>

#include "desktop/elided_line.h"
#include "desktop/form_window.h"
#include "desktop/grid_filter.h"
#include "desktop/grid_view.h"
#include "desktop/qt_front_end.h"
#include "desktop/quick_search.h"
#include "desktop/text.h"
#include "desktop/totals_table.h"

namespace cu::desktop {
namespace {

constexpr int kFollowPause = 40;  // milliseconds without a change, after which the totals are shown

std::string withHidden(std::size_t rows, bool chosen) {
  if (rows == 1) {
    return chosen ? "È stata scelta anche una riga nascosta dal filtro."
                  : "Non è più scelta anche una riga nascosta dal filtro.";
  }
  const std::string number = utf8(QStringLiteral("%L1").arg(rows));
  return chosen ? "Sono state scelte anche " + number + " righe nascoste dal filtro."
                : "Non sono più scelte anche " + number + " righe nascoste dal filtro.";
}

}  // namespace

GridSurround::GridSurround(FormWindow& window, GridView& grid, QWidget* parent)
    : QObject(parent),
      window_(window),
      grid_(grid),
      parent_(parent),
      box_(new FilterBox(grid, parent)),
      seen_(new ElidedLine(parent)),
      states_(new StateRow(grid, parent)),
      totals_(new TotalsTable(grid.grid(), parent)),
      pause_(new QTimer(this)) {
  seen_->setObjectName(QStringLiteral("righeInVista"));
  pause_->setSingleShot(true);
  pause_->setInterval(kFollowPause);
  connect(pause_, &QTimer::timeout, this, [this] { follow(); });
  grid.onChange = [this] { pause_->start(); };
  box_->onFilter = [this] { filter(); };
  states_->onFilter = [this] { filter(); };
}

void GridSurround::addAbove(QBoxLayout& column) {
  auto* const row = new QHBoxLayout;
  auto* const search = new QuickSearch(grid_, parent_);
  const auto add = [&](const QString& caption, QWidget* box) {
    auto* const label = new QLabel(caption, parent_);
    label->setBuddy(box);
    row->addWidget(label);
    row->addWidget(box, 1);
  };
  add(QStringLiteral("C&erca percipiente"), search);
  row->addWidget(search->note());
  row->addSpacing(12);
  add(QStringLiteral("Fi&ltra"), box_);
  row->addSpacing(12);
  row->addWidget(seen_, 2);
  column.addLayout(row);
  column.addWidget(states_);
  const Grid& grid = grid_.grid();
  window_.addExtra(search, grid);
  window_.addExtra(box_, grid);
  for (QWidget* button : states_->buttons()) window_.addExtra(button, grid);
}

void GridSurround::addBelow(QBoxLayout& column) { column.addWidget(totals_); }

void GridSurround::filter() {
  Arrangement by = grid_.arrangement();
  by.words = box_->text();
  by.states = states_->chosen();
  hiddenChosen_.reset();
  revision_.reset();
  grid_.arrange(by);
}

// While the rows are held they are not read: their end is a change.
void GridSurround::follow() {
  if (!grid_.live() || grid_.model().held()) return;
  const Grid& grid = grid_.grid();
  if (std::exchange(binding_, grid.binding()) != grid.binding()) {
    hiddenChosen_.reset();
    revision_.reset();
  }
  if (std::exchange(revision_, grid.revision()) != grid.revision()) {
    const GridTotals totals = totalsOf(grid, grid_.model().inView());
    states_->setCounts(totals);
    totals_->setTotals(totals);
    outdated_ = grid_.model().outdated();
    tellHidden(totals.hiddenChosen);
  }
  totals_->setHighlighted(totalsOf(grid, grid_.highlightedRows()));
  seen_->setWhole(inView());
}

// Choosing all rows means all, also those that a filter hides.
void GridSurround::tellHidden(std::size_t hiddenChosen) {
  const auto before = std::exchange(hiddenChosen_, hiddenChosen);
  if (!before || *before == hiddenChosen) return;
  const bool more = hiddenChosen > *before;
  window_.frontEnd().toldAfter(withHidden(more ? hiddenChosen - *before : *before - hiddenChosen, more));
}

QString GridSurround::inView() const {
  if (!grid_.arrangement().filters()) return {};
  const GridModel& model = grid_.model();
  QString text = model.rowCount() == 1
                     ? QStringLiteral("1 riga su %L1").arg(model.gridRows())
                     : QStringLiteral("%L1 righe su %L2").arg(model.rowCount()).arg(model.gridRows());
  if (grid_.currentHidden()) text += QStringLiteral("; la riga corrente non è fra queste");
  if (outdated_ == 1)
    text += QStringLiteral("; una non risponde più al filtro: Invio nella casella lo riapplica");
  if (outdated_ > 1) {
    text +=
        QStringLiteral("; %L1 non rispondono più al filtro: Invio nella casella lo riapplica").arg(outdated_);
  }
  return text;
}

}  // namespace cu::desktop
