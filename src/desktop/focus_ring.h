#pragma once

#include <QFocusFrame>

namespace cu::desktop {

// A line around whatever has the keyboard, the same for every kind of widget.
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
