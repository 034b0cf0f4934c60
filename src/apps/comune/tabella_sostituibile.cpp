#include "apps/comune/tabella_sostituibile.h"

#include <filesystem>
#include <fstream>
#include <string_view>

#include "base/text.h"
#include "sqlite/own_files.h"

namespace cu {
namespace {

// A text has no zero bytes; a workbook is an archive.
bool altroCheUnaTabella(const std::string& file) {
  if (belongsToOwnDatabase(file)) return true;
  constexpr std::size_t kTratto = 8192;
  std::string inizio(kTratto, '\0');
  std::ifstream flusso(file, std::ios::binary);
  flusso.read(inizio.data(), static_cast<std::streamsize>(inizio.size()));
  inizio.resize(static_cast<std::size_t>(flusso.gcount()));
  if (inizio.empty()) return false;
  constexpr std::string_view kXlsx = ".xlsx";
  const bool cartella = file.size() > kXlsx.size() &&
                        equalsNoCase(std::string_view(file).substr(file.size() - kXlsx.size()), kXlsx);
  return cartella ? !inizio.starts_with("PK") : inizio.find('\0') != std::string::npos;
}

}  // namespace

std::string tabellaRifiutata(const std::string& file) {
  std::error_code ignorato;
  if (std::filesystem::is_directory(file, ignorato)) {
    return "«" + file + "» è una cartella: per la tabella serve il nome di un file.";
  }
  if (!std::filesystem::is_regular_file(file, ignorato) || !altroCheUnaTabella(file)) return {};
  return "Il file «" + file + "» esiste già e non è una tabella: non viene sostituito.";
}

}  // namespace cu
