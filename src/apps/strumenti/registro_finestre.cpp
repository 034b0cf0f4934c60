#include "apps/strumenti/registro_finestre.h"

#include <QApplication>
#include <QEvent>
#include <QMessageBox>
#include <array>
#include <atomic>

#include "base/error.h"
#include "desktop/qt_front_end.h"
#include "suite/support_log.h"

namespace cu::strumenti {
namespace {

constexpr std::chrono::milliseconds kAttesaSentita(100);

constexpr std::array kGeneriQt = {"debug", "warning", "critical", "fatal", "info"};
std::array<std::atomic<int>, kGeneriQt.size()> messaggiQt{};
QtMessageHandler gestorePrecedente = nullptr;

void contaMessaggio(QtMsgType genere, const QMessageLogContext& contesto, const QString& testo) {
  const auto quale = static_cast<std::size_t>(genere);
  if (quale < messaggiQt.size()) ++messaggiQt[quale];
  if (gestorePrecedente != nullptr) gestorePrecedente(genere, contesto, testo);
}

const char* genereDi(const QMessageBox& messaggio) {
  switch (messaggio.icon()) {
    case QMessageBox::Critical:
      return "errore";
    case QMessageBox::Warning:
      return "avviso";
    case QMessageBox::Question:
      return "domanda";
    case QMessageBox::Information:
      return "informazione";
    case QMessageBox::NoIcon:
      break;
  }
  return "messaggio";
}

void registraMessaggio(SupportLog& registro, const QMessageBox& messaggio) {
  const std::string nome = messaggio.objectName().toStdString();
  const QVariant numero = messaggio.property(desktop::kErrorNumber);
  const Error errore(numero.toInt(), {});
  registro.record({.operation = "finestra di messaggio",
                   .detail = genereDi(messaggio),
                   .object = nome,
                   .error = numero.isValid() ? &errore : nullptr});
}

}  // namespace

void registraEventi(desktop::QtFrontEnd& schermo) {
  if (SupportLog::active() == nullptr) return;
  schermo.onPerformed = [](const std::string& form, const std::string& controllo,
                           std::chrono::microseconds durata) {
    SupportLog* const registro = SupportLog::active();
    if (registro == nullptr || durata < kAttesaSentita) return;
    const std::string dove = controllo.empty() ? form : form + "." + controllo;
    registro->record({.operation = "evento", .object = dove, .duration = durata});
  };
}

RegistroFinestre::RegistroFinestre() {
  if (SupportLog::active() == nullptr) return;
  gestorePrecedente = qInstallMessageHandler(contaMessaggio);
  qApp->installEventFilter(this);
}

RegistroFinestre::~RegistroFinestre() {
  SupportLog* const registro = SupportLog::active();
  if (registro == nullptr) return;
  qInstallMessageHandler(std::exchange(gestorePrecedente, nullptr));
  for (std::size_t i = 0; i < messaggiQt.size(); ++i) {
    if (const int quanti = messaggiQt[i].exchange(0); quanti > 0)
      registro->record({.operation = "messaggi del toolkit", .detail = kGeneriQt[i], .rows = quanti});
  }
}

bool RegistroFinestre::eventFilter(QObject* oggetto, QEvent* evento) {
  if (evento->type() == QEvent::Show) {
    SupportLog* const registro = SupportLog::active();
    const auto* const messaggio = qobject_cast<const QMessageBox*>(oggetto);
    if (registro != nullptr && messaggio != nullptr) registraMessaggio(*registro, *messaggio);
  }
  return false;
}

}  // namespace cu::strumenti
