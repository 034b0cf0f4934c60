#pragma once

#include <QObject>
#include <QPointer>
#include <QPushButton>
#include <functional>

namespace cu::desktop {

// During its lifetime a running work can be interrupted: of the user's input only a click of the button, its
// mnemonic and Esc take effect; the rest is discarded.
class Interruption : public QObject {
 public:
  // `button` may be null; it may be destroyed meanwhile.
  explicit Interruption(QPushButton* button);
  ~Interruption() override;
  bool asked() const { return asked_; }
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ask();
  bool concernsButton(const QObject* watched) const;
  QPointer<QPushButton> button_;
  bool asked_ = false;
};

}  // namespace cu::desktop
