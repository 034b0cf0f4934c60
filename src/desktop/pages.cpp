#include "desktop/pages.h"

#include <poppler-qt6.h>

#include <QFile>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "desktop/text.h"

namespace cu::desktop {
namespace {

constexpr double kInch = 72;  // points
constexpr double kSmallest = 30;
constexpr double kLargest = 400;
constexpr double kStep = 1.25;
constexpr QColor kMarkInk(0xB3, 0x26, 0x1E);

}  // namespace

Pages::Pages(const QString& spoken, QWidget* parent)
    : QStackedWidget(parent),
      area_(new QScrollArea(this)),
      picture_(new QLabel(this)),
      text_(new QPlainTextEdit(this)),
      words_(new QLabel(this)) {
  area_->setWidget(picture_);
  area_->setAlignment(Qt::AlignCenter);
  area_->setBackgroundRole(QPalette::Mid);
  area_->setAccessibleName(spoken);
  area_->setFocusPolicy(Qt::StrongFocus);
  area_->installEventFilter(this);
  text_->setReadOnly(true);
  text_->setLineWrapMode(QPlainTextEdit::NoWrap);
  text_->setAccessibleName(QStringLiteral("Testo della pagina"));
  text_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  words_->setWordWrap(true);
  words_->setTextFormat(Qt::PlainText);
  words_->setAlignment(Qt::AlignCenter);
  words_->setMargin(8);
  addWidget(area_);
  addWidget(text_);
  addWidget(words_);
  draw();
}

Pages::~Pages() = default;

void Pages::open(const QString& file, std::vector<std::string> texts) {
  document_.reset();
  // Read as a whole: the file may be gone while its pages are shown.
  QFile source(file);
  if (!file.isEmpty() && source.open(QIODevice::ReadOnly)) {
    document_ = Poppler::Document::loadFromData(source.readAll());
  }
  if (document_ != nullptr && document_->isLocked()) document_.reset();
  if (document_ != nullptr) {
    document_->setRenderHint(Poppler::Document::Antialiasing);
    document_->setRenderHint(Poppler::Document::TextAntialiasing);
  }
  texts_ = std::move(texts);
  asText_ = document_ == nullptr;
  sentence_.clear();
  mark_.reset();
  page_ = std::clamp(page_, 0, std::max(0, pages() - 1));
  draw();
}

void Pages::say(const QString& sentence) {
  document_.reset();
  texts_.clear();
  mark_.reset();
  sentence_ = sentence;
  draw();
}

int Pages::pages() const {
  return document_ != nullptr ? document_->numPages() : static_cast<int>(texts_.size());
}

void Pages::setAsText(bool asText) {
  asText_ = asText || document_ == nullptr;
  draw();
}

void Pages::go(int page) {
  page_ = std::clamp(page, 0, std::max(0, pages() - 1));
  draw();
  area_->verticalScrollBar()->setValue(0);
}

void Pages::zoom(double factor) {
  scale_ = std::clamp((scale_ > 0 ? scale_ : drawn_) * factor, kSmallest, kLargest);
  draw();
}

void Pages::larger() { zoom(kStep); }
void Pages::smaller() { zoom(1 / kStep); }

void Pages::fitWidth() {
  scale_ = 0;
  draw();
}

void Pages::draw() {
  const bool any = pages() > 0;
  const auto at = static_cast<std::size_t>(page_);
  const QString text = at < texts_.size() ? lines(texts_[at]) : QString();
  text_->setPlainText(text);
  picture_->setAccessibleDescription(mark_ && mark_->page == page_
                                         ? QStringLiteral("Casella segnata: %1\n").arg(mark_->spoken) + text
                                         : text);
  words_->setText(sentence_);
  if (!any) {
    setCurrentWidget(words_);
  } else if (asText_) {
    setCurrentWidget(text_);
  } else {
    setCurrentWidget(area_);
    drawPicture();
  }
  if (changed) changed();
}

void Pages::drawPicture() {
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
  if (mark_ && mark_->page == page_) drawMark(image);
  picture_->setPixmap(QPixmap::fromImage(image));
  picture_->resize(image.deviceIndependentSize().toSize());
}

void Pages::drawMark(QImage& image) const {
  const double scale = drawn_ / kInch;
  const QRectF place(mark_->place.topLeft() * scale, mark_->place.size() * scale);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  constexpr double kThick = 3;
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(kMarkInk, kThick));
  painter.drawRect(place.adjusted(-1, -1, 1, 1));
  // An arrow on the left, or on the right where the page has no room.
  const double size = std::clamp(place.height() / 2, 8.0, 16.0);
  const bool left = place.left() > size + kThick;
  const double tip = left ? place.left() - kThick : place.right() + kThick;
  const double back = left ? tip - size : tip + size;
  const double middle = place.center().y();
  painter.setPen(Qt::NoPen);
  painter.setBrush(kMarkInk);
  painter.drawPolygon(QPolygonF({{tip, middle}, {back, middle - size * 0.6}, {back, middle + size * 0.6}}));
}

void Pages::setMark(const std::optional<Mark>& mark) {
  mark_ = mark;
  if (mark_ && document_ != nullptr) page_ = std::clamp(mark_->page, 0, std::max(0, pages() - 1));
  draw();
  scrollToMark();
}

void Pages::scrollToMark() {
  if (!mark_ || mark_->page != page_) return;
  const double scale = drawn_ / kInch;
  const QPointF middle = mark_->place.center() * scale;
  constexpr int kAround = 24;
  area_->ensureVisible(static_cast<int>(middle.x()), static_cast<int>(middle.y()),
                       static_cast<int>(mark_->place.width() * scale / 2) + kAround,
                       static_cast<int>(mark_->place.height() * scale / 2) + kAround);
}

QRectF Pages::seen() const {
  if (document_ == nullptr || drawn_ <= 0) return {};
  const double scale = kInch / drawn_;
  const QPointF corner(area_->horizontalScrollBar()->value(), area_->verticalScrollBar()->value());
  return {corner * scale, QSizeF(area_->viewport()->size()) * scale};
}

bool Pages::key(int key) {
  switch (key) {
    case Qt::Key_PageDown:
      go(page_ + 1);
      return true;
    case Qt::Key_PageUp:
      go(page_ - 1);
      return true;
    case Qt::Key_Home:
      go(0);
      return true;
    case Qt::Key_End:
      go(pages() - 1);
      return true;
    case Qt::Key_Plus:
      larger();
      return true;
    case Qt::Key_Minus:
      smaller();
      return true;
    case Qt::Key_0:
      fitWidth();
      return true;
    default:
      return false;
  }
}

bool Pages::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && key(static_cast<QKeyEvent*>(event)->key())) return true;
  return QStackedWidget::eventFilter(watched, event);
}

void Pages::resizeEvent(QResizeEvent* event) {
  QStackedWidget::resizeEvent(event);
  // The page's space is known after the layout.
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (scale_ > 0 || pages() == 0 || asText_) return;
        draw();
        scrollToMark();
      },
      Qt::QueuedConnection);
}

}  // namespace cu::desktop
