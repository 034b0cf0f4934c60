#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "suite/profilo.h"

namespace cu {

// The log for support of a run of a program, from its first line to its last. There is one object in a
// process.
class RegistroProgramma {
 public:
  using Avviso = std::function<void(const std::string&)>;
  // `avvio` is the program with its version and its command, such as "cuctl 0.1.0 make". `avviso` receives
  // the line for the user when the log cannot be written, from any thread.
  RegistroProgramma(std::string avvio, Avviso avviso);
  ~RegistroProgramma();
  RegistroProgramma(const RegistroProgramma&) = delete;
  RegistroProgramma& operator=(const RegistroProgramma&) = delete;

  // The file of the option --log, which precedes that of a profile; empty for none.
  void apri(const std::string& file);
  // Records the exit code, or the error that ends the program.
  void fine(int esito);
  void fine(const std::exception& errore);

 private:
  friend Profilo leggiProfiloConRegistro(const std::string& file);

  std::string avvio_;
  Avviso avviso_;
  std::chrono::steady_clock::time_point inizio_;
};

// Reads a profile and begins the log that it asks for, unless there is one.
Profilo leggiProfiloConRegistro(const std::string& file);

}  // namespace cu
