#include "system/processo_support.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace cu::test {
namespace {

constexpr int kPazienza = 60'000;  // milliseconds

[[noreturn]] void figlio(const std::vector<std::string>& argomenti, const std::string& cartella, int ingresso,
                         int uscita, const std::string& errori) {
  ::dup2(ingresso, STDIN_FILENO);
  ::dup2(uscita, STDOUT_FILENO);
  const int file = ::open(errori.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  ::dup2(file, STDERR_FILENO);
  for (int numero = 3; numero < 64; ++numero) ::close(numero);
  if (::chdir(cartella.c_str()) != 0) ::_exit(126);
  std::vector<char*> testi;
  for (const std::string& argomento : argomenti) testi.push_back(const_cast<char*>(argomento.c_str()));
  testi.push_back(nullptr);
  ::execv(testi[0], testi.data());
  ::_exit(127);
}

void chiudi(int& descrittore) {
  if (descrittore >= 0) ::close(descrittore);
  descrittore = -1;
}

}  // namespace

Processo::Processo(const std::vector<std::string>& argomenti, const std::string& cartella) {
  std::signal(SIGPIPE, SIG_IGN);
  fileErrori_ = cartella + "/.errori";
  std::array<int, 2> dentro{};
  std::array<int, 2> fuori{};
  if (::pipe(dentro.data()) != 0 || ::pipe(fuori.data()) != 0) throw std::runtime_error("pipe");
  id_ = ::fork();
  if (id_ < 0) throw std::runtime_error("fork");
  if (id_ == 0) figlio(argomenti, cartella, dentro[0], fuori[1], fileErrori_);
  ::close(dentro[0]);
  ::close(fuori[1]);
  ingresso_ = dentro[1];
  uscita_ = fuori[0];
}

Processo::~Processo() {
  chiudi(ingresso_);
  chiudi(uscita_);
  if (!codice_) {
    ::kill(id_, SIGKILL);
    ::waitpid(id_, nullptr, 0);
  }
}

bool Processo::scrivi(const std::string& testo) {
  std::size_t scritti = 0;
  while (scritti < testo.size()) {
    const ssize_t passo = ::write(ingresso_, testo.data() + scritti, testo.size() - scritti);
    if (passo <= 0) return false;
    scritti += static_cast<std::size_t>(passo);
  }
  return true;
}

void Processo::chiudiIngresso() { chiudi(ingresso_); }
void Processo::chiudiUscita() { chiudi(uscita_); }

bool Processo::leggi() {
  pollfd attesa{uscita_, POLLIN, 0};
  if (::poll(&attesa, 1, kPazienza) <= 0) throw std::runtime_error("no answer in time; so far: " + letto_);
  std::array<char, 65536> blocco{};
  const ssize_t letti = ::read(uscita_, blocco.data(), blocco.size());
  if (letti <= 0) return false;
  letto_.append(blocco.data(), static_cast<std::size_t>(letti));
  return true;
}

std::optional<std::string> Processo::riga() {
  for (;;) {
    const std::size_t fine = letto_.find('\n');
    if (fine != std::string::npos) {
      std::string testo = letto_.substr(0, fine);
      letto_.erase(0, fine + 1);
      return testo;
    }
    if (!leggi()) return std::nullopt;
  }
}

std::string Processo::resto() {
  while (leggi()) {
  }
  return std::exchange(letto_, {});
}

int Processo::codice() {
  if (!codice_) {
    int stato = 0;
    ::waitpid(id_, &stato, 0);
    codice_ = WIFEXITED(stato) ? WEXITSTATUS(stato) : 128 + WTERMSIG(stato);
  }
  return *codice_;
}

std::string Processo::errori() {
  codice();
  std::ifstream file(fileErrori_, std::ios::binary);
  std::ostringstream testo;
  testo << file.rdbuf();
  return std::move(testo).str();
}

Esecuzione esegui(const std::vector<std::string>& argomenti, const std::string& cartella,
                  const std::string& ingresso) {
  Processo processo(argomenti, cartella);
  processo.scrivi(ingresso);
  processo.chiudiIngresso();
  Esecuzione esito;
  esito.uscita = processo.resto();
  esito.codice = processo.codice();
  esito.errori = processo.errori();
  return esito;
}

}  // namespace cu::test
