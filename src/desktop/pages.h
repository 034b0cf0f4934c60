#pragma once

#include <QRectF>
#include <QStackedWidget>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "desktop/page_source.h"

class QLabel;
class QPlainTextEdit;
class QScrollArea;
class QScrollBar;
class QWheelEvent;

namespace cu::desktop {

class PageWait;

// The pages of a PDF one by one, as wide as the view or enlarged; their texts where there is no PDF or the
// user prefers them; a sentence where there is nothing to show. Opening and drawing are done in a thread;
// what takes longer than a moment is waited for in view.
class Pages : public QStackedWidget {
 public:
  explicit Pages(const QString& spoken, QWidget* parent);
  ~Pages() override;
  // The file may be deleted afterwards. `texts` are the pages for a screen reader, and all there is where the
  // file cannot be shown. A small file is open when this returns. The page and the zoom stay where the new
  // document has that page; a mark is removed.
  void open(const QString& file, std::vector<std::string> texts);
  // A sentence in place of the pages.
  void say(const QString& sentence);
  const QString& sentence() const { return sentence_; }

  int page() const { return page_; }
  int pages() const;
  // The document is still being opened.
  bool opening() const { return source_ != nullptr && !source_->loaded(); }
  bool pictures() const { return source_ != nullptr && source_->pages() > 0; }
  // A page is still being drawn.
  bool drawing() const { return pending_; }
  // The picture that is shown is that of the page.
  bool shows(int page) const { return !pending_ && !image_.isNull() && shownPage_ == page; }
  bool hasTexts() const { return !texts_->empty(); }
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

  // Searches all pages, as pictures or as texts, whichever are shown, beginning with the present one; `found`
  // is called as long as there are results. An empty text ends the search.
  void search(const QString& text);
  void showHit(const PageSource::Hit& hit, const QString& spoken);
  std::function<void(const PageSource::Found&)> found;

  // The document; null where there are only texts or a sentence.
  PageSource* source() const { return source_.get(); }
  // After everything that a button may depend on.
  std::function<void()> changed;
  // After open(), when its pages are known, and after a change between pictures and texts.
  std::function<void()> renewed;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  enum class Corner { Stay, Top, Bottom, Mark };
  void arrange();
  void loaded();
  void zoom(double factor);
  void turn(int page, Corner corner);
  bool wheel(const QWheelEvent& event, const QScrollBar& bar);
  bool scrollKey(int pressed, const QScrollBar& bar);
  void draw();
  void drawPicture();
  void receive(const PageSource::Picture& picture);
  void showPicture();
  void drawMark(QImage& image) const;
  void scrollToCorner();
  void scrollToMark();

  std::unique_ptr<PageSource> source_;
  PageSource::Texts texts_;
  QString sentence_;
  QScrollArea* area_;
  QLabel* picture_;
  QPlainTextEdit* text_;
  QLabel* words_;
  PageWait* wait_;
  std::optional<Mark> mark_;
  QImage image_;
  PageSource::Wanted asked_;
  int shownPage_ = 0;
  int page_ = 0;
  double scale_ = 0;  // dots per inch; 0 for the view's width
  double drawn_ = 0;
  bool asText_ = false;
  bool pending_ = false;
  Corner corner_ = Corner::Stay;
  int turned_ = 0;  // of the wheel, beyond the end of a page
};

}  // namespace cu::desktop
