#pragma once

#include <QRadioButton>
#include <functional>

namespace cu::desktop {

// A choice whose frame, not the toolkit, sees to it that one alone is on.
class Radio : public QRadioButton {
 public:
  // `step` is told +1 or -1: the arrow keys go round the choices of a frame.
  Radio(std::function<void(int)> step, QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  std::function<void(int)> step_;
};

}  // namespace cu::desktop
