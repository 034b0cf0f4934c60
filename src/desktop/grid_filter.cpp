#include "desktop/grid_filter.h"

#include <QKeyEvent>
#include <QLocale>
#include <algorithm>

#include "desktop/first_size.h"
#include "desktop/flow_row.h"
#include "desktop/follow_letters.h"
#include "desktop/grid_view.h"
#include "desktop/hint.h"
#include "desktop/row_marks.h"
#include "desktop/text.h"

namespace cu::desktop {
namespace {

constexpr int kFilterPause = 120;  // milliseconds without a key, after which the rows are filtered
constexpr int kWidestFilter = 320;

}  // namespace

FilterBox::FilterBox(GridView& grid, QWidget* parent)
    : QLineEdit(parent), grid_(grid), pause_(new QTimer(this)) {
  setObjectName(QStringLiteral("filtroRighe"));
  setAccessibleName(QStringLiteral("Filtra le righe"));
  setHint(*this, QStringLiteral("parole, importi"));
  setToolTip(
      sentenceTip(QStringLiteral("Mostra solo le righe che hanno, in una colonna qualsiasi, tutte le parole "
                                 "scritte. Non cambia la scelta.")));
  setClearButtonEnabled(true);
  followLetters(*this, [this] { setMaximumWidth(inLetters(kWidestFilter)); });
  pause_->setSingleShot(true);
  pause_->setInterval(kFilterPause);
  connect(this, &QLineEdit::textChanged, this, [this] { pause_->start(); });
  connect(pause_, &QTimer::timeout, this, [this] { filter(); });
}

void FilterBox::filter() {
  pause_->stop();
  if (onFilter) onFilter();
}

// Neither key is passed to the form, where Esc would offer to leave the program.
void FilterBox::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      filter();
      return;
    case Qt::Key_Escape:
      if (text().isEmpty()) {
        grid_.table().setFocus(Qt::OtherFocusReason);
      } else {
        clear();
        filter();
      }
      return;
    default:
      QLineEdit::keyPressEvent(event);
  }
}

StateButton::StateButton(const RowState& state, QWidget* parent)
    : QToolButton(parent), name_(shown(state.name)), meaning_(shown(state.meaning)), mark_(state.mark) {
  setObjectName(QStringLiteral("stato:") + name_);
  setCheckable(true);
  setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  setIcon(rowMarkIcon(state.mark));
  setIconSize({13, 13});
  setToolTip(sentenceTip(meaning_));
  setAccessibleDescription(meaning_);
  setFocusPolicy(Qt::ClickFocus);
  setCount(0);
}

// The mark is drawn in the colour of the text.
void StateButton::changeEvent(QEvent* event) {
  QToolButton::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) setIcon(rowMarkIcon(mark_));
}

void StateButton::setCount(std::size_t rows) {
  const QString text = QStringLiteral("%1 %L2").arg(name_).arg(rows);
  if (text == this->text()) return;
  setText(text);
  setAccessibleName(QStringLiteral("Solo le righe: %1, %L2").arg(name_).arg(rows));
}

void StateButton::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      click();
      return;
    case Qt::Key_Escape:
      if (onLeave) onLeave();
      return;
    case Qt::Key_Left:
    case Qt::Key_Right:
      if (onStep) onStep(event->key() == Qt::Key_Left ? -1 : 1);
      return;
    default:
      QToolButton::keyPressEvent(event);
  }
}

StateRow::StateRow(GridView& grid, QWidget* parent) : QWidget(parent), grid_(grid) {
  auto* row = new FlowRow(this);
  row->setContentsMargins(0, 0, 0, 0);
  for (const RowState& state : grid.grid().states) {
    auto* const button = new StateButton(state, this);
    const std::size_t at = buttons_.size();
    button->setVisible(exists(grid.grid(), state));
    button->onStep = [this, at](int by) { step(at, by); };
    button->onLeave = [this] { grid_.table().setFocus(Qt::OtherFocusReason); };
    connect(button, &QToolButton::toggled, this, [this] {
      if (onFilter) onFilter();
    });
    row->addWidget(button);
    buttons_.push_back(button);
  }
  if (!buttons_.empty()) buttons_.front()->setFocusPolicy(Qt::StrongFocus);
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

// The button reached is the tab stop.
void StateRow::step(std::size_t from, int by) {
  const std::size_t count = buttons_.size();
  for (std::size_t i = 1; i < count; ++i) {
    const std::size_t to = (from + (by > 0 ? i : count - i)) % count;
    if (buttons_[to]->isHidden()) continue;
    buttons_[from]->setFocusPolicy(Qt::ClickFocus);
    buttons_[to]->setFocusPolicy(Qt::StrongFocus);
    buttons_[to]->setFocus(Qt::TabFocusReason);
    return;
  }
}

void StateRow::setCounts(const GridTotals& totals) {
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    const bool there = exists(grid_.grid(), grid_.grid().states[i]);
    if (buttons_[i]->isHidden() == there) buttons_[i]->setVisible(there);
    if (i < totals.inState.size()) buttons_[i]->setCount(totals.inState[i]);
  }
}

std::uint32_t StateRow::chosen() const {
  std::uint32_t states = 0;
  for (std::size_t i = 0; i < buttons_.size(); ++i) states |= buttons_[i]->isChecked() ? 1U << i : 0U;
  return states;
}

}  // namespace cu::desktop
