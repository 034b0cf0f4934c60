#pragma once

#include <QFocusFrame>

namespace cu::desktop {

// A line around the widget with the focus, the same for every kind of widget.
class FocusRing : public QFocusFrame {
 public:
  explicit FocusRing(QWidget* window);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void follow();

  QWidget* home_;
};

}  // namespace cu::desktop
