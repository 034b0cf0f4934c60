#pragma once

#include <QDialog>
#include <functional>
#include <vector>

#include "controls/frontend.h"
#include "desktop/page_search.h"
#include "desktop/pages.h"

class QLabel;
class QLineEdit;
class QPrinter;
class QPushButton;

namespace cu::desktop {

class ElidedLine;
class FlowRow;
class Thumbnails;

// A preview of a report, page by page: the file's page as a picture, or its text where there is no file or
// the user selects the text. Its pages are found, printed and saved without the form, which has already
// reported the preview.
class PreviewDialog : public QDialog {
 public:
  PreviewDialog(QWidget* parent, const Preview& preview);
  ~PreviewDialog() override;
  int page() const { return pages_->page(); }
  int pages() const { return pages_->pages(); }
  Pages& view() { return *pages_; }
  PageSearch& found() { return search_; }
  Thumbnails& thumbnails() { return *thumbnails_; }

  // The dialogs of the system: the file to save to, "" for none; false where nothing is to be printed.
  std::function<QString(const QString& suggested)> chooseFile;
  std::function<bool(QPrinter& printer)> choosePrinter;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QLabel* noteOfPart(std::size_t pages);
  void layOutTurning(FlowRow& row);
  void layOutSearch(FlowRow& row);
  void layOutOutput(FlowRow& row);
  void addKeys();
  QPushButton* button(FlowRow& row, const char* caption, const std::function<void()>& action);
  void tell();
  QString shownNumber() const;
  void tellFound();
  void goToTyped();
  void showThumbnails(bool shown);
  void find();
  void print();
  void save();

  QString title_;
  Pages* pages_;
  PageSearch search_;
  Thumbnails* thumbnails_;
  QLineEdit* number_;
  QLabel* place_;
  QLineEdit* wanted_;
  ElidedLine* told_;
  QTimer* pause_;
  std::vector<QWidget*> backward_;
  std::vector<QWidget*> forward_;
  std::vector<QWidget*> onPictures_;
  std::vector<QWidget*> onHits_;
  QPushButton* words_ = nullptr;
  QPushButton* small_ = nullptr;
};

}  // namespace cu::desktop
