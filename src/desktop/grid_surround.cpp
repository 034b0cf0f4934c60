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

// `also`: rows in view have changed too.
std::string withHidden(std::size_t rows, bool chosen, bool also) {
  const QString whether = also ? QStringLiteral("anche ") : QString();
  if (rows == 1) {
    return utf8((chosen ? QStringLiteral("È stata scelta %1una riga nascosta dal filtro.")
                        : QStringLiteral("Non è più scelta %1una riga nascosta dal filtro."))
                    .arg(whether));
  }
  return utf8((chosen ? QStringLiteral("Sono state scelte %1%L2 righe nascoste dal filtro.")
                      : QStringLiteral("Non sono più scelte %1%L2 righe nascoste dal filtro."))
                  .arg(whether)
                  .arg(rows));
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
    row->addWidget(box, 2);
  };
  add(QStringLiteral("C&erca percipiente"), search);
  row->addWidget(search->note());
  row->addSpacing(12);
  add(QStringLiteral("Fi&ltra"), box_);
  row->addSpacing(12);
  row->addWidget(seen_, 3);
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
  chosen_.reset();
  revision_.reset();
  grid_.arrange(by);
}

// While the rows are held they are not read: their end is a change.
void GridSurround::follow() {
  if (!grid_.live() || grid_.model().held()) return;
  const Grid& grid = grid_.grid();
  if (std::exchange(binding_, grid.binding()) != grid.binding()) {
    chosen_.reset();
    revision_.reset();
  }
  if (std::exchange(revision_, grid.revision()) != grid.revision()) {
    const GridTotals totals = totalsOf(grid, grid_.model().inView());
    states_->setCounts(totals);
    totals_->setTotals(totals);
    outdated_ = grid_.model().outdated();
    tellHidden(totals);
  }
  totals_->setHighlighted(totalsOf(grid, grid_.highlightedRows()));
  seen_->setWhole(inView());
}

// Choosing all rows means all, also those that a filter hides.
void GridSurround::tellHidden(const GridTotals& totals) {
  const Chosen now{totals.hiddenChosen, totals.chosen.rows - totals.hiddenChosen};
  const auto before = std::exchange(chosen_, now);
  if (!before || before->hidden == now.hidden) return;
  const bool more = now.hidden > before->hidden;
  window_.frontEnd().toldAfter(withHidden(more ? now.hidden - before->hidden : before->hidden - now.hidden,
                                          more, now.inView != before->inView));
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
