#pragma once

#include <QKeyEvent>
#include <QLineEdit>

namespace cu::strumenti {

// A search box: Esc empties it first, and closes its window only when there is nothing to empty.
class CasellaCerca : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Escape && !text().isEmpty()) {
      clear();
      event->accept();
      return;
    }
    QLineEdit::keyPressEvent(event);
  }
};

}  // namespace cu::strumenti
