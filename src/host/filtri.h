#pragma once

#include <string>

namespace cu {

// The content of the controls of the first step at the time of the call.
struct Filtri {
  std::string anno;    // as shown, not trimmed
  std::string adAnno;  // the second year list
  bool perCodice = false;
  bool perNome = true;
  std::string codiceDa;  // payee range: codes and descriptions as shown
  std::string codiceA;
  std::string descrizioneDa;
  std::string descrizioneA;
  std::string causaleDa;  // payment reason range
  std::string causaleA;
};

}  // namespace cu
