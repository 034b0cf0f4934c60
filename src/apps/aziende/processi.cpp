#include "apps/aziende/processi.h"

#include <thread>

#ifndef _WIN32
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <vector>

#include "base/text.h"
#include "suite/support_log.h"
#endif

namespace cu {

std::size_t unitaDiCalcolo() { return std::max(1U, std::thread::hardware_concurrency()); }

#ifdef _WIN32

bool eseguiInProcessi(std::size_t quanti, std::size_t,
                      const std::function<std::string(std::size_t quale)>& lavoro,
                      const std::function<void(std::size_t quale, const EsitoProcesso& esito)>& finito,
                      const std::function<void()>&) {
  for (std::size_t quale = 0; quale < quanti; ++quale) finito(quale, {lavoro(quale), ""});
  return true;
}

#else

namespace {

// Both go on after an interruption; false at the end of the channel, or where nobody reads it.
bool scrivi(int canale, const void* dati, std::size_t quanti) {
  const char* da = static_cast<const char*>(dati);
  while (quanti > 0) {
    const ssize_t scritti = ::send(canale, da, quanti, MSG_NOSIGNAL);
    if (scritti < 0 && errno == EINTR) continue;
    if (scritti <= 0) return false;
    da += scritti;
    quanti -= static_cast<std::size_t>(scritti);
  }
  return true;
}

bool leggi(int canale, void* dove, std::size_t quanti) {
  char* a = static_cast<char*>(dove);
  while (quanti > 0) {
    const ssize_t letti = ::recv(canale, a, quanti, 0);
    if (letti < 0 && errno == EINTR) continue;
    if (letti <= 0) return false;
    a += letti;
    quanti -= static_cast<std::size_t>(letti);
  }
  return true;
}

volatile std::sig_atomic_t richiesteDiFine = 0;

extern "C" void contaRichiesta(int) { richiesteDiFine = richiesteDiFine + 1; }

// Counts what asks this process to end during its lifetime, instead of ending it.
class RichiesteDiFine {
 public:
  RichiesteDiFine() {
    richiesteDiFine = 0;
    struct sigaction nostra {};
    nostra.sa_handler = contaRichiesta;
    sigemptyset(&nostra.sa_mask);
    for (std::size_t i = 0; i < kSegnali.size(); ++i) {
      ::sigaction(kSegnali[i], nullptr, &prima_[i]);
      // What the caller wants to be ignored is.
      if (prima_[i].sa_handler != SIG_IGN) ::sigaction(kSegnali[i], &nostra, nullptr);
    }
  }
  ~RichiesteDiFine() {
    for (std::size_t i = 0; i < kSegnali.size(); ++i) ::sigaction(kSegnali[i], &prima_[i], nullptr);
  }
  RichiesteDiFine(const RichiesteDiFine&) = delete;
  RichiesteDiFine& operator=(const RichiesteDiFine&) = delete;

  // Starts a process in which none is lost and none is counted. It ends its work first: a terminal sends
  // Ctrl+C, and its own end, to all of them.
  template <class Avvio>
  static pid_t senza(const Avvio& avvio) {
    sigset_t nostri;
    sigset_t prima;
    sigemptyset(&nostri);
    for (const int segnale : kSegnali) sigaddset(&nostri, segnale);
    ::sigprocmask(SIG_BLOCK, &nostri, &prima);
    const pid_t id = avvio();
    if (id == 0) {
      ::signal(SIGINT, SIG_IGN);
      ::signal(SIGHUP, SIG_IGN);
      ::signal(SIGTERM, SIG_DFL);
    }
    ::sigprocmask(SIG_SETMASK, &prima, nullptr);
    return id;
  }

 private:
  static constexpr std::array kSegnali = {SIGINT, SIGTERM, SIGHUP};
  std::array<struct sigaction, kSegnali.size()> prima_{};
};

struct Processo {
  pid_t id = -1;
  int canale = -1;
  std::optional<std::size_t> lavoro;  // what it does now
};

class Squadra {
 public:
  Squadra(std::size_t quanti, const std::function<std::string(std::size_t)>& lavoro,
          const std::function<void(std::size_t, const EsitoProcesso&)>& finito,
          const std::function<void()>& interrotto)
      : quanti_(quanti), lavoro_(lavoro), finito_(finito), interrotto_(interrotto) {}
  Squadra(const Squadra&) = delete;
  Squadra& operator=(const Squadra&) = delete;
  ~Squadra() {
    while (!processi_.empty()) static_cast<void>(congeda(processi_.back()));
  }

  // False where it was interrupted before the last work was begun.
  bool esegui(std::size_t insieme) {
    while (processi_.size() < std::min(insieme, quanti_)) avvia();
    while (!processi_.empty()) {
      ascolta();
      guardaRichieste();
    }
    return prossimo_ == tutti_;
  }

 private:
  void guardaRichieste() {
    const int richieste = richiesteDiFine;
    if (richieste > viste_ && viste_ == 0) {
      quanti_ = prossimo_;
      if (prossimo_ < tutti_ && interrotto_) interrotto_();
    }
    if (richieste > 1) {
      for (const Processo& processo : processi_) ::kill(processo.id, SIGTERM);
    }
    viste_ = richieste;
  }

  // Starts a process with the next work. What waits in the output must not be in two processes.
  void avvia() {
    std::cout.flush();
    std::cerr.flush();
    std::array<int, 2> canali{};
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, canali.data()) != 0) nonAvviato();
    const pid_t id = RichiesteDiFine::senza([] { return ::fork(); });
    if (id < 0) {
      ::close(canali[0]);
      ::close(canali[1]);
      nonAvviato();
    }
    if (id == 0) {
      // With another's end of its channel here, that other one would not see it closed.
      for (const Processo& altro : processi_) ::close(altro.canale);
      ::close(canali[0]);
      lavora(canali[1]);
    }
    ::close(canali[1]);
    processi_.push_back({id, canali[0], std::nullopt});
    affida(processi_.back());
  }

  [[noreturn]] static void nonAvviato() {
    throw std::runtime_error("Il sistema non permette altri processi. Ripetere con --jobs 1.");
  }

  // In the new process, which does not return into the program that started it.
  [[noreturn]] void lavora(int canale) noexcept {
    for (std::uint64_t quale = 0; leggi(canale, &quale, sizeof quale);) {
      const std::string risposta = lavoro_(static_cast<std::size_t>(quale));
      const std::uint64_t lunghezza = risposta.size();
      if (!scrivi(canale, &lunghezza, sizeof lunghezza) || !scrivi(canale, risposta.data(), risposta.size()))
        break;
    }
    std::cout.flush();
    std::cerr.flush();
    if (SupportLog* const log = SupportLog::active(); log != nullptr) log->flush();
    std::_Exit(0);
  }

  // A process that cannot take the work has ended: that is seen when it is listened to.
  void affida(Processo& processo) {
    const std::uint64_t quale = prossimo_++;
    processo.lavoro = static_cast<std::size_t>(quale);
    static_cast<void>(scrivi(processo.canale, &quale, sizeof quale));
  }

  void ascolta() {
    std::vector<pollfd> canali;
    for (const Processo& processo : processi_) canali.push_back({processo.canale, POLLIN, 0});
    if (::poll(canali.data(), static_cast<nfds_t>(canali.size()), -1) < 0) return;
    // From the last one, because one that has ended is taken out.
    for (std::size_t i = canali.size(); i-- > 0;) {
      if (canali[i].revents != 0) ricevi(i);
    }
  }

  void ricevi(std::size_t posto) {
    Processo& processo = processi_[posto];
    const std::size_t quale = *processo.lavoro;
    std::uint64_t lunghezza = 0;
    std::string risposta;
    bool intera = leggi(processo.canale, &lunghezza, sizeof lunghezza);
    if (intera) {
      risposta.resize(static_cast<std::size_t>(lunghezza));
      intera = leggi(processo.canale, risposta.data(), risposta.size());
    }
    if (!intera) {
      const std::string motivo = congeda(processo);
      finito_(quale, {std::nullopt, motivo});
      if (prossimo_ < quanti_) avvia();
      return;
    }
    finito_(quale, {std::move(risposta), ""});
    if (prossimo_ < quanti_) {
      affida(processo);
    } else {
      static_cast<void>(congeda(processo));
    }
  }

  // Waits for the end of a process, which a closed channel brings about; says how it ended.
  std::string congeda(Processo& processo) {
    ::close(processo.canale);
    int stato = 0;
    while (::waitpid(processo.id, &stato, 0) < 0 && errno == EINTR) {
    }
    processi_.erase(processi_.begin() + (&processo - processi_.data()));
    if (WIFSIGNALED(stato)) {
      return "il processo che la faceva è stato interrotto (segnale " + fromInteger(WTERMSIG(stato)) + ")";
    }
    return "il processo che la faceva è finito prima del tempo (codice " + fromInteger(WEXITSTATUS(stato)) +
           ")";
  }

  std::size_t quanti_;  // to be begun
  std::size_t tutti_ = quanti_;
  const std::function<std::string(std::size_t)>& lavoro_;
  const std::function<void(std::size_t, const EsitoProcesso&)>& finito_;
  const std::function<void()>& interrotto_;
  std::vector<Processo> processi_;
  std::size_t prossimo_ = 0;
  int viste_ = 0;  // requests to end
};

}  // namespace

bool eseguiInProcessi(std::size_t quanti, std::size_t insieme,
                      const std::function<std::string(std::size_t quale)>& lavoro,
                      const std::function<void(std::size_t quale, const EsitoProcesso& esito)>& finito,
                      const std::function<void()>& interrotto) {
  const RichiesteDiFine richieste;
  return Squadra(quanti, lavoro, finito, interrotto).esegui(std::max<std::size_t>(1, insieme));
}

#endif

}  // namespace cu
