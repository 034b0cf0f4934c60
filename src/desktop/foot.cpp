#include "desktop/foot.h"

#include <QHBoxLayout>

namespace cu::desktop {

Foot::Foot(QWidget* parent) : QWidget(parent), words_(new QLabel(this)), bar_(new QProgressBar(this)) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(12, 3, 12, 4);
  row->addWidget(words_, 1);
  row->addWidget(bar_);
  bar_->setFixedWidth(220);
  bar_->setFixedHeight(14);
  bar_->setTextVisible(false);
  bar_->setAccessibleName(QStringLiteral("Avanzamento"));
  words_->setAccessibleDescription(QStringLiteral("Stato"));
  // The bar keeps its place when there is nothing to show, so that nothing jumps.
  QSizePolicy place = bar_->sizePolicy();
  place.setRetainSizeWhenHidden(true);
  bar_->setSizePolicy(place);
  rest();
}

void Foot::tell(const QString& what, std::size_t done, std::size_t total) {
  working_ = true;
  QString words = what;
  if (total > 0) {
    words += QStringLiteral(": %L1 di %L2").arg(done).arg(total);
    bar_->setRange(0, 100);
    bar_->setValue(static_cast<int>(done * 100 / total));
  } else {
    bar_->setRange(0, 0);
  }
  words_->setText(words);
  bar_->setVisible(true);
}

void Foot::rest() {
  working_ = false;
  words_->setText(QStringLiteral("Pronto"));
  bar_->setRange(0, 100);
  bar_->reset();
  bar_->setVisible(false);
}

}  // namespace cu::desktop
