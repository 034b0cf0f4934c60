#pragma once

#include <QRectF>
#include <QStackedWidget>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QLabel;
class QPlainTextEdit;
class QScrollArea;

namespace Poppler {
class Document;
}

namespace cu::desktop {

// The pages of a PDF one by one, as wide as the view or enlarged; their texts where there is no PDF or the
// user prefers them; a sentence where there is nothing to show.
class Pages : public QStackedWidget {
 public:
  explicit Pages(const QString& spoken, QWidget* parent);
  ~Pages() override;
  // Reads the file at once; `texts` are the pages for a screen reader, and all there is where the file cannot
  // be shown. The page and the zoom stay where the new document has that page; a mark is removed.
  void open(const QString& file, std::vector<std::string> texts);
  // A sentence in place of the pages.
  void say(const QString& sentence);
  const QString& sentence() const { return sentence_; }

  int page() const { return page_; }
  int pages() const;
  bool pictures() const { return document_ != nullptr; }
  bool hasTexts() const { return !texts_.empty(); }
  bool asText() const { return asText_; }
  void setAsText(bool asText);
  void go(int page);
  void larger();
  void smaller();
  void fitWidth();
  // Turns pages and zooms; false for a key that does neither.
  bool key(int key);

  // A frame and an arrow at a place of a page, in points from its upper left corner, which is scrolled to.
  struct Mark {
    int page = 0;
    QRectF place;
    QString spoken;
  };
  void setMark(const std::optional<Mark>& mark);
  const std::optional<Mark>& mark() const { return mark_; }
  // The part of the page that is seen, in points.
  QRectF seen() const;

  // After everything that a button may depend on.
  std::function<void()> changed;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void zoom(double factor);
  void draw();
  void drawPicture();
  void drawMark(QImage& image) const;
  void scrollToMark();

  std::unique_ptr<Poppler::Document> document_;
  std::vector<std::string> texts_;
  QString sentence_;
  QScrollArea* area_;
  QLabel* picture_;
  QPlainTextEdit* text_;
  QLabel* words_;
  std::optional<Mark> mark_;
  int page_ = 0;
  double scale_ = 0;  // dots per inch; 0 for the view's width
  double drawn_ = 0;
  bool asText_ = false;
};

}  // namespace cu::desktop
