#include "desktop/change_mark.h"

#include <QAbstractButton>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPainterPath>
#include <memory>
#include <utility>

#include "desktop/look.h"
#include "desktop/text.h"

namespace cu::desktop {
namespace {

constexpr int kBar = 3;
constexpr int kGap = 1;  // between bar and box
constexpr int kCorner = 8;

}  // namespace

ChangeMark::ChangeMark(QWidget& cell, QWidget& box, std::function<void(const Event&)> enter)
    : QWidget(&cell),
      cell_(cell),
      box_(box),
      restore_(new QAction(QStringLiteral("&Ripristina il valore dei conti"), &box)) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  restore_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_R));
  restore_->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  restore_->setEnabled(false);
  box.addAction(restore_);
  box.installEventFilter(this);
  connect(restore_, &QAction::triggered, this, [this, enter = std::move(enter)] {
    if (loaded_ && loaded_->enter) enter(Event(loaded_->enter));
  });
  hide();
}

QString ChangeMark::description() const {
  if (!loaded_) return {};
  const QString text = shown(loaded_->text).trimmed();
  return QStringLiteral("Modificata. Nei conti: ") + (text.isEmpty() ? QStringLiteral("vuota") : text);
}

void ChangeMark::tell(std::optional<Control::Loaded> loaded) {
  const QString before = description();
  loaded_ = std::move(loaded);
  const bool canEnter = loaded_ && loaded_->enter;
  if (restore_->isEnabled() != canEnter) restore_->setEnabled(canEnter);
  const QString now = description();
  if (now == before && isHidden() == !loaded_) return;
  // The tooltip of the cell is shown for its box, too, unless that has one of its own.
  cell_.setToolTip(
      now.isEmpty() ? QString()
                    : sentenceTip(now + (canEnter ? QStringLiteral(" (Ctrl+R la ripristina)") : QString())));
  setVisible(loaded_.has_value());
  if (loaded_) follow();
}

void ChangeMark::follow() {
  setGeometry(QRect(box_.mapTo(&cell_, QPoint()), box_.size()).adjusted(-kBar - kGap, 0, 0, 0));
  raise();
}

void ChangeMark::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(look::changedInk());
  painter.drawRoundedRect(QRectF(0, 1, kBar, height() - 2), 1, 1);
  // The corner would cover the mark of a check box.
  if (qobject_cast<QAbstractButton*>(&box_) != nullptr) return;
  QPainterPath corner(QPointF(kBar + kGap, 0));
  corner.lineTo(kBar + kGap + kCorner, 0);
  corner.lineTo(kBar + kGap, kCorner);
  corner.closeSubpath();
  painter.drawPath(corner);
}

bool ChangeMark::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
      if (!isHidden()) follow();
      break;
    case QEvent::ContextMenu:
      openMenu(static_cast<QContextMenuEvent*>(event)->globalPos());
      return true;
    default:
      break;
  }
  return QWidget::eventFilter(watched, event);
}

void ChangeMark::openMenu(const QPoint& at) {
  auto* const line = qobject_cast<QLineEdit*>(&box_);
  const std::unique_ptr<QMenu> menu(line != nullptr ? line->createStandardContextMenu() : new QMenu(&box_));
  menu->addSeparator();
  menu->addAction(restore_);
  menu->exec(at);
}

}  // namespace cu::desktop
