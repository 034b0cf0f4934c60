#include <algorithm>

#include "reporting/italian.h"
#include "reporting/layout.h"
#include "reporting/palette.h"
#include "reporting/table.h"

namespace cu::reporting {
namespace {

constexpr double kListMargin = 11;
constexpr double kListTop = 10;
constexpr double kListFooterRoom = 14;
constexpr double kListPoints = 7.2;

// Draws the head of a page; returns the y below.
double pageHead(Canvas& canvas, const LayoutInput& input) {
  const double width = canvas.width() - 2 * kListMargin;
  const TextStyle title{14, true, kAccent};
  const TextStyle name{9.5, true, kInk};
  const TextStyle quiet{7.2, false, kMuted};
  const TextStyle selection{7.8, true, kInk};
  const double half = width * 0.55;
  const double left = width - half - 4;
  double y = kListTop;
  y = canvas.lines(kListMargin, y, left, canvas.wrap(fromUtf8(input.definition.title), title, left), title);
  if (!input.selection.isEmpty())
    y = canvas.lines(kListMargin, y + 0.5, left, canvas.wrap(input.selection, selection, left), selection);
  canvas.text(kListMargin, y + canvas.ascent(quiet), left, "Stampa del " + italianDate(input.today), quiet);
  double right = kListTop;
  right = canvas.lines(kListMargin + width - half, right, half, canvas.wrap(input.company.name, name, half),
                       name, Align::Right);
  right = canvas.lines(kListMargin + width - half, right, half, {input.company.address, input.company.codes},
                       quiet, Align::Right);
  return std::max(y + canvas.lineHeight(quiet), right) + 3;
}

int drawPages(Canvas& canvas, const LayoutInput& input, int pages) {
  const double bottom = canvas.height() - kListFooterRoom;
  const auto endPage = [&] { drawFooter(canvas, kListMargin, input.company.name, canvas.pages(), pages); };
  const auto newPage = [&] {
    endPage();
    if (canvas.draws()) {
      input.report("Scrittura delle pagine", static_cast<std::size_t>(canvas.pages()),
                   static_cast<std::size_t>(pages));
    } else {
      input.report("Conteggio delle pagine", input.rows.current(), input.rows.size());
    }
    canvas.beginPage();
    return pageHead(canvas, input);
  };
  canvas.beginPage();
  const double y = pageHead(canvas, input);
  Table table(canvas, input.definition, input.rows, 0,
              {kListMargin, canvas.width() - 2 * kListMargin, bottom}, kListPoints, newPage);
  table.run(0, input.rows.size(), y, fromUtf8(input.definition.grandTotal));
  endPage();
  return canvas.pages();
}

}  // namespace

bool isLandscape(LayoutKind layout) {
  switch (layout) {
    case LayoutKind::List:
      return true;
    case LayoutKind::Certificate:
    case LayoutKind::Form:
      return false;
  }
  return false;
}

void drawFooter(Canvas& canvas, double margin, const QString& left, int page, int pages) {
  const TextStyle quiet{7, false, kMuted};
  const double width = canvas.width() - 2 * margin;
  const double y = canvas.height() - 9;
  canvas.line(margin, y - 3.4, margin + width, y - 3.4, kRule, 0.15);
  canvas.text(margin, y, width - 40, left, quiet);
  canvas.text(margin + width - 40, y, 40, "Pagina " + QString::number(page) + " di " + QString::number(pages),
              quiet, Align::Right);
}

void drawNothing(Canvas& canvas, const LayoutInput& input) {
  canvas.beginPage();
  const double width = canvas.width() - 2 * kListMargin;
  canvas.text(kListMargin, 24, width, fromUtf8(input.definition.title), {14, true, kAccent});
  canvas.text(kListMargin, 34, width, "Nessun elemento da stampare.", {10, false, kInk});
  const TextStyle quiet{7.8, false, kMuted};
  canvas.lines(kListMargin, 37, width, canvas.wrap(input.selection, quiet, width), quiet);
  drawFooter(canvas, kListMargin, input.company.name, 1, 1);
}

void drawList(Canvas& canvas, const LayoutInput& input) {
  if (input.rows.size() == 0) {
    drawNothing(canvas, input);
    return;
  }
  // The total number of pages is on each page: the first pass only counts.
  const int pages = drawPages(*Canvas::measuring(canvas), input, 0);
  drawPages(canvas, input, pages);
}

}  // namespace cu::reporting
