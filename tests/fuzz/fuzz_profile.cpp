// Any bytes as a profile: read, or rejected in one line that names the file.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "suite/profilo.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  try {
    const cu::Profilo profilo = cu::analizzaProfilo(text, "p.toml", "/cartella");
    if (profilo.documenti.empty() || profilo.impostazioni.empty()) std::abort();
    if (profilo.database.origine.empty()) std::abort();
  } catch (const cu::ErroreProfilo& errore) {
    const std::string_view riga = errore.what();
    if (!riga.starts_with("p.toml: ") || riga.find('\n') != std::string_view::npos) std::abort();
  }
  return 0;
}
