#include "suite/file_distinti.h"

#include <array>
#include <filesystem>
#include <string_view>
#include <vector>

#include "suite/lettore_toml.h"

namespace cu {
namespace {

struct FileDetto {
  std::string percorso;
  std::string che;  // what it is, for the other one's message
};

bool stessoFile(const std::string& uno, const std::string& altro) {
  std::error_code ignorato;
  if (std::filesystem::equivalent(uno, altro, ignorato)) return true;
  return std::filesystem::absolute(uno, ignorato).lexically_normal() ==
         std::filesystem::absolute(altro, ignorato).lexically_normal();
}

std::vector<FileDetto> fileDiPartenza(const Profilo& profilo) {
  std::vector<FileDetto> file;
  if (!profilo.file.empty()) file.push_back({profilo.file, "il profilo stesso"});
  if (profilo.database.motore != Profilo::Motore::Sqlite) return file;
  for (const char* const coda : {"", "-wal", "-shm", "-journal"}) {
    file.push_back(
        {profilo.database.origine + coda, *coda == '\0' ? "il database" : "un file di lavoro del database"});
  }
  return file;
}

[[noreturn]] void rifiuta(const Profilo& profilo, std::string_view chiave, const std::string& difetto) {
  throw ErroreProfilo(unaRiga(profilo.file) + ": " + std::string(chiave) + ": è " + difetto +
                      ", atteso un altro file");
}

}  // namespace

void controllaFileDistinti(const Profilo& profilo) {
  struct DaScrivere {
    std::string_view chiave;
    const std::string& percorso;
    const char* che;
  };
  const std::array<DaScrivere, 3> daScrivere = {
      {{"folders.settings", profilo.impostazioni, "il file delle impostazioni"},
       {"trace.sql", profilo.traccia, "la traccia"},
       {"log.file", profilo.registro, "il registro"}}};
  std::vector<FileDetto> presi = fileDiPartenza(profilo);
  for (const DaScrivere& uno : daScrivere) {
    if (uno.percorso.empty()) continue;
    for (const FileDetto& preso : presi) {
      if (stessoFile(uno.percorso, preso.percorso)) rifiuta(profilo, uno.chiave, preso.che);
    }
    presi.push_back({uno.percorso, uno.che});
  }
  std::error_code ignorato;
  const auto natura = std::filesystem::status(profilo.impostazioni, ignorato).type();
  if (natura == std::filesystem::file_type::character || natura == std::filesystem::file_type::block ||
      natura == std::filesystem::file_type::fifo || natura == std::filesystem::file_type::socket) {
    rifiuta(profilo, daScrivere.front().chiave, "un dispositivo o una pipe");
  }
}

}  // namespace cu
