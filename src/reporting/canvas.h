#pragma once

#include <QColor>
#include <QList>
#include <QRawFont>
#include <QRectF>
#include <QString>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

class QPagedPaintDevice;
class QPainter;

namespace cu::reporting {

enum class Align { Left, Center, Right };

struct TextStyle {
  double points = 9;
  bool bold = false;
  QColor color = Qt::black;
};

// A rectangle in millimetres from the upper left corner of the page.
struct Box {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
};

// Pages of A4 to draw on, all measures in millimetres. Without a device nothing is drawn: a layout run on
// such a canvas only counts its pages.
class Canvas {
 public:
  // Creates a canvas without a device with the same metrics.
  static std::unique_ptr<Canvas> measuring(const Canvas& like);
  // The device outlives the canvas; its margins are ignored. `landscape` rotates the pages, `collect` stores
  // the text of each.
  Canvas(QPagedPaintDevice& device, bool landscape, bool collect);
  ~Canvas();
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  bool draws() const { return painter_ != nullptr; }
  double width() const { return landscape_ ? 297 : 210; }
  double height() const { return landscape_ ? 210 : 297; }

  // The check is called as each page begins, and may raise: it reports errors of the pages' destination.
  void setPageCheck(std::function<void()> check) { pageCheck_ = std::move(check); }
  // To be called before drawing, also for the first page. Raises Error (kErrorReportOutput) when the device
  // fails.
  void beginPage();
  int pages() const { return pages_; }
  // Ends the drawing; raises the same Error.
  void end();

  double textWidth(const QString& text, const TextStyle& style);
  // Distance between two lines, and from the top of a line to its base line.
  double lineHeight(const TextStyle& style);
  double ascent(const TextStyle& style);
  // Breaks the text into lines that fit the width; a word longer than a line is broken.
  QStringList wrap(const QString& text, const TextStyle& style, double width);

  // Draws one line of text with the base line `y`. A text wider than `width` is shrunk, and below a minimum
  // size cut with an ellipsis; right-aligned text, such as amounts, is never cut.
  void text(double x, double y, double width, const QString& text, const TextStyle& style,
            Align align = Align::Left);
  // Draws lines from the top `y` downwards; returns the y below the last one.
  double lines(double x, double y, double width, const QStringList& lines, const TextStyle& style,
               Align align = Align::Left);
  // Draws a text known to fit.
  void plain(double x, double y, const QString& text, const TextStyle& style);
  void fill(const Box& box, const QColor& color);
  void frame(const Box& box, const QColor& color, double lineWidth) { frames({box}, color, lineWidth); }
  void frames(const QList<Box>& boxes, const QColor& color, double lineWidth);
  void line(double x1, double y1, double x2, double y2, const QColor& color, double lineWidth);

  // The text of the pages, one line for each line of text across the page; only where collected.
  std::vector<std::string> pageTexts();

 private:
  Canvas(bool landscape, double dots);
  // Letters are drawn one by one, without ligatures, which text extraction from the file would not return as
  // letters.
  struct Letter {
    quint32 glyph;
    double advance;  // whole dots
  };
  struct Font {
    QRawFont raw;
    std::unordered_map<char32_t, Letter> letters;
  };
  struct Piece {
    double x;
    double y;
    QString text;
  };
  Font& font(double points, bool bold);
  static const Letter& letter(Font& font, char32_t character);
  double measure(Font& font, QStringView text);
  void wrapParagraph(QStringView paragraph, Font& font, double limit, QStringList& lines);
  QPointF point(double x, double y) const;  // in dots
  QRectF rectangle(const Box& box) const;
  void keepPage();

  bool landscape_;
  bool collect_ = false;
  QPagedPaintDevice* device_ = nullptr;
  std::unique_ptr<QPainter> painter_;
  double dots_;  // dots per millimetre
  int pages_ = 0;
  std::function<void()> pageCheck_;
  std::unordered_map<int, Font> fonts_;
  std::vector<Piece> pieces_;  // of the current page
  std::vector<std::string> texts_;
};

}  // namespace cu::reporting
