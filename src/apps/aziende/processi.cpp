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

void eseguiInProcessi(std::size_t quanti, std::size_t,
                      const std::function<std::string(std::size_t quale)>& lavoro,
                      const std::function<void(std::size_t quale, const EsitoProcesso& esito)>& finito) {
  for (std::size_t quale = 0; quale < quanti; ++quale) finito(quale, {lavoro(quale), ""});
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

struct Processo {
  pid_t id = -1;
  int canale = -1;
  std::optional<std::size_t> lavoro;  // what it does now
};

class Squadra {
 public:
  Squadra(std::size_t quanti, const std::function<std::string(std::size_t)>& lavoro,
          const std::function<void(std::size_t, const EsitoProcesso&)>& finito)
      : quanti_(quanti), lavoro_(lavoro), finito_(finito) {}
  Squadra(const Squadra&) = delete;
  Squadra& operator=(const Squadra&) = delete;
  ~Squadra() {
    while (!processi_.empty()) static_cast<void>(congeda(processi_.back()));
  }

  void esegui(std::size_t insieme) {
    while (processi_.size() < std::min(insieme, quanti_)) avvia();
    while (!processi_.empty()) ascolta();
  }

 private:
  // Starts a process with the next work. What waits in the output must not be in two processes.
  void avvia() {
    std::cout.flush();
    std::cerr.flush();
    std::array<int, 2> canali{};
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, canali.data()) != 0) nonAvviato();
    const pid_t id = ::fork();
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

  std::size_t quanti_;
  const std::function<std::string(std::size_t)>& lavoro_;
  const std::function<void(std::size_t, const EsitoProcesso&)>& finito_;
  std::vector<Processo> processi_;
  std::size_t prossimo_ = 0;
};

}  // namespace

void eseguiInProcessi(std::size_t quanti, std::size_t insieme,
                      const std::function<std::string(std::size_t quale)>& lavoro,
                      const std::function<void(std::size_t quale, const EsitoProcesso& esito)>& finito) {
  Squadra(quanti, lavoro, finito).esegui(std::max<std::size_t>(1, insieme));
}

#endif

}  // namespace cu
