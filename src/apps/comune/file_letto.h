#pragma once

#include <cstdint>
#include <fstream>
#include <string>

#include "base/error.h"
#include "lettura/righe.h"

namespace cu {

// A file that cannot be read; one line in Italian that names it.
class FileIlleggibile : public FileError {
 public:
  explicit FileIlleggibile(const std::string& testo) : FileError(kErrorFileNotFound, testo) {}
};

// One that belongs to an embedded database in use is not opened: closing it would release the locks of the
// database. FileIlleggibile with what it is.
void rifiutaFileDelDatabase(const std::string& percorso);

// A file of the machine as a source of bytes. FileIlleggibile where it cannot be opened or read, or
// belongs to a database in use.
class FileLetto : public lettura::Sorgente {
 public:
  explicit FileLetto(const std::string& percorso);
  std::size_t leggi(char* dove, std::size_t quanti) override;
  std::uint64_t dimensione() const { return dimensione_; }

 private:
  std::string percorso_;
  std::ifstream file_;
  std::uint64_t dimensione_ = 0;
};

}  // namespace cu
