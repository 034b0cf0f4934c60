#pragma once

#include <cstdint>
#include <string>

#include "fatture/raccolta.h"

namespace cu {

// The bytes of a file to be imported, which is only read.
struct FileImportatoInMemoria {
  std::string nome;    // without folders; "ingresso standard" for "-"
  std::string byte;    // no more than one beyond the limit of a table
  std::string sha256;  // 64 digits
};

// "-" is the standard input. FileIlleggibile (apps/comune/file_letto.h) where it cannot be read.
FileImportatoInMemoria leggiFileImportato(const std::string& percorso);

// For invoices: those of the reading, and the files of a database in use are not opened.
fatture::LimitiRaccolta limitiDellaRaccolta();

}  // namespace cu
