#include "desktop/pages.h"

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

#include "desktop/page_wait.h"
#include "desktop/text.h"

namespace cu::desktop {
namespace {

constexpr double kZoomStep = 1.25;
constexpr QColor kMarkInk(0xB3, 0x26, 0x1E);
constexpr qint64 kSmallFile = 1 << 20;
constexpr int kSmallFileWait = 5000;  // milliseconds
constexpr int kDrawingWait = 40;      // without which the picture before would flicker
constexpr int kWheelStep = 120;

std::shared_ptr<const std::vector<std::string>> shared(std::vector<std::string> texts) {
  return std::make_shared<const std::vector<std::string>>(std::move(texts));
}

}  // namespace

Pages::Pages(const QString& spoken, QWidget* parent)
    : QStackedWidget(parent),
      texts_(shared({})),
      area_(new QScrollArea(this)),
      picture_(new QLabel(this)),
      text_(new QPlainTextEdit(this)),
      words_(new QLabel(this)),
      wait_(new PageWait(this)) {
  area_->setAccessibleName(spoken);
  arrange();
  draw();
}

Pages::~Pages() = default;

void Pages::arrange() {
  area_->setWidget(picture_);
  area_->setAlignment(Qt::AlignCenter);
  area_->setBackgroundRole(QPalette::Mid);
  area_->setFocusPolicy(Qt::StrongFocus);
  for (QWidget* each :
       {static_cast<QWidget*>(area_), area_->viewport(), static_cast<QWidget*>(text_), text_->viewport()})
    each->installEventFilter(this);
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
  wait_->onShown = [this] {
    // The page before is not left in place of the one that is named.
    if (pictures() && shownPage_ != page_) picture_->setPixmap({});
  };
}

void Pages::open(const QString& file, std::vector<std::string> texts) {
  source_.reset();
  pending_ = false;
  texts_ = shared(std::move(texts));
  image_ = {};
  sentence_.clear();
  mark_.reset();
  // Read as a whole: the file may be gone while its pages are shown.
  auto read = std::make_unique<QFile>(file);
  const bool readable = !file.isEmpty() && read->open(QIODevice::ReadOnly);
  const bool small = !readable || read->size() <= kSmallFile;
  source_ = std::make_unique<PageSource>(readable ? std::move(read) : nullptr, texts_);
  source_->onLoaded = [this] { loaded(); };
  source_->onPicture = [this](const PageSource::Picture& picture) { receive(picture); };
  source_->onFound = [this](const PageSource::Found& results) {
    if (found) found(results);
  };
  if (source_->waitLoaded(small ? kSmallFileWait : kDrawingWait)) {
    loaded();
  } else {
    asText_ = false;
    wait_->begin(QStringLiteral("Si apre il documento…"));
    draw();
  }
}

void Pages::loaded() {
  wait_->end();
  asText_ = !pictures();
  page_ = std::clamp(page_, 0, std::max(0, pages() - 1));
  if (mark_ && pictures()) page_ = std::clamp(mark_->page, 0, pages() - 1);
  draw();
  if (renewed) renewed();
}

void Pages::say(const QString& sentence) {
  source_.reset();
  pending_ = false;
  wait_->end();
  texts_ = shared({});
  image_ = {};
  mark_.reset();
  sentence_ = sentence;
  draw();
}

int Pages::pages() const { return pictures() ? source_->pages() : static_cast<int>(texts_->size()); }

void Pages::setAsText(bool asText) {
  const bool text = asText || !pictures();
  if (asText_ == text) return;
  asText_ = text;
  mark_.reset();
  draw();
  if (renewed) renewed();
}

void Pages::turn(int page, Corner corner) {
  page_ = std::clamp(page, 0, std::max(0, pages() - 1));
  corner_ = corner;
  text_->setExtraSelections({});
  draw();
  // The text is there at once.
  if (asText_) scrollToCorner();
}

void Pages::go(int page) { turn(page, Corner::Top); }

void Pages::zoom(double factor) {
  scale_ = std::clamp((scale_ > 0 ? scale_ : drawn_) * factor, kSmallestPage, kLargestPage);
  draw();
}

void Pages::larger() { zoom(kZoomStep); }
void Pages::smaller() { zoom(1 / kZoomStep); }

void Pages::fitWidth() {
  scale_ = 0;
  draw();
}

void Pages::draw() {
  const auto at = static_cast<std::size_t>(page_);
  const QString text = at < texts_->size() ? lines((*texts_)[at]) : QString();
  if (text_->toPlainText() != text) text_->setPlainText(text);
  picture_->setAccessibleDescription(mark_ && mark_->page == page_ ? mark_->spoken + u'\n' + text : text);
  words_->setText(sentence_);
  if (opening() || pages() == 0) {
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
  const int room = area_->width() - area_->verticalScrollBar()->sizeHint().width() - 8;
  const PageSource::Wanted wanted{page_, scale_, scale_ > 0 ? 0.0 : static_cast<double>(room),
                                  devicePixelRatioF()};
  if (!image_.isNull() && !pending_ && asked_ == wanted) {
    showPicture();
    return;
  }
  if (pending_ && asked_ == wanted) return;
  asked_ = wanted;
  pending_ = true;
  source_->want(wanted);
  if (!source_->wait(kDrawingWait)) wait_->begin(QStringLiteral("Si disegna la pagina %L1…").arg(page_ + 1));
}

void Pages::receive(const PageSource::Picture& picture) {
  if (picture.wanted != asked_ || !pending_) return;
  pending_ = false;
  wait_->end();
  if (picture.image.isNull()) {
    image_ = {};
    words_->setText(QStringLiteral("La pagina %L1 non si può disegnare.").arg(picture.wanted.page + 1));
    setCurrentWidget(words_);
    return;
  }
  image_ = picture.image;
  drawn_ = picture.dots;
  shownPage_ = picture.wanted.page;
  showPicture();
}

void Pages::showPicture() {
  QImage image = image_;
  if (mark_ && mark_->page == shownPage_) drawMark(image);
  picture_->setPixmap(QPixmap::fromImage(image));
  picture_->resize(image.deviceIndependentSize().toSize());
  scrollToCorner();
}

void Pages::drawMark(QImage& image) const {
  const double scale = drawn_ / kPointsPerInch;
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
  if (mark_ && pictures()) page_ = std::clamp(mark_->page, 0, std::max(0, pages() - 1));
  corner_ = mark_ ? Corner::Mark : Corner::Stay;
  draw();
}

void Pages::scrollToCorner() {
  QScrollBar& bar = asText_ ? *text_->verticalScrollBar() : *area_->verticalScrollBar();
  switch (std::exchange(corner_, Corner::Stay)) {
    case Corner::Stay:
      return;
    case Corner::Top:
      bar.setValue(bar.minimum());
      return;
    case Corner::Bottom:
      bar.setValue(bar.maximum());
      return;
    case Corner::Mark:
      scrollToMark();
      return;
  }
}

void Pages::scrollToMark() {
  if (!mark_ || mark_->page != shownPage_) return;
  const double scale = drawn_ / kPointsPerInch;
  const QPointF middle = mark_->place.center() * scale;
  constexpr int kAround = 24;
  area_->ensureVisible(static_cast<int>(middle.x()), static_cast<int>(middle.y()),
                       static_cast<int>(mark_->place.width() * scale / 2) + kAround,
                       static_cast<int>(mark_->place.height() * scale / 2) + kAround);
}

QRectF Pages::seen() const {
  if (!pictures() || drawn_ <= 0) return {};
  const double scale = kPointsPerInch / drawn_;
  const QPointF corner(area_->horizontalScrollBar()->value(), area_->verticalScrollBar()->value());
  return {corner * scale, QSizeF(area_->viewport()->size()) * scale};
}

void Pages::search(const QString& text) {
  if (source_ == nullptr) return;
  if (text.isEmpty()) {
    source_->stopSearch();
  } else {
    source_->search({text, page_, asText_});
  }
}

void Pages::showHit(const PageSource::Hit& hit, const QString& spoken) {
  if (!asText_) {
    setMark(Mark{hit.page, hit.place, spoken});
    return;
  }
  turn(hit.page, Corner::Stay);
  QTextCursor cursor(text_->document());
  cursor.setPosition(static_cast<int>(hit.from));
  cursor.setPosition(static_cast<int>(hit.from + hit.length), QTextCursor::KeepAnchor);
  text_->setTextCursor(cursor);
  // Without the keyboard focus a selection is pale.
  QTextEdit::ExtraSelection marked;
  marked.cursor = cursor;
  marked.format.setBackground(palette().highlight());
  marked.format.setForeground(palette().highlightedText());
  text_->setExtraSelections({marked});
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

// A text is scrolled first; where it ends, the keys turn the page.
bool Pages::scrollKey(int pressed, const QScrollBar& bar) {
  const bool turns = (pressed == Qt::Key_PageDown && bar.value() == bar.maximum()) ||
                     (pressed == Qt::Key_PageUp && bar.value() == bar.minimum());
  return turns && key(pressed);
}

// At the end of a page the wheel turns to the next one, and above its beginning to the end of the previous.
bool Pages::wheel(const QWheelEvent& event, const QScrollBar& bar) {
  const int moved = event.angleDelta().y();
  if (moved == 0) return false;
  const bool zooms = event.modifiers().testFlag(Qt::ControlModifier) && !asText_;
  const bool down = moved < 0;
  const bool scrolls = down ? bar.value() < bar.maximum() : bar.value() > bar.minimum();
  const bool more = down ? page_ + 1 < pages() : page_ > 0;
  if (!zooms && (scrolls || !more)) {
    turned_ = 0;
    return false;
  }
  turned_ = (turned_ < 0) == down ? turned_ + moved : moved;
  if (std::abs(turned_) < kWheelStep) return true;
  turned_ = 0;
  if (zooms) {
    zoom(down ? 1 / kZoomStep : kZoomStep);
  } else {
    turn(page_ + (down ? 1 : -1), down ? Corner::Top : Corner::Bottom);
  }
  return true;
}

bool Pages::eventFilter(QObject* watched, QEvent* event) {
  const bool drawnPage = watched == area_ || watched == area_->viewport();
  const QScrollBar& bar = drawnPage ? *area_->verticalScrollBar() : *text_->verticalScrollBar();
  if (event->type() == QEvent::Wheel && watched != area_ && watched != text_)
    return wheel(*static_cast<QWheelEvent*>(event), bar);
  if (event->type() == QEvent::KeyPress) {
    const auto* const pressed = static_cast<QKeyEvent*>(event);
    const bool held =
        pressed->modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier | Qt::ShiftModifier);
    if (watched == area_ && key(pressed->key())) return true;
    if (watched == text_ && !held && scrollKey(pressed->key(), bar)) return true;
  }
  return QStackedWidget::eventFilter(watched, event);
}

void Pages::resizeEvent(QResizeEvent* event) {
  QStackedWidget::resizeEvent(event);
  // The page's space is known after the layout.
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (scale_ > 0 || pages() == 0 || asText_) return;
        if (mark_) corner_ = Corner::Mark;
        draw();
      },
      Qt::QueuedConnection);
}

}  // namespace cu::desktop
