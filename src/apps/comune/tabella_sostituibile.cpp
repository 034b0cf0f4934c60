#include "apps/comune/tabella_sostituibile.h"

#include <filesystem>
#include <fstream>
#include <string_view>

#include "base/text.h"
#include "sqlite/own_files.h"

namespace cu {
namespace {

// A workbook is an archive. Of a text only its name tells that it is a table, or the mark with which every
// CSV of this program begins. What cannot be read may be anything.
bool altroCheUnaTabella(const std::string& file) {
  if (belongsToOwnDatabase(file)) return true;
  constexpr std::size_t kTratto = 8192;
  std::string inizio(kTratto, '\0');
  std::ifstream flusso(file, std::ios::binary);
  if (!flusso) return true;
  flusso.read(inizio.data(), static_cast<std::streamsize>(inizio.size()));
  inizio.resize(static_cast<std::size_t>(flusso.gcount()));
  if (inizio.empty()) return false;
  const std::string finale = std::filesystem::path(file).extension().string();
  if (equalsNoCase(finale, ".xlsx")) return !inizio.starts_with("PK");
  if (equalsNoCase(finale, ".csv")) return inizio.find('\0') != std::string::npos;
  return !inizio.starts_with("\xEF\xBB\xBF");
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
