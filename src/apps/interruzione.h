#pragma once

#include <array>
#include <csignal>
#include <cstdint>
#include <exception>
#include <string>

namespace cu {

// Raised in a work that the user has interrupted, or whose terminal is gone.
class Interrotto : public std::exception {
 public:
  const char* what() const noexcept override { return "interrupted"; }
};

// During its lifetime Ctrl+C, and what else asks the process to end, ends the work between two steps instead
// of the process; and the progress is shown where standard error is a terminal.
class LavoroAlTerminale {
 public:
  LavoroAlTerminale();
  ~LavoroAlTerminale();
  LavoroAlTerminale(const LavoroAlTerminale&) = delete;
  LavoroAlTerminale& operator=(const LavoroAlTerminale&) = delete;

  // "Copia", how far; the total is 0 where that is not known. Raises Interrotto.
  void avanza(const char* che, std::uint64_t fatto, std::uint64_t totale);

 private:
  void mostra(const std::string& testo);

  static constexpr std::array kSegnali = {SIGINT, SIGTERM, SIGHUP};
  std::array<struct sigaction, kSegnali.size()> prima_{};
  bool terminale_;
  std::string mostrato_;
};

// Whether there is a person to ask: standard input and standard error are a terminal.
bool conPersona();

}  // namespace cu
