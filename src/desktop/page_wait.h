#pragma once

#include <QFrame>
#include <QTimer>
#include <functional>

class QLabel;

namespace cu::desktop {

// What is being waited for, over the widget that waits. It appears after a moment: a short wait is not
// noticed.
class PageWait : public QFrame {
 public:
  explicit PageWait(QWidget* over);
  void begin(const QString& what);
  void end();
  std::function<void()> onShown;

 private:
  void appear();
  QLabel* what_;
  QTimer patience_;
};

}  // namespace cu::desktop
