#include "desktop/page_wait.h"

#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

namespace cu::desktop {
namespace {

constexpr int kUnnoticed = 150;  // milliseconds

}  // namespace

PageWait::PageWait(QWidget* over) : QFrame(over), what_(new QLabel(this)) {
  setObjectName(QStringLiteral("attesaPagina"));
  setAutoFillBackground(true);
  setFrameShape(QFrame::StyledPanel);
  auto* column = new QVBoxLayout(this);
  auto* bar = new QProgressBar(this);
  bar->setRange(0, 0);
  bar->setTextVisible(false);
  bar->setAccessibleName(QStringLiteral("Lavoro in corso"));
  column->addWidget(what_);
  column->addWidget(bar);
  patience_.setSingleShot(true);
  patience_.setInterval(kUnnoticed);
  connect(&patience_, &QTimer::timeout, this, [this] { appear(); });
  hide();
}

void PageWait::begin(const QString& what) {
  what_->setText(what);
  if (!isVisible() && !patience_.isActive()) patience_.start();
}

void PageWait::end() {
  patience_.stop();
  hide();
}

void PageWait::appear() {
  if (onShown) onShown();
  adjustSize();
  const QSize room = parentWidget()->size();
  move((room.width() - width()) / 2, (room.height() - height()) / 3);
  show();
  raise();
}

}  // namespace cu::desktop
