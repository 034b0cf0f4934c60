#include "desktop/row_steps.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QShortcut>
#include <QToolButton>

#include "controls/grid.h"
#include "desktop/form_window.h"
#include "desktop/grid_view.h"
#include "desktop/qt_front_end.h"
#include "desktop/text.h"

namespace cu::desktop {

RowSteps* RowSteps::of(FormWindow& window, QWidget* parent) {
  auto* const below = dynamic_cast<FormWindow*>(window.parentWidget());
  if (below == nullptr || !below->live() || !window.form().rowWork()) return nullptr;
  // The event that has opened the form was one of the grid, which has the focus since.
  auto* const grid = dynamic_cast<Grid*>(below->form().focus());
  if (grid == nullptr || below->view(*grid) == nullptr) return nullptr;
  return new RowSteps(window, *below, static_cast<GridView&>(*below->view(*grid)), parent);
}

RowSteps::RowSteps(FormWindow& window, FormWindow& below, GridView& grid, QWidget* parent)
    : QWidget(parent),
      window_(window),
      below_(below),
      grid_(grid),
      before_(button(-1)),
      place_(new QLabel(this)),
      after_(button(1)) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  for (QWidget* each :
       {static_cast<QWidget*>(before_), static_cast<QWidget*>(place_), static_cast<QWidget*>(after_)}) {
    row->addWidget(each);
  }
  const GridTable& table = grid.table();
  place_->setText(
      QStringLiteral("Riga %1 di %2").arg(table.currentIndex().row() + 1).arg(table.model()->rowCount()));
}

QToolButton* RowSteps::button(int step) {
  const bool back = step < 0;
  const QString row = back ? QStringLiteral("riga precedente") : QStringLiteral("riga successiva");
  const int key = back ? Qt::Key_PageUp : Qt::Key_PageDown;
  auto* made = new QToolButton(this);
  made->setObjectName(back ? QStringLiteral("rigaPrecedente") : QStringLiteral("rigaSuccessiva"));
  made->setText(back ? QStringLiteral("◀ Precedente") : QStringLiteral("Successiva ▶"));
  made->setAccessibleName(QStringLiteral("OK e ") + row);
  // A tab stop would be one that the form does not have: the keys reach both.
  made->setFocusPolicy(Qt::NoFocus);
  made->setPopupMode(QToolButton::MenuButtonPopup);
  auto* menu = new QMenu(made);
  const auto add = [&](const char* through, const QKeySequence& keys, Through how) {
    QAction* const action = menu->addAction(QString::fromUtf8(through) + row);
    action->setShortcut(keys);
    action->setToolTip(action->text() + u' ' + u'(' + keys.toString(QKeySequence::NativeText) + u')');
    action->setEnabled(grid_.rowBeside(step) != 0);
    window_.addAction(action);
    // Without a row the keys would reach what scrolls behind them.
    if (!action->isEnabled())
      connect(new QShortcut(keys, &window_), &QShortcut::activated, this, [] { QApplication::beep(); });
    connect(action, &QAction::triggered, this, [this, step, how] { go(step, how); });
    return action;
  };
  const QAction* const ok = add("OK e ", QKeySequence(Qt::CTRL | static_cast<Qt::Key>(key)), Through::Ok);
  add("Annulla e ", QKeySequence(Qt::CTRL | Qt::SHIFT | static_cast<Qt::Key>(key)), Through::Cancel);
  made->setMenu(menu);
  made->setToolTip(ok->toolTip());
  made->setEnabled(grid_.rowBeside(step) != 0);
  connect(made, &QToolButton::clicked, this, [this, step] { go(step, Through::Ok); });
  return made;
}

void RowSteps::go(int step, Through button) {
  const std::size_t row = grid_.rowBeside(step);
  if (!window_.live() || window_.frontEnd().busy() || !below_.live() || row == 0) return;
  Form& form = window_.form();
  Button* const pressed = button == Through::Ok ? form.defaultButton : form.cancelButton;
  if (pressed == nullptr || !pressed->available()) return;
  below_.afterwards([&grid = grid_, row] { grid.openRow(row); });
  window_.act(*pressed, [&] {
    const bool discards = button == Through::Cancel;
    if (!discards || window_.frontEnd().mayDrop(form, form.rowWork().value_or(std::string())))
      pressed->click();
  });
  if (window_.live()) below_.afterwards({});
}

}  // namespace cu::desktop
