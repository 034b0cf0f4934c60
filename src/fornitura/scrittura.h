#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "base/date.h"
#include "base/result.h"
#include "fornitura/intorno.h"
#include "telematic/cu_ele.h"
#include "worklist/compensi.h"

// Writing the telematic file of the selected lines.
namespace cu::fornitura {

// "CUR_<fiscal code>_<year>.cur", the year as the list shows it.
std::string fnNomeFile(const std::string& sCodFisc, const std::string& anno);

struct RichiestaFile {
  std::string anno;      // as the list shows it
  std::string cartella;  // of the file
  // The folder below that of the documents which is made where it is missing.
  std::string cartellaDocumenti;
  Date firma;
  DatiFornitura dati;
};

struct FileScritto {
  std::string nome;
  std::string percorso;
  std::size_t certificazioni = 0;  // 0 where there was nothing to write, and then no file was made
};

// Refused where the file cannot be opened: "percorso-inesistente" with a text for a person, otherwise
// "file-non-scritto" without one. An error that rises leaves the lines written before it, and no record Z.
Result<FileScritto> scrivi(const Intorno& intorno, Compensi& compensi, const RichiestaFile& richiesta);

}  // namespace cu::fornitura
