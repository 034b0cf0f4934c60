#include "desktop/preview_dialog.h"

#include <poppler-qt6.h>

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <algorithm>

#include "desktop/text.h"

namespace cu::desktop {
namespace {

constexpr double kPointsPerInch = 72;
constexpr double kLeast = 30;
constexpr double kMost = 400;
constexpr double kZoom = 1.25;

}  // namespace

PreviewDialog::PreviewDialog(QWidget* parent, const Preview& preview)
    : QDialog(parent),
      preview_(preview),
      views_(new QStackedWidget(this)),
      area_(new QScrollArea(this)),
      picture_(new QLabel(this)),
      text_(new QPlainTextEdit(this)),
      place_(new QLabel(this)) {
  setWindowTitle(preview.title.empty() ? QStringLiteral("Anteprima")
                                       : QStringLiteral("Anteprima - ") + shown(preview.title));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  open();

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
  backward_ = {button("&Prima", [this] { go(0); }), button("&Indietro", [this] { go(page_ - 1); })};
  row->addWidget(place_);
  forward_ = {button("&Avanti", [this] { go(page_ + 1); }), button("&Ultima", [this] { go(pages() - 1); })};
  row->addStretch(1);
  QPushButton* const larger = button("In&grandisci", [this] { zoom(kZoom); });
  QPushButton* const smaller = button("&Riduci", [this] { zoom(1 / kZoom); });
  QPushButton* const fit = button("&Larghezza", [this] { fitWidth(); });
  QPushButton* const words = button("&Testo", [this] {
    asText_ = !asText_;
    draw();
  });
  for (QPushButton* each : {larger, smaller, fit}) each->setVisible(document_ != nullptr);
  words->setVisible(document_ != nullptr && !preview.pages.empty());
  button("&Chiudi", [this] { accept(); });

  area_->setWidget(picture_);
  area_->setAlignment(Qt::AlignCenter);
  area_->setBackgroundRole(QPalette::Mid);
  area_->setAccessibleName(QStringLiteral("Pagina"));
  text_->setReadOnly(true);
  text_->setLineWrapMode(QPlainTextEdit::NoWrap);
  text_->setAccessibleName(QStringLiteral("Testo della pagina"));
  QFont fixed(QStringLiteral("monospace"));
  fixed.setStyleHint(QFont::Monospace);
  text_->setFont(fixed);
  views_->addWidget(area_);
  views_->addWidget(text_);
  column->addWidget(views_, 1);
  const QSize room = QGuiApplication::primaryScreen()->availableSize();
  resize(std::min(920, room.width() - 40), std::min(1080, room.height() - 60));
  go(0);
}

PreviewDialog::~PreviewDialog() = default;

void PreviewDialog::open() {
  if (!preview_.file.empty()) document_ = Poppler::Document::load(shown(preview_.file));
  if (document_ != nullptr && document_->isLocked()) document_.reset();
  if (document_ != nullptr) {
    document_->setRenderHint(Poppler::Document::Antialiasing);
    document_->setRenderHint(Poppler::Document::TextAntialiasing);
  }
  asText_ = document_ == nullptr;
}

int PreviewDialog::pages() const {
  return document_ != nullptr ? document_->numPages() : static_cast<int>(preview_.pages.size());
}

void PreviewDialog::go(int page) {
  page_ = std::clamp(page, 0, std::max(0, pages() - 1));
  draw();
  area_->verticalScrollBar()->setValue(0);
}

void PreviewDialog::zoom(double factor) {
  if (scale_ <= 0) scale_ = picture_->property("scale").toDouble();
  scale_ = std::clamp(scale_ * factor, kLeast, kMost);
  draw();
}

void PreviewDialog::fitWidth() {
  scale_ = 0;
  draw();
}

void PreviewDialog::draw() {
  place_->setText(QStringLiteral("Pagina %1 di %2").arg(pages() == 0 ? 0 : page_ + 1).arg(pages()));
  for (QWidget* each : backward_) each->setEnabled(page_ > 0);
  for (QWidget* each : forward_) each->setEnabled(page_ + 1 < pages());
  const auto at = static_cast<std::size_t>(page_);
  text_->setPlainText(at < preview_.pages.size() ? lines(preview_.pages[at]) : QString());
  picture_->setAccessibleDescription(text_->toPlainText());
  views_->setCurrentWidget(asText_ ? static_cast<QWidget*>(text_) : area_);
  if (document_ == nullptr || pages() == 0) return;
  const std::unique_ptr<Poppler::Page> page = document_->page(page_);
  if (page == nullptr) return;
  const double ratio = devicePixelRatioF();
  double scale = scale_;
  if (scale <= 0) {
    const int room = area_->width() - area_->verticalScrollBar()->sizeHint().width() - 8;
    scale = std::clamp(room * kPointsPerInch / page->pageSizeF().width(), kLeast, kMost);
  }
  QImage image = page->renderToImage(scale * ratio, scale * ratio);
  image.setDevicePixelRatio(ratio);
  picture_->setProperty("scale", scale);
  picture_->setPixmap(QPixmap::fromImage(image));
  picture_->resize(image.size() / ratio);
}

void PreviewDialog::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_PageDown:
      go(page_ + 1);
      return;
    case Qt::Key_PageUp:
      go(page_ - 1);
      return;
    case Qt::Key_Home:
      go(0);
      return;
    case Qt::Key_End:
      go(pages() - 1);
      return;
    case Qt::Key_Plus:
      zoom(kZoom);
      return;
    case Qt::Key_Minus:
      zoom(1 / kZoom);
      return;
    default:
      QDialog::keyPressEvent(event);
  }
}

void PreviewDialog::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  // The page's space is known after the layout.
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (scale_ <= 0) draw();
      },
      Qt::QueuedConnection);
}

}  // namespace cu::desktop
