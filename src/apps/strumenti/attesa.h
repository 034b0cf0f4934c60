#pragma once

#include <QWidget>
#include <cstdint>
#include <functional>

class QLabel;
class QProgressBar;
class QPushButton;

namespace cu::strumenti {

// What a window is doing, how far it is, and the button that interrupts it; shown only meanwhile.
class Attesa : public QWidget {
 public:
  Attesa(QWidget* parent, std::function<void()> interrompi);
  // `interrompi` is the caption of the button.
  void comincia(const QString& che, bool interrompibile, const QString& interrompi);
  // Without a total the number alone is shown.
  void avanza(const QString& che, std::uint64_t fatto, std::uint64_t totale);
  // The work goes on to the end of its step.
  void siInterrompe();
  void finisci() { hide(); }

 private:
  QLabel* che_;
  QProgressBar* barra_;
  QPushButton* interrompi_;
  bool lascia_ = false;
};

}  // namespace cu::strumenti
