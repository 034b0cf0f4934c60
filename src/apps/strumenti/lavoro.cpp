#include "apps/strumenti/lavoro.h"

#include <QThread>
#include <utility>

#include "apps/comune/parole_database.h"
#include "suite/support_log.h"

namespace cu::strumenti {
namespace {

constexpr int kMillisecondi = 100;  // between two reports of the progress

Lavoro::Esito esitoDi(const std::function<void()>& lavoro, const std::string& finestra) {
  try {
    LogEntry voce{.operation = "lavoro", .object = finestra};
    return logged(SupportLog::active(), voce, [&]() -> Lavoro::Esito {
      try {
        lavoro();
        return {};
      } catch (const Interrotto&) {
        voce.detail = "interrotto";
        return {{}, true};
      }
    });
  } catch (const std::exception& errore) {
    const QString testo = QString::fromStdString(dettoInFinestra(errore));
    return {testo.isEmpty() ? QStringLiteral("L'operazione non è riuscita.") : testo, false};
  }
}

}  // namespace

Lavoro::Lavoro(QObject* parent) : QObject(parent) {
  orologio_.setInterval(kMillisecondi);
  connect(&orologio_, &QTimer::timeout, this, [this] {
    if (avanzamento) avanzamento(che_, fatto_, totale_);
  });
}

Lavoro::~Lavoro() {
  annullato_ = true;
  if (thread_ != nullptr) thread_->wait();
}

void Lavoro::avvia(std::function<void()> lavoro, std::function<void(const Esito&)> finito) {
  if (inCorso()) return;
  annullato_ = false;
  riferisci(nullptr, 0, 0);
  finito_ = std::move(finito);
  const std::string finestra = parent() == nullptr ? std::string() : parent()->metaObject()->className();
  thread_.reset(QThread::create([this, finestra, lavoro = std::move(lavoro)] {
    const Esito esito = esitoDi(lavoro, finestra);
    QMetaObject::invokeMethod(
        this, [this, esito] { finisci(esito); }, Qt::QueuedConnection);
  }));
  orologio_.start();
  thread_->start();
}

void Lavoro::finisci(const Esito& esito) {
  orologio_.stop();
  thread_->wait();
  thread_.reset();
  const auto finito = std::exchange(finito_, nullptr);
  if (finito) finito(esito);
}

void Lavoro::riferisci(const char* che, std::uint64_t fatto, std::uint64_t totale) {
  che_ = che;
  fatto_ = fatto;
  totale_ = totale;
}

void Lavoro::avanza(const char* che, std::uint64_t fatto, std::uint64_t totale) {
  if (annullato_) throw Interrotto();
  riferisci(che, fatto, totale);
}

bool Lavoro::chiedi(const std::function<bool()>& domanda) {
  bool risposta = false;
  QMetaObject::invokeMethod(
      this, [&] { risposta = domanda(); }, Qt::BlockingQueuedConnection);
  return risposta;
}

}  // namespace cu::strumenti
