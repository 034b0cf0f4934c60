#pragma once

#include <QLabel>

namespace cu::strumenti {

// A sentence that wraps, and always has the height for all of its lines; hidden where it is empty.
class Frase : public QLabel {
 public:
  explicit Frase(QWidget* parent, const QString& testo = {});
  void dici(const QString& testo);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void misura();
};

}  // namespace cu::strumenti
