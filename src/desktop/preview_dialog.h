#pragma once

#include <QDialog>
#include <memory>
#include <vector>

#include "controls/frontend.h"

class QLabel;
class QPlainTextEdit;
class QScrollArea;
class QStackedWidget;

namespace Poppler {
class Document;
}

namespace cu::desktop {

// A preview of a report, page by page: the file's page as a picture, or its text where there is no file or
// the user selects the text.
class PreviewDialog : public QDialog {
 public:
  PreviewDialog(QWidget* parent, const Preview& preview);
  ~PreviewDialog() override;
  int page() const { return page_; }
  int pages() const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void open();
  void go(int page);
  void zoom(double factor);
  void fitWidth();
  void draw();

  const Preview& preview_;
  std::unique_ptr<Poppler::Document> document_;
  QStackedWidget* views_;
  QScrollArea* area_;
  QLabel* picture_;
  QPlainTextEdit* text_;
  QLabel* place_;
  std::vector<QWidget*> backward_;
  std::vector<QWidget*> forward_;
  int page_ = 0;
  double scale_ = 0;  // dots per inch; 0 for the window's width
  bool asText_ = false;
};

}  // namespace cu::desktop
