#include "reporting/form_grid.h"

#include <algorithm>

#include "reporting/italian.h"
#include "reporting/palette.h"

namespace cu::reporting {
namespace {

constexpr double kBarGap = 2.1;  // before a bar
constexpr double kInset = 0.9;   // of a box's content
constexpr double kNumberWidth = 5.4;
constexpr double kCaptionPoints = 5.6;
constexpr double kSmallCaptionPoints = 4.9;
constexpr qsizetype kCaptionLines = 2;
constexpr double kValuePoints = 9;
constexpr double kSmallestOneLine = 7;  // below it a value is broken into several lines
constexpr double kSmallestLines = 4;    // below it a value is cut
constexpr double kStep = 0.1;
constexpr double kBelowLines = 0.4;

constexpr double kTagWidth = 4.7;
constexpr double kTagHeight = 3.3;
constexpr double kBehindFrame = 0.15;
constexpr double kCaptionTop = 0.6;
constexpr double kFrameWidth = 0.2;

void drawNumber(Canvas& canvas, const Box& place, const QString& number) {
  const TextStyle style{5.8, true, kAccent};
  const double base = (kTagHeight - canvas.lineHeight(style)) / 2 + canvas.ascent(style);
  canvas.text(place.x + kBehindFrame, place.y + kBehindFrame + base, kTagWidth, number, style, Align::Center);
}

// Draws a text on several lines that end at the bottom of the place, in the largest size that fits.
void drawLines(Canvas& canvas, const Box& place, const QString& text, TextStyle style) {
  // Each size is measured with the first one's letters on a proportionally wider line: creating a font is
  // expensive.
  const TextStyle measured = style;
  const double height = canvas.lineHeight(measured) / measured.points;  // per point
  QStringList lines;
  for (;; style.points -= kStep) {
    lines = canvas.wrap(text, measured, place.width * measured.points / style.points * 0.99);
    if (height * style.points * static_cast<double>(lines.size()) <= place.height) break;
    if (style.points - kStep < kSmallestLines) break;
  }
  const auto most = std::max<qsizetype>(1, static_cast<qsizetype>(place.height / (height * style.points)));
  if (lines.size() > most) lines = lines.mid(0, most - 1) + QStringList(lines.mid(most - 1).join(' '));
  const double taken = height * style.points * static_cast<double>(lines.size());
  canvas.lines(place.x, place.y + place.height - taken, place.width, lines, style);
}

}  // namespace

FormGrid::FormGrid(Canvas& canvas, const ReportDefinition& definition, FormPart part, std::int32_t year,
                   double x, double width, double y, const modello::Modello& form)
    : x_(x), width_(width), bottom_(y) {
  for (const LaidSection& section : layOut(definition, part, year, form)) {
    bottom_ += kBarGap;
    bars_.push_back({section.section->title, bottom_});
    bottom_ += kBarHeight;
    for (const std::vector<LaidBox>& row : section.rows) {
      double shares = 0;
      for (const LaidBox& box : row) shares += box.box->width;
      double left = x;
      for (const LaidBox& box : row) {
        const double share = width * box.box->width / shares;
        if (box.main != nullptr) place(canvas, box, {left, bottom_, share, kBoxHeight});
        left += share;
      }
      bottom_ += kBoxHeight;
    }
  }
}

void FormGrid::place(Canvas& canvas, const LaidBox& box, const Box& at) {
  PlacedBox placed{box, at, {}, {kCaptionPoints, false, kMuted}};
  const double room = at.width - kNumberWidth - 2 * kInset;
  placed.caption = canvas.wrap(fromUtf8(box.box->caption), placed.captionStyle, room);
  if (placed.caption.size() > kCaptionLines) {
    placed.captionStyle.points = kSmallCaptionPoints;
    placed.caption = canvas.wrap(fromUtf8(box.box->caption), placed.captionStyle, room);
  }
  boxes_.push_back(std::move(placed));
}

void FormGrid::drawEmpty(Canvas& canvas, std::int32_t year) const {
  for (const Bar& bar : bars_) {
    QString title = fromUtf8(bar.title);
    title.replace("{Anno}", QString::number(year)).replace("{AnnoDopo}", QString::number(year + 1));
    drawBar(canvas, x_, bar.y, width_, title);
  }
  // Shapes of one colour are drawn together: thousands of forms are an ordinary case.
  QList<Box> frames;
  for (const PlacedBox& box : boxes_) {
    canvas.fill({box.place.x + kBehindFrame, box.place.y + kBehindFrame, kTagWidth, kTagHeight}, kTag);
    frames.append(box.place);
  }
  for (const PlacedBox& box : boxes_) drawNumber(canvas, box.place, QString::number(box.box.main->numero));
  for (const PlacedBox& box : boxes_) {
    double y = box.place.y + kCaptionTop + canvas.ascent(box.captionStyle);
    for (const QString& line : box.caption) {
      canvas.plain(box.place.x + kNumberWidth, y, line, box.captionStyle);
      y += canvas.lineHeight(box.captionStyle);
    }
  }
  canvas.frames(frames, kRule, kFrameWidth);
}

double drawBar(Canvas& canvas, double x, double y, double width, const QString& title) {
  canvas.fill({x, y, width, kBarHeight}, kAccent);
  const TextStyle style{7.2, true, kPaper};
  const double base = y + (kBarHeight - canvas.lineHeight(style)) / 2 + canvas.ascent(style);
  canvas.text(x + 1.6, base, width - 3.2, title.toUpper(), style);
  return y + kBarHeight;
}

void drawBox(Canvas& canvas, const Box& place, const QString& caption, const QColor& color) {
  canvas.text(place.x + kInset, place.y + kCaptionTop + canvas.ascent({kCaptionPoints}),
              place.width - 2 * kInset, caption, {kCaptionPoints, false, color});
  canvas.frame(place, kRule, kFrameWidth);
}

void drawBoxValue(Canvas& canvas, const Box& place, const QString& text, Align align, bool bold,
                  qsizetype captionLines) {
  if (text.isEmpty()) return;
  const double room = place.width - 2 * kInset - 0.6;
  const double left = place.x + kInset + 0.3;
  TextStyle style{kValuePoints, bold, kInk};
  const double base = place.y + place.height - 2;
  const double wide = canvas.textWidth(text, style);
  if (wide > room) style.points = std::max(kSmallestOneLine, style.points * room / wide * 0.99);
  if (align != Align::Left || canvas.textWidth(text, style) <= room) {
    canvas.text(left, base, room, text, style, align);
    return;
  }
  const double caption =
      kCaptionTop + static_cast<double>(captionLines) * canvas.lineHeight({kCaptionPoints});
  drawLines(canvas, {left, place.y + caption, room, place.height - caption - kBelowLines}, text, style);
}

}  // namespace cu::reporting
