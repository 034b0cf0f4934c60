#pragma once

#include <QRadioButton>
#include <functional>

namespace cu::desktop {

// An option whose frame, not the toolkit, ensures that exactly one is on.
class Radio : public QRadioButton {
 public:
  // `step` is called with +1 or -1: the arrow keys cycle through the options of a frame.
  Radio(std::function<void(int)> step, QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  std::function<void(int)> step_;
};

}  // namespace cu::desktop
