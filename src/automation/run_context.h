#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace cu {

// The data of the command `context`; the ids are set once the session has been bound.
struct RunContext {
  std::int32_t gIDFunzione = 0;
  std::int32_t gAnno = 0;
  std::string gTabellaLavoro;
  std::string gTitolo;
  std::string gChiaveImpostazioni;
  std::int32_t gDecimaliValuta = 0;
  std::string gSimboloValuta;
  std::string gSeparatoreDecimale;
  std::string gSeparatoreMigliaia;
  std::optional<std::int64_t> IDUtente;
  std::optional<std::int64_t> IDAzienda;
  std::optional<std::int64_t> IDFiliale;
};

using ReadRunContext = std::function<RunContext()>;

}  // namespace cu
