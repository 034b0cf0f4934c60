#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "host/session.h"

namespace cu {

// The run context: one for the whole process, read everywhere. The comment at each field names the only place
// that writes it.
struct Globali {
  std::unique_ptr<SessioneHost> gSessione;  // entry
  std::unique_ptr<TestiSuite> gTesti;       // entry
  std::string gChiaveImpostazioni;          // entry: application key of every persisted setting
  std::string gTitolo;                      // entry: title of every box and in window captions
  std::int16_t gDecimaliValuta = 0;         // entry: the currency has decimals; places are Abs(flag) * 2
  std::string gSimboloValuta;               // entry
  std::string gSeparatoreDecimale;          // entry
  std::string gSeparatoreMigliaia;          // entry
  std::int32_t gIDFunzione = 0;             // sbInitWizard and the type option: 246, 247 or 342
  std::int32_t gAnno = 0;                   // year of the run; valid from the pre-flight on
  std::string gTabellaLavoro;               // name of the user's work table; written when the table is loaded
  std::string helpFile;                     // entry: the application's help file
};

}  // namespace cu
