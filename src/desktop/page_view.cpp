#include "desktop/page_view.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace cu::desktop {

PageView::PageView(QWidget* parent)
    : QWidget(parent), pages_(new Pages(QStringLiteral("Modulo"), this)), place_(new QLabel(this)) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  auto* row = new QHBoxLayout;
  row->setSpacing(2);
  column->addLayout(row);
  const auto button = [&](const char* mark, const char* name, auto action) {
    auto* made = new QToolButton(this);
    made->setText(QString::fromUtf8(mark));
    made->setAccessibleName(QString::fromUtf8(name));
    made->setToolTip(QString::fromUtf8(name));
    made->setAutoRaise(true);
    made->setFocusPolicy(Qt::TabFocus);
    connect(made, &QToolButton::clicked, this, action);
    row->addWidget(made);
    return made;
  };
  backward_ = button("◀", "Pagina precedente (Pag su)", [this] { pages_->go(pages_->page() - 1); });
  row->addWidget(place_);
  forward_ = button("▶", "Pagina seguente (Pag giù)", [this] { pages_->go(pages_->page() + 1); });
  row->addStretch(1);
  sizes_ = {button("+", "Ingrandisci (+)", [this] { pages_->larger(); }),
            button("−", "Riduci (-)", [this] { pages_->smaller(); }),
            button("↔", "Larga come il riquadro (0)", [this] { pages_->fitWidth(); })};
  pages_->setMinimumHeight(fontMetrics().height() * 9);
  column->addWidget(pages_, 1);
  pages_->changed = [this] { tell(); };
  tell();
}

void PageView::tell() {
  const bool any = pages_->pages() > 0;
  place_->setText(any ? QStringLiteral("Pagina %1 di %2").arg(pages_->page() + 1).arg(pages_->pages())
                      : QString());
  backward_->setEnabled(any && pages_->page() > 0);
  forward_->setEnabled(pages_->page() + 1 < pages_->pages());
  for (QToolButton* each : sizes_) each->setEnabled(any && !pages_->asText());
}

}  // namespace cu::desktop
