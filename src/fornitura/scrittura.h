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

// "CUR_<fiscal code>_<year>.cur", with the year as shown in the list.
std::string fnNomeFile(const std::string& sCodFisc, const std::string& anno);

struct RichiestaFile {
  std::string anno;      // as shown in the list
  std::string cartella;  // of the file
  // The subfolder of the documents folder, created where it is missing.
  std::string cartellaDocumenti;
  Date firma;
  DatiFornitura dati;
};

struct FileScritto {
  std::string nome;
  std::string percorso;
  std::size_t certificazioni = 0;  // 0 where there was nothing to write; no file is made then
};

// Rejected where the file cannot be opened: "percorso-inesistente" with a text for the user, otherwise
// "file-non-scritto" without one. When an error is raised, the file keeps the lines written before it and has
// no record Z.
Result<FileScritto> scrivi(const Intorno& intorno, Compensi& compensi, const RichiestaFile& richiesta);

}  // namespace cu::fornitura
