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

// Pages of A4 to draw on, all measures in millimetres. Without a device nothing is drawn: a layout run over
// such a canvas only tells how many pages it takes.
class Canvas {
 public:
  // One that measures as the other does.
  static std::unique_ptr<Canvas> measuring(const Canvas& like);
  // The device outlives the canvas; its margins are ignored. `landscape` turns the pages, `collect` keeps the
  // text of each.
  Canvas(QPagedPaintDevice& device, bool landscape, bool collect);
  ~Canvas();
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  bool draws() const { return painter_ != nullptr; }
  double width() const { return landscape_ ? 297 : 210; }
  double height() const { return landscape_ ? 210 : 297; }

  // Runs as each page begins, and may raise: the way of what the pages are written to.
  void setPageCheck(std::function<void()> check) { pageCheck_ = std::move(check); }
  // Before anything is drawn, also on the first page. Error (kErrorReportOutput) when the device refuses.
  void beginPage();
  int pages() const { return pages_; }
  // Ends the drawing; Error as above.
  void end();

  double textWidth(const QString& text, const TextStyle& style);
  // Distance between two lines, and from the top of a line to its base.
  double lineHeight(const TextStyle& style);
  double ascent(const TextStyle& style);
  // The text in lines that fit the width; a word longer than a line is broken.
  QStringList wrap(const QString& text, const TextStyle& style, double width);

  // One line of text, `y` being its base line. Where it is wider than `width` it is set smaller, and from a
  // point on cut with an ellipsis; what stands at the right, as amounts do, is never cut.
  void text(double x, double y, double width, const QString& text, const TextStyle& style,
            Align align = Align::Left);
  // Lines from the top `y` downwards; returns the y below the last one.
  double lines(double x, double y, double width, const QStringList& lines, const TextStyle& style,
               Align align = Align::Left);
  // A text that is known to fit.
  void plain(double x, double y, const QString& text, const TextStyle& style);
  void fill(const Box& box, const QColor& color);
  void frame(const Box& box, const QColor& color, double lineWidth) { frames({box}, color, lineWidth); }
  void frames(const QList<Box>& boxes, const QColor& color, double lineWidth);
  void line(double x1, double y1, double x2, double y2, const QColor& color, double lineWidth);

  // The text of the pages, a line for each line that can be read across the page; only where collected.
  std::vector<std::string> pageTexts();

 private:
  Canvas(bool landscape, double dots);
  // Letters one by one: without ligatures, which a reader of the file would not find again as letters.
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
  double dots_;  // a millimetre
  int pages_ = 0;
  std::function<void()> pageCheck_;
  std::unordered_map<int, Font> fonts_;
  std::vector<Piece> pieces_;  // of the page
  std::vector<std::string> texts_;
};

}  // namespace cu::reporting
