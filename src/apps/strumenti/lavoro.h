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
  bool annullato() const { return annullato_; }
  bool inCorso() const { return thread_ != nullptr; }
  // Called in the window's thread while the work is running.
  std::function<void(const char* che, std::uint64_t fatto, std::uint64_t totale)> avanzamento;

  // For the work: reports what it does and how far it is, with a total of 0 where that is not known. `che`
  // stays valid. The second raises Interrotto.
  void riferisci(const char* che, std::uint64_t fatto, std::uint64_t totale);
  void avanza(const char* che, std::uint64_t fatto, std::uint64_t totale);
  // For the work: asks the user, in the window's thread, and returns the answer. The window must not be
  // destroyed meanwhile.
  bool chiedi(const std::function<bool()>& domanda);

 private:
  void finisci(const Esito& esito);

  std::unique_ptr<QThread> thread_;
  std::function<void(const Esito&)> finito_;
  QTimer orologio_;
  std::atomic<bool> annullato_ = false;
  std::atomic<const char*> che_ = nullptr;
  std::atomic<std::uint64_t> fatto_ = 0;
  std::atomic<std::uint64_t> totale_ = 0;
};

}  // namespace cu::strumenti
