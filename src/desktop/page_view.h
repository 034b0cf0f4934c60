#pragma once

#include <QWidget>
#include <memory>
#include <string>
#include <vector>

class QLabel;
class QScrollArea;
class QStackedWidget;
class QToolButton;

namespace Poppler {
class Document;
}

namespace cu::desktop {

// The pages of a PDF in a part of a window: page by page, as wide as the view or enlarged.
class PageView : public QWidget {
 public:
  explicit PageView(QWidget* parent);
  ~PageView() override;
  // Reads the file at once; `texts` are the pages for a screen reader. The page and the zoom stay where the
  // new document has that page.
  void open(const QString& file, const std::vector<std::string>& texts);
  // A sentence in place of the pages.
  void say(const QString& sentence);
  int page() const { return page_; }
  int pages() const;
  const QString& sentence() const { return sentence_; }
  void go(int page);
  void zoom(double factor);
  void fitWidth();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  bool key(int key);
  void draw();

  std::unique_ptr<Poppler::Document> document_;
  std::vector<std::string> texts_;
  QString sentence_;
  QStackedWidget* views_;
  QScrollArea* area_;
  QLabel* picture_;
  QLabel* words_;
  QLabel* place_;
  std::vector<QToolButton*> backward_;
  std::vector<QToolButton*> forward_;
  std::vector<QToolButton*> sizes_;
  int page_ = 0;
  double scale_ = 0;  // dots per inch; 0 for the view's width
  double drawn_ = 0;
};

}  // namespace cu::desktop
