#include "interruzione.h"

#include <unistd.h>

#include <iostream>

namespace cu {
namespace {

volatile std::sig_atomic_t chiesta = 0;

extern "C" void segnalaInterruzione(int) { chiesta = 1; }

}  // namespace

LavoroAlTerminale::LavoroAlTerminale() : terminale_(::isatty(STDERR_FILENO) == 1) {
  chiesta = 0;
  struct sigaction nostra {};
  nostra.sa_handler = segnalaInterruzione;
  sigemptyset(&nostra.sa_mask);
  nostra.sa_flags = SA_RESTART;
  for (std::size_t i = 0; i < kSegnali.size(); ++i) {
    ::sigaction(kSegnali[i], nullptr, &prima_[i]);
    // What the caller wants to be ignored is.
    if (prima_[i].sa_handler != SIG_IGN) ::sigaction(kSegnali[i], &nostra, nullptr);
  }
}

LavoroAlTerminale::~LavoroAlTerminale() {
  mostra({});
  for (std::size_t i = 0; i < kSegnali.size(); ++i) ::sigaction(kSegnali[i], &prima_[i], nullptr);
}

void LavoroAlTerminale::avanza(const char* che, std::uint64_t fatto, std::uint64_t totale) {
  if (chiesta != 0) throw Interrotto();
  if (!terminale_) return;
  std::string testo = che;
  if (totale > 0) testo += ": " + std::to_string(fatto * 100 / totale) + " %";
  mostra(testo + (totale > 0 ? "" : "…"));
}

// Writes over what is there; a percentage changes a hundred times at most.
void LavoroAlTerminale::mostra(const std::string& testo) {
  if (!terminale_ || testo == mostrato_) return;
  std::cerr << '\r' << std::string(mostrato_.size(), ' ') << '\r' << testo << std::flush;
  mostrato_ = testo;
}

bool conPersona() { return ::isatty(STDIN_FILENO) == 1 && ::isatty(STDERR_FILENO) == 1; }

}  // namespace cu
