#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace cu {

struct EsitoProcesso {
  std::optional<std::string> risposta;  // none where the process ended before its answer
  std::string motivo;                   // then why, in Italian
};

// Does the works 0 to `quanti` - 1 in processes of their own, `insieme` at a time: whatever happens to one of
// them, the others are done. `lavoro` runs in such a process, and what it returns comes back; it raises
// nothing. `finito` is called here, in the order in which works end. No connection to a database may be open,
// and no thread may run, when this is called. Raises std::runtime_error where no process can be started.
//
// After Ctrl+C, or what else asks this process to end, no further work is begun: `interrotto` is called, the
// works in hand are ended, and false is returned. The same again ends their processes at once.
bool eseguiInProcessi(std::size_t quanti, std::size_t insieme,
                      const std::function<std::string(std::size_t quale)>& lavoro,
                      const std::function<void(std::size_t quale, const EsitoProcesso& esito)>& finito,
                      const std::function<void()>& interrotto = {});

// The number of cores of the machine, at least 1.
std::size_t unitaDiCalcolo();

}  // namespace cu
