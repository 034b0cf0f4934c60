#pragma once

#include <QWidget>
#include <vector>

#include "desktop/pages.h"

class QLabel;
class QToolButton;

namespace cu::desktop {

// Pages in a part of a window, with small buttons above them.
class PageView : public QWidget {
 public:
  explicit PageView(QWidget* parent);
  Pages& pages() { return *pages_; }

 private:
  void tell();

  Pages* pages_;
  QLabel* place_;
  QToolButton* backward_;
  QToolButton* forward_;
  std::vector<QToolButton*> sizes_;
};

}  // namespace cu::desktop
