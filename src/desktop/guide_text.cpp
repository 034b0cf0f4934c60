#include "desktop/guide_text.h"

#include <QAbstractTextDocumentLayout>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextTable>
#include <algorithm>

#include "desktop/look.h"

namespace cu::desktop {
namespace {

constexpr int kResizing = 120;  // milliseconds without another size
constexpr std::size_t kMarked = 500;

// "immagini/x.png" is "immagini/scuri/x.png" in the dark look, where that file exists.
QString ofLook(const QString& path) {
  if (!look::dark()) return path;
  const QFileInfo light(path);
  const QString dark = light.path() + QStringLiteral("/scuri/") + light.fileName();
  return QFileInfo::exists(dark) ? dark : path;
}

void rule(QTextTable& table) {
  constexpr double kPadding = 4;
  QTextTableFormat format = table.format();
  format.setCellPadding(kPadding);
  format.setCellSpacing(0);
  format.setBorderCollapse(true);
  format.setBorder(1);
  format.setBorderBrush(QColor(0x8A, 0x94, 0x9E));
  table.setFormat(format);
}

}  // namespace

GuideText::GuideText(const QString& folder, QWidget* parent) : QTextBrowser(parent) {
  setAccessibleName(QStringLiteral("Guida"));
  setOpenExternalLinks(true);
  setSearchPaths({folder});
  pause_.setSingleShot(true);
  pause_.setInterval(kResizing);
  connect(&pause_, &QTimer::timeout, this, [this] { fitPictures(); });
  QFile file(folder + QStringLiteral("/guida.md"));
  if (!file.open(QIODevice::ReadOnly)) {
    setPlainText(QStringLiteral("La guida non è installata: manca %1.").arg(file.fileName()));
    return;
  }
  document()->setBaseUrl(QUrl::fromLocalFile(folder + u'/'));
  setMarkdown(QString::fromUtf8(file.readAll()));
  for (QTextFrame* frame : document()->rootFrame()->childFrames()) {
    if (auto* const table = qobject_cast<QTextTable*>(frame)) rule(*table);
  }
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    const int level = block.blockFormat().headingLevel();
    if (level > 0) headings_.push_back({level, block.text(), block.position()});
  }
}

void GuideText::goTo(const QString& heading) {
  fitPictures();
  const auto found = std::find_if(headings_.begin(), headings_.end(),
                                  [&](const Heading& each) { return each.text == heading; });
  const QTextBlock block = document()->findBlock(found == headings_.end() ? 0 : found->position);
  setTextCursor(QTextCursor(block));
  verticalScrollBar()->setValue(
      static_cast<int>(document()->documentLayout()->blockBoundingRect(block).top()));
}

int GuideText::positionSeen() const {
  // A heading that is scrolled to is a little below the edge.
  return cursorForPosition({4, fontMetrics().height()}).position();
}

int GuideText::headingAt(qsizetype position) const {
  const auto after = std::find_if(headings_.begin(), headings_.end(),
                                  [&](const Heading& each) { return each.position > position; });
  return static_cast<int>(after - headings_.begin()) - 1;
}

std::vector<Stretch> GuideText::places(const QString& text) const {
  return matches(document()->toPlainText(), text);
}

std::size_t GuideText::firstBelow(const std::vector<Stretch>& places) const {
  const int seen = cursorForPosition({4, 4}).position();
  const auto found =
      std::find_if(places.begin(), places.end(), [&](const Stretch& each) { return each.from >= seen; });
  return found == places.end() ? 0 : static_cast<std::size_t>(found - places.begin());
}

void GuideText::mark(const std::vector<Stretch>& places, std::size_t current) {
  QList<QTextEdit::ExtraSelection> marked;
  const auto add = [&](const Stretch& place, const QColor& paper, const QColor& ink) {
    QTextEdit::ExtraSelection one;
    one.cursor = QTextCursor(document());
    one.cursor.setPosition(static_cast<int>(place.from));
    one.cursor.setPosition(static_cast<int>(place.from + place.length), QTextCursor::KeepAnchor);
    one.format.setBackground(paper);
    one.format.setForeground(ink);
    one.format.setFontUnderline(true);
    marked.push_back(one);
  };
  for (std::size_t i = 0; i < std::min(places.size(), kMarked); ++i) {
    if (i != current)
      add(places[i], palette().color(QPalette::AlternateBase), palette().color(QPalette::Text));
  }
  if (current < places.size()) {
    add(places[current], palette().color(QPalette::Highlight), palette().color(QPalette::HighlightedText));
    QTextCursor cursor(document());
    cursor.setPosition(static_cast<int>(places[current].from));
    setTextCursor(cursor);
    // With some of the text before it and after it.
    const int at = cursorRect().center().y();
    if (at < 0 || at > viewport()->height() * 2 / 3)
      verticalScrollBar()->setValue(verticalScrollBar()->value() + at - viewport()->height() / 3);
  }
  setExtraSelections(marked);
}

int GuideText::room() const {
  return viewport()->width() - 2 * static_cast<int>(document()->documentMargin());
}

QImage GuideText::fitted(const QImage& picture) const {
  const double scale = devicePixelRatioF();
  const int wide = std::max(1, static_cast<int>(std::min<double>(picture.width(), room() * scale)));
  const double shown = std::min<double>(picture.width(), std::max(1, room()));
  QImage made = wide == picture.width() ? picture : picture.scaledToWidth(wide, Qt::SmoothTransformation);
  made.setDevicePixelRatio(wide / shown);
  return made;
}

QVariant GuideText::loadResource(int type, const QUrl& name) {
  if (type != QTextDocument::ImageResource) return QTextBrowser::loadResource(type, name);
  const QUrl whole = document()->baseUrl().resolved(name);
  const QImage picture(ofLook(whole.toLocalFile()));
  if (picture.isNull()) return QTextBrowser::loadResource(type, name);
  pictures_.insert(name, picture);
  room_ = room();
  return fitted(picture);
}

void GuideText::fitPictures() {
  if (room() == room_) return;
  room_ = room();
  // What is read stays where it is.
  const int seen = positionSeen();
  for (auto each = pictures_.cbegin(); each != pictures_.cend(); ++each) {
    document()->addResource(QTextDocument::ImageResource, each.key(), fitted(each.value()));
  }
  document()->markContentsDirty(0, document()->characterCount());
  const QTextBlock block = document()->findBlock(seen);
  verticalScrollBar()->setValue(
      static_cast<int>(document()->documentLayout()->blockBoundingRect(block).top()));
}

void GuideText::resizeEvent(QResizeEvent* event) {
  QTextBrowser::resizeEvent(event);
  pause_.start();
}

void GuideText::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() != QEvent::PaletteChange || pictures_.isEmpty()) return;
  for (auto each = pictures_.begin(); each != pictures_.end(); ++each) {
    each.value() = QImage(ofLook(document()->baseUrl().resolved(each.key()).toLocalFile()));
  }
  room_ = 0;
  pause_.start();
}

}  // namespace cu::desktop
