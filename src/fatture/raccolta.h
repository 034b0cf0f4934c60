#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "fatture/fattura.h"
#include "tabelle/lettura.h"

namespace cu::fatture {

struct LimitiRaccolta {
  Limiti documento;
  // Of an archive: its bytes, its members, what they expand to.
  tabelle::Limiti archivio{
      .byte = std::size_t{100} << 20U, .membri = 60000, .espansi = std::size_t{1} << 30U, .rapporto = 100};
  std::size_t file = 100000;  // of a folder
  int profondita = 20;        // of folders
  // Files that must not be opened, whatever they hold, in use by the caller; none without it.
  std::function<bool(const std::filesystem::path& file)> intoccabile = {};
};

// What was met besides the files that were given to the caller, by what it is: "file vuoto" 12.
using Ignorati = std::map<std::string, std::size_t>;

// Receives each file in order, and returns whether to go on.
using Ricevente = std::function<bool(Letto&&)>;

// Reads the invoices of a file, of all files of a folder and those below it in the order of their names, or
// of all members of an archive, one at a time. Notifications and metadata are given to the receiver too, and
// a file that cannot be read with its message; the others follow. What is no invoice at all (a PDF, a style
// sheet) is counted, unless the caller has named that very file. Names of members are for the messages only.
// Raises nothing of its own.
Ignorati raccogli(const std::filesystem::path& percorso, const Ricevente& ricevente,
                  const LimitiRaccolta& limiti = {});
// The same for the bytes of a file.
Ignorati raccogli(std::string_view byte, const std::string& nome, const Ricevente& ricevente,
                  const LimitiRaccolta& limiti = {});

}  // namespace cu::fatture
