#pragma once

#include <QDialog>
#include <vector>

#include "controls/frontend.h"
#include "desktop/pages.h"

class QLabel;

namespace cu::desktop {

// A preview of a report, page by page: the file's page as a picture, or its text where there is no file or
// the user selects the text.
class PreviewDialog : public QDialog {
 public:
  PreviewDialog(QWidget* parent, const Preview& preview);
  int page() const { return pages_->page(); }
  int pages() const { return pages_->pages(); }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void tell();

  Pages* pages_;
  QLabel* place_;
  std::vector<QWidget*> backward_;
  std::vector<QWidget*> forward_;
};

}  // namespace cu::desktop
