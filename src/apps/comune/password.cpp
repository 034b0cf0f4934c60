#include "apps/comune/password.h"

#ifdef _WIN32
#include <io.h>
#include <windows.h>
#else
#include <termios.h>
#include <unistd.h>
#endif

#include <cstdlib>
#include <iostream>
#include <utility>

#include "base/error.h"

namespace cu {
namespace {

[[noreturn]] void rifiuta(const std::string& motivo) {
  throw DatabaseError(DatabaseErrorKind::Unavailable, 0, "", motivo);
}

FontePassword& fonteDelProgramma() {
  static FontePassword fonte;
  return fonte;
}

#ifdef _WIN32
class SenzaEco {
 public:
  SenzaEco() : ingresso_(::GetStdHandle(STD_INPUT_HANDLE)) {
    ::GetConsoleMode(ingresso_, &prima_);
    ::SetConsoleMode(ingresso_, prima_ & ~static_cast<DWORD>(ENABLE_ECHO_INPUT));
  }
  ~SenzaEco() { ::SetConsoleMode(ingresso_, prima_); }

 private:
  HANDLE ingresso_;
  DWORD prima_ = 0;
};
#else
class SenzaEco {
 public:
  SenzaEco() {
    ::tcgetattr(STDIN_FILENO, &prima_);
    termios muto = prima_;
    muto.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &muto);
  }
  ~SenzaEco() { ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &prima_); }
  SenzaEco(const SenzaEco&) = delete;
  SenzaEco& operator=(const SenzaEco&) = delete;

 private:
  termios prima_{};
};
#endif

std::string chiedi() {
  std::string password;
  {
    // Before the prompt: early input must not be displayed either.
    const SenzaEco muto;
    std::cerr << "Password del database: " << std::flush;
    std::getline(std::cin, password);
  }
  std::cerr << '\n';
  if (!std::cin) rifiuta("La password del database non è stata data.");
  return password;
}

}  // namespace

#ifdef _WIN32
bool alTerminale() { return ::_isatty(0) != 0 && ::_isatty(2) != 0; }
#else
bool alTerminale() { return ::isatty(STDIN_FILENO) == 1 && ::isatty(STDERR_FILENO) == 1; }
#endif

void usaFontePassword(FontePassword fonte) { fonteDelProgramma() = std::move(fonte); }

std::string passwordDi(const Profilo::Database& database) {
  if (!database.variabilePassword.empty()) {
    const char* const valore = std::getenv(database.variabilePassword.c_str());
    if (valore == nullptr) {
      rifiuta("La variabile d'ambiente «" + database.variabilePassword +
              "», che deve contenere la password del database, non è impostata.");
    }
    return valore;
  }
  if (fonteDelProgramma()) {
    if (auto data = fonteDelProgramma()(database)) return *std::move(data);
  }
  if (!alTerminale()) {
    rifiuta(
        "Manca la password del database: indicare in password_env del profilo, o con --password-env, il nome "
        "della variabile d'ambiente che la contiene. Qui non c'è un terminale a cui chiederla.");
  }
  return chiedi();
}

}  // namespace cu
