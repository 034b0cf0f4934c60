#include "reporting/canvas.h"

#include <QFont>
#include <QGlyphRun>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextBoundaryFinder>
#include <algorithm>
#include <cmath>

#include "reporting/print_font.h"
#include "reporting/report_error.h"

namespace cu::reporting {
namespace {

constexpr double kMillimetresPerInch = 25.4;
constexpr double kPointsPerInch = 72;
constexpr double kSmallest = 0.7;  // scale of a text that is shrunk to fit, before it is cut
constexpr double kLeading = 1.05;
constexpr double kOneLine = 0.3;  // mm between base lines that count as one line
constexpr char32_t kFirstPrinted = 0x20;
constexpr char32_t kDelete = 0x7F;
constexpr QChar kEllipsis = QChar(0x2026);

// Returns the code point at `at`, and moves `at` after it.
char32_t next(QStringView text, qsizetype& at) {
  const QChar first = text[at++];
  if (!first.isHighSurrogate() || at == text.size() || !text[at].isLowSurrogate()) return first.unicode();
  return QChar::surrogateToUcs4(first, text[at++]);
}

// Where to break a word of which at most the part up to `most` fits on a line from `start`: after a mark in
// its last half, as in document numbers, otherwise at the end.
qsizetype readableCut(QStringView text, qsizetype start, qsizetype most) {
  for (qsizetype at = most; 2 * (at - start) > most - start; --at) {
    if (QStringView(u"/-_.").contains(text[at - 1])) return at;
  }
  return most;
}

[[noreturn]] void refused() {
  throw Error(kErrorReportOutput, "Non è possibile scrivere la stampa: il dispositivo l'ha rifiutata.");
}

}  // namespace

Canvas::Canvas(bool landscape, double dots) : landscape_(landscape), dots_(dots) {}

std::unique_ptr<Canvas> Canvas::measuring(const Canvas& like) {
  return std::unique_ptr<Canvas>(new Canvas(like.landscape_, like.dots_));
}

Canvas::Canvas(QPagedPaintDevice& device, bool landscape, bool collect)
    : landscape_(landscape), collect_(collect), device_(&device) {
  device.setPageSize(QPageSize(QPageSize::A4));
  device.setPageOrientation(landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
  device.setPageMargins(QMarginsF(0, 0, 0, 0));
  painter_ = std::make_unique<QPainter>();
  if (!painter_->begin(&device)) refused();
  dots_ = device.logicalDpiX() / kMillimetresPerInch;
}

Canvas::~Canvas() = default;

void Canvas::beginPage() {
  if (pageCheck_) pageCheck_();
  if (collect_ && pages_ > 0) keepPage();
  if (painter_ != nullptr && pages_ > 0 && !device_->newPage()) refused();
  ++pages_;
}

void Canvas::end() {
  if (painter_ == nullptr) return;
  if (collect_ && pages_ > 0) keepPage();
  if (!painter_->end()) refused();
}

Canvas::Font& Canvas::font(double points, bool bold) {
  const int pixels =
      std::max(1, static_cast<int>(std::lround(points / kPointsPerInch * kMillimetresPerInch * dots_)));
  const int key = bold ? -pixels : pixels;
  const auto known = fonts_.find(key);
  if (known != fonts_.end()) return known->second;
  QFont wanted(printFontFamily());
  wanted.setPixelSize(pixels);
  wanted.setBold(bold);
  wanted.setHintingPreference(QFont::PreferNoHinting);
  return fonts_.emplace(key, Font{QRawFont::fromFont(wanted), {}}).first->second;
}

const Canvas::Letter& Canvas::letter(Font& font, char32_t character) {
  const auto known = font.letters.find(character);
  if (known != font.letters.end()) return known->second;
  // A control character takes the space of a blank.
  const char32_t shown = character < kFirstPrinted || character == kDelete ? U' ' : character;
  const QList<quint32> glyphs = font.raw.glyphIndexesForString(QString::fromUcs4(&shown, 1));
  const quint32 glyph = glyphs.isEmpty() ? 0 : glyphs.front();
  const QList<QPointF> advances = font.raw.advancesForGlyphIndexes({glyph}, QRawFont::UseDesignMetrics);
  return font.letters.emplace(character, Letter{glyph, std::round(advances.front().x())}).first->second;
}

double Canvas::measure(Font& font, QStringView text) {
  double width = 0;
  for (qsizetype at = 0; at < text.size();) width += letter(font, next(text, at)).advance;
  return width;
}

double Canvas::textWidth(const QString& text, const TextStyle& style) {
  return measure(font(style.points, style.bold), text) / dots_;
}

double Canvas::lineHeight(const TextStyle& style) {
  const QRawFont& raw = font(style.points, style.bold).raw;
  return kLeading * (raw.ascent() + raw.descent()) / dots_;
}

double Canvas::ascent(const TextStyle& style) { return font(style.points, style.bold).raw.ascent() / dots_; }

QStringList Canvas::wrap(const QString& text, const TextStyle& style, double width) {
  QStringList lines;
  Font& used = font(style.points, style.bold);
  for (const QString& paragraph : text.split('\n')) wrapParagraph(paragraph, used, width * dots_, lines);
  return lines;
}

void Canvas::wrapParagraph(QStringView paragraph, Font& used, double limit, QStringList& lines) {
  QTextBoundaryFinder breaks(QTextBoundaryFinder::Line, paragraph.data(), paragraph.size());
  qsizetype start = 0;  // of the line
  qsizetype good = 0;   // the last possible break
  const auto fits = [&](qsizetype end) {
    QStringView part = paragraph.mid(start, end - start);
    while (part.endsWith(u' ')) part.chop(1);
    return measure(used, part) <= limit;
  };
  const auto end = [&](qsizetype at) {
    lines.append(paragraph.mid(start, at - start).trimmed().toString());
    start = at;
    good = at;
  };
  while (breaks.toNextBoundary() >= 0) {
    const qsizetype at = breaks.position();
    if (!fits(at) && good > start) end(good);
    // The word alone is wider than the line.
    while (!fits(at)) {
      qsizetype cut = start + 1;
      while (cut < at && fits(cut + 1)) ++cut;
      if (cut < at && paragraph[cut].isLowSurrogate()) ++cut;
      if (cut >= at) break;
      end(readableCut(paragraph, start, cut));
    }
    good = at;
  }
  if (start < paragraph.size() || paragraph.isEmpty()) end(paragraph.size());
}

void Canvas::text(double x, double y, double width, const QString& text, const TextStyle& style,
                  Align align) {
  if (painter_ == nullptr || text.isEmpty()) return;
  TextStyle fitting = style;
  // Letters and combining marks are composed where a composed letter exists.
  QString shown = text.normalized(QString::NormalizationForm_C);
  double taken = textWidth(shown, style);
  if (taken > width && width > 0) {
    const double share = width / taken * 0.99;
    fitting.points = style.points * (align == Align::Right ? share : std::max(kSmallest, share));
    taken = textWidth(shown, fitting);
    while (taken > width && align != Align::Right && shown.size() > 1) {
      shown = shown.left(shown.size() - (shown.endsWith(kEllipsis) ? 2 : 1)).trimmed() + kEllipsis;
      taken = textWidth(shown, fitting);
    }
  }
  double left = x;
  if (align == Align::Right) left += width - taken;
  if (align == Align::Center) left += (width - taken) / 2;
  plain(left, y, shown, fitting);
}

double Canvas::lines(double x, double y, double width, const QStringList& lines, const TextStyle& style,
                     Align align) {
  const double height = lineHeight(style);
  for (const QString& each : lines) {
    text(x, y + ascent(style), width, each, style, align);
    y += height;
  }
  return y;
}

void Canvas::plain(double x, double y, const QString& text, const TextStyle& style) {
  if (painter_ == nullptr || text.isEmpty()) return;
  Font& used = font(style.points, style.bold);
  QList<quint32> glyphs;
  QList<QPointF> positions;
  double left = 0;
  for (qsizetype at = 0; at < text.size();) {
    const Letter& found = letter(used, next(text, at));
    glyphs.append(found.glyph);
    positions.append({left, 0});
    left += found.advance;
  }
  QGlyphRun run;
  run.setRawFont(used.raw);
  run.setGlyphIndexes(glyphs);
  run.setPositions(positions);
  painter_->setPen(style.color);
  painter_->drawGlyphRun(point(x, y), run);
  if (collect_) pieces_.push_back({x, y, text});
}

// Whole dots: a dot is invisible, and a fraction takes as many bytes in the file as a letter.
QPointF Canvas::point(double x, double y) const { return {std::round(x * dots_), std::round(y * dots_)}; }

QRectF Canvas::rectangle(const Box& box) const {
  return {point(box.x, box.y), point(box.x + box.width, box.y + box.height)};
}

void Canvas::fill(const Box& box, const QColor& color) {
  if (painter_ == nullptr) return;
  painter_->fillRect(rectangle(box), color);
}

void Canvas::frames(const QList<Box>& boxes, const QColor& color, double lineWidth) {
  if (painter_ == nullptr) return;
  painter_->setPen(
      QPen(color, std::max(1.0, std::round(lineWidth * dots_)), Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  painter_->setBrush(Qt::NoBrush);
  QList<QRectF> rectangles;
  for (const Box& box : boxes) rectangles.append(rectangle(box));
  painter_->drawRects(rectangles);
}

void Canvas::line(double x1, double y1, double x2, double y2, const QColor& color, double lineWidth) {
  if (painter_ == nullptr) return;
  painter_->setPen(QPen(color, std::max(1.0, std::round(lineWidth * dots_)), Qt::SolidLine, Qt::FlatCap));
  painter_->drawLine(point(x1, y1), point(x2, y2));
}

void Canvas::keepPage() {
  std::stable_sort(pieces_.begin(), pieces_.end(), [](const Piece& a, const Piece& b) { return a.y < b.y; });
  QString page;
  for (std::size_t first = 0; first < pieces_.size();) {
    std::size_t end = first + 1;
    while (end < pieces_.size() && pieces_[end].y - pieces_[first].y < kOneLine) ++end;
    const auto from = pieces_.begin() + static_cast<std::ptrdiff_t>(first);
    const auto to = pieces_.begin() + static_cast<std::ptrdiff_t>(end);
    std::stable_sort(from, to, [](const Piece& a, const Piece& b) { return a.x < b.x; });
    for (auto piece = from; piece != to; ++piece) page += (piece == from ? "" : "  ") + piece->text;
    page += '\n';
    first = end;
  }
  pieces_.clear();
  texts_.push_back(page.toStdString());
}

std::vector<std::string> Canvas::pageTexts() { return std::move(texts_); }

}  // namespace cu::reporting
