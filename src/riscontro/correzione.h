#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "base/result.h"
#include "fornitura/controllo.h"
#include "fornitura/intorno.h"
#include "host/modi.h"
#include "riscontro/stato.h"
#include "worklist/compensi.h"

// The supplies that the state of a year asks for.
namespace cu::riscontro {

struct FileCorretto {
  Comunicazione tipo = Comunicazione::Ordinaria;
  std::string percorso;
  std::size_t certificazioni = 0;
};

struct RichiestaCorrezione {
  std::int32_t anno = 0;
  std::string cartella;           // the three folders lie below it
  std::string cartellaDocumenti;  // as the wizard's run has it
  Date firma;
  std::function<bool(const Finding& avviso)>
      prosegue;                    // a warning of a date, or of a file that is there already
  std::function<bool()> continua;  // asked between two steps; false leaves the rest undone
  std::function<void(const FileCorretto& file)> scritto;  // after each file, before the next one is begun
};

struct EsitoCorrezione {
  std::vector<FileCorretto> file;
  bool interrotto = false;
  std::vector<DatoMancante> mancanti;  // what keeps an ordinary supply or a replacement from being made
};

// The folder of a kind: "ordinarie", "sostituzioni", "annullamenti".
std::string cartellaDi(Comunicazione tipo);

// Writes up to three files: new certificates, replacements, annulments, each with the protocol and the
// progressive of what it replaces or annuls. The accounts stay as they are; the user's work table is loaded
// anew. What is pending is left out. The value is always there.
Result<EsitoCorrezione> scriviCorrezioni(const fornitura::Intorno& intorno, Compensi& compensi,
                                         Registro& registro, const RichiestaCorrezione& richiesta);

}  // namespace cu::riscontro
