#pragma once

#include <QObject>

namespace cu::desktop {
class QtFrontEnd;
}

namespace cu::strumenti {

// What the log for support has of the windows. Both do nothing without a log.

// The events of the forms for which the user had to wait.
void registraEventi(desktop::QtFrontEnd& schermo);

// Every message box of the program, by kind, name and number of the error, and how many messages of the
// toolkit there were; no texts. From the construction on.
class RegistroFinestre : public QObject {
 public:
  RegistroFinestre();
  ~RegistroFinestre() override;

  bool eventFilter(QObject* oggetto, QEvent* evento) override;
};

}  // namespace cu::strumenti
