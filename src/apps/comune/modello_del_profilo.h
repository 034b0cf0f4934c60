#pragma once

#include "modello/modello.h"
#include "suite/profilo.h"

namespace cu {

// The form in which the files of a profile are written.
inline const modello::Modello& modelloDi(const Profilo& profilo) {
  return profilo.moduliPubblicati ? modello::kModelloPubblicato : modello::kModello;
}

}  // namespace cu
