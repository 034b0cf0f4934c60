#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>

class QThread;

namespace cu::strumenti {

// Raised in the work when the user has cancelled it.
class Interrotto : public std::exception {
 public:
  const char* what() const noexcept override { return "cancelled"; }
};

// One work at a time in a thread of its own. It is created, asked and destroyed in the window's thread; the
// destructor cancels the work and waits for it.
class Lavoro : public QObject {
 public:
  struct Esito {
    QString errore;  // Italian; empty where the work was done
    bool interrotto = false;
  };

  explicit Lavoro(QObject* parent);
  ~Lavoro() override;

  // `finito` is called in the window's thread.
  void avvia(std::function<void()> lavoro, std::function<void(const Esito&)> finito);
  void annulla() { annullato_ = true; }
  bool inCorso() const { return thread_ != nullptr; }
  // Called in the window's thread while the work is running.
  std::function<void(std::uint64_t fatto, std::uint64_t totale)> avanzamento;

  // For the work: reports how far it is. Raises Interrotto.
  void avanza(std::uint64_t fatto, std::uint64_t totale);
  // For the work: asks the user, in the window's thread, and returns the answer. The window must not be
  // destroyed meanwhile.
  bool chiedi(const std::function<bool()>& domanda);

 private:
  void finisci(const Esito& esito);

  std::unique_ptr<QThread> thread_;
  std::function<void(const Esito&)> finito_;
  QTimer orologio_;
  std::atomic<bool> annullato_ = false;
  std::atomic<std::uint64_t> fatto_ = 0;
  std::atomic<std::uint64_t> totale_ = 0;
};

}  // namespace cu::strumenti
