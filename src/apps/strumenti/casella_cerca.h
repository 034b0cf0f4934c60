#pragma once

#include <QKeyEvent>
#include <QLineEdit>
#include <functional>

namespace cu::strumenti {

// A search box: Esc empties it first, and closes its window only when there is nothing to empty.
class CasellaCerca : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;
  // Down or Enter: on to what was found.
  std::function<void()> avanti;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const int tasto = event->key();
    if (tasto == Qt::Key_Escape && !text().isEmpty()) {
      clear();
      event->accept();
      return;
    }
    if (avanti && (tasto == Qt::Key_Down || tasto == Qt::Key_Return || tasto == Qt::Key_Enter)) {
      avanti();
      event->accept();
      return;
    }
    QLineEdit::keyPressEvent(event);
  }
};

}  // namespace cu::strumenti
