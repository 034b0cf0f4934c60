#include "desktop/page_view.h"

#include <poppler-qt6.h>

#include <QFile>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QToolButton>
#include <algorithm>

#include "desktop/text.h"

namespace cu::desktop {
namespace {

constexpr double kInch = 72;  // points
constexpr double kSmallest = 30;
constexpr double kLargest = 400;
constexpr double kStep = 1.25;

}  // namespace

PageView::PageView(QWidget* parent)
    : QWidget(parent),
      views_(new QStackedWidget(this)),
      area_(new QScrollArea(this)),
      picture_(new QLabel(this)),
      words_(new QLabel(this)),
      place_(new QLabel(this)) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  auto* row = new QHBoxLayout;
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
  backward_ = {button("◀", "Pagina precedente (Pag su)", [this] { go(page_ - 1); })};
  row->addWidget(place_);
  forward_ = {button("▶", "Pagina seguente (Pag giù)", [this] { go(page_ + 1); })};
  row->addStretch(1);
  sizes_ = {button("+", "Ingrandisci (+)", [this] { zoom(kStep); }),
            button("−", "Riduci (-)", [this] { zoom(1 / kStep); }),
            button("Larghezza", "Larga come il riquadro (0)", [this] { fitWidth(); })};
  area_->setWidget(picture_);
  area_->setAlignment(Qt::AlignCenter);
  area_->setBackgroundRole(QPalette::Mid);
  area_->setAccessibleName(QStringLiteral("Modulo"));
  area_->setFocusPolicy(Qt::StrongFocus);
  area_->installEventFilter(this);
  words_->setWordWrap(true);
  words_->setTextFormat(Qt::PlainText);
  words_->setAlignment(Qt::AlignCenter);
  words_->setMargin(8);
  views_->addWidget(area_);
  views_->addWidget(words_);
  views_->setMinimumHeight(fontMetrics().height() * 9);
  column->addWidget(views_, 1);
  draw();
}

PageView::~PageView() = default;

void PageView::open(const QString& file, const std::vector<std::string>& texts) {
  QFile source(file);
  document_.reset();
  if (source.open(QIODevice::ReadOnly)) document_ = Poppler::Document::loadFromData(source.readAll());
  if (document_ == nullptr) {
    say(QStringLiteral("Il modulo non si può mostrare."));
    return;
  }
  document_->setRenderHint(Poppler::Document::Antialiasing);
  document_->setRenderHint(Poppler::Document::TextAntialiasing);
  texts_ = texts;
  sentence_.clear();
  page_ = std::clamp(page_, 0, std::max(0, pages() - 1));
  draw();
}

void PageView::say(const QString& sentence) {
  document_.reset();
  texts_.clear();
  sentence_ = sentence;
  draw();
}

int PageView::pages() const { return document_ == nullptr ? 0 : document_->numPages(); }

void PageView::go(int page) {
  page_ = std::clamp(page, 0, std::max(0, pages() - 1));
  draw();
  area_->verticalScrollBar()->setValue(0);
}

void PageView::zoom(double factor) {
  scale_ = std::clamp((scale_ > 0 ? scale_ : drawn_) * factor, kSmallest, kLargest);
  draw();
}

void PageView::fitWidth() {
  scale_ = 0;
  draw();
}

void PageView::draw() {
  const bool any = pages() > 0;
  place_->setText(any ? QStringLiteral("Pagina %1 di %2").arg(page_ + 1).arg(pages()) : QString());
  for (QToolButton* each : backward_) each->setEnabled(page_ > 0 && any);
  for (QToolButton* each : forward_) each->setEnabled(page_ + 1 < pages());
  for (QToolButton* each : sizes_) each->setEnabled(any);
  words_->setText(sentence_);
  views_->setCurrentWidget(any ? static_cast<QWidget*>(area_) : words_);
  if (!any) return;
  const auto at = static_cast<std::size_t>(page_);
  picture_->setAccessibleDescription(at < texts_.size() ? lines(texts_[at]) : QString());
  const std::unique_ptr<Poppler::Page> page = document_->page(page_);
  if (page == nullptr) return;
  const double ratio = devicePixelRatioF();
  drawn_ = scale_;
  if (drawn_ <= 0) {
    const int room = area_->width() - area_->verticalScrollBar()->sizeHint().width() - 8;
    drawn_ = std::clamp(room * kInch / page->pageSizeF().width(), kSmallest, kLargest);
  }
  QImage image = page->renderToImage(drawn_ * ratio, drawn_ * ratio);
  image.setDevicePixelRatio(ratio);
  picture_->setPixmap(QPixmap::fromImage(image));
  picture_->resize(image.size() / ratio);
}

bool PageView::key(int key) {
  switch (key) {
    case Qt::Key_PageDown:
      go(page_ + 1);
      return true;
    case Qt::Key_PageUp:
      go(page_ - 1);
      return true;
    case Qt::Key_Plus:
      zoom(kStep);
      return true;
    case Qt::Key_Minus:
      zoom(1 / kStep);
      return true;
    case Qt::Key_0:
      fitWidth();
      return true;
    default:
      return false;
  }
}

bool PageView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && key(static_cast<QKeyEvent*>(event)->key())) return true;
  return QWidget::eventFilter(watched, event);
}

void PageView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  // The page's space is known after the layout.
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (scale_ <= 0) draw();
      },
      Qt::QueuedConnection);
}

}  // namespace cu::desktop
