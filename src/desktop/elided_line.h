#pragma once

#include <QLabel>

namespace cu::desktop {

// A text of one line that never needs more room than it has: it is cut, and the tooltip has all of it.
class ElidedLine : public QLabel {
 public:
  explicit ElidedLine(QWidget* parent);
  QSize minimumSizeHint() const override;
  QSize sizeHint() const override;
  void setWhole(const QString& text);
  const QString& whole() const { return whole_; }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void cut();
  QString whole_;
};

}  // namespace cu::desktop
