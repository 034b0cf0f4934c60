#include "desktop/preview_dialog.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <algorithm>

#include "desktop/text.h"

namespace cu::desktop {

PreviewDialog::PreviewDialog(QWidget* parent, const Preview& preview)
    : QDialog(parent), pages_(new Pages(QStringLiteral("Pagina"), this)), place_(new QLabel(this)) {
  setWindowTitle(preview.title.empty() ? QStringLiteral("Anteprima")
                                       : QStringLiteral("Anteprima - ") + shown(preview.title));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  pages_->open(shown(preview.file), preview.pages);

  auto* column = new QVBoxLayout(this);
  auto* row = new QHBoxLayout;
  column->addLayout(row);
  const auto button = [&](const char* caption, auto action) {
    auto* made = new QPushButton(QString::fromUtf8(caption), this);
    made->setAutoDefault(false);
    connect(made, &QPushButton::clicked, this, action);
    row->addWidget(made);
    return made;
  };
  backward_ = {button("&Prima", [this] { pages_->go(0); }),
               button("&Indietro", [this] { pages_->go(page() - 1); })};
  row->addWidget(place_);
  forward_ = {button("&Avanti", [this] { pages_->go(page() + 1); }),
              button("&Ultima", [this] { pages_->go(pages() - 1); })};
  row->addStretch(1);
  QPushButton* const larger = button("In&grandisci", [this] { pages_->larger(); });
  QPushButton* const smaller = button("&Riduci", [this] { pages_->smaller(); });
  QPushButton* const fit = button("&Larghezza", [this] { pages_->fitWidth(); });
  QPushButton* const words = button("&Testo", [this] { pages_->setAsText(!pages_->asText()); });
  for (QPushButton* each : {larger, smaller, fit}) each->setVisible(pages_->pictures());
  words->setVisible(pages_->pictures() && pages_->hasTexts());
  button("&Chiudi", [this] { accept(); });
  column->addWidget(pages_, 1);
  const QSize room = QGuiApplication::primaryScreen()->availableSize();
  resize(std::min(920, room.width() - 40), std::min(1080, room.height() - 60));
  pages_->changed = [this] { tell(); };
  pages_->go(0);
}

void PreviewDialog::tell() {
  place_->setText(QStringLiteral("Pagina %1 di %2").arg(pages() == 0 ? 0 : page() + 1).arg(pages()));
  for (QWidget* each : backward_) each->setEnabled(page() > 0);
  for (QWidget* each : forward_) each->setEnabled(page() + 1 < pages());
}

void PreviewDialog::keyPressEvent(QKeyEvent* event) {
  if (!pages_->key(event->key())) QDialog::keyPressEvent(event);
}

}  // namespace cu::desktop
