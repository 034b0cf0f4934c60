#include "system/terminale_support.h"

#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

namespace cu::test {

AlTerminale::AlTerminale(std::vector<std::string> argomenti, const std::string& digitato,
                         const std::string& quando) {
  argomenti.insert(argomenti.begin(), CU_CUCTL);
  int padrone = -1;
  const pid_t figlio = ::forkpty(&padrone, nullptr, nullptr, nullptr);
  if (figlio == 0) {
    std::vector<char*> puntatori;
    for (std::string& each : argomenti) puntatori.push_back(each.data());
    puntatori.push_back(nullptr);
    ::execv(puntatori[0], puntatori.data());
    ::_exit(127);
  }
  bool scritto = false;
  char blocco[1024];
  pollfd attesa{padrone, POLLIN, 0};
  while (::poll(&attesa, 1, 10'000) > 0) {
    const ssize_t letti = ::read(padrone, blocco, sizeof blocco);
    if (letti <= 0) break;
    visto.append(blocco, static_cast<std::size_t>(letti));
    if (scritto || visto.find(quando) == std::string::npos) continue;
    scritto = ::write(padrone, digitato.data(), digitato.size()) > 0;
  }
  ::close(padrone);
  int stato = 0;
  ::waitpid(figlio, &stato, 0);
  codice = WIFEXITED(stato) ? WEXITSTATUS(stato) : -1;
}

}  // namespace cu::test
