#pragma once

#include "impaginazione/impaginazione.h"

// What the library of the prints gives to the program. Its one function is found by its name; a library of
// another version of the program returns null.
extern "C" {
using FunzioneLibreriaStampe = cu::Impaginatore* (*)(const char* versione,
                                                     const cu::ReportSurroundings& intorno);
}

namespace cu {

inline constexpr const char* kFunzioneLibreriaStampe = "cuwizardImpaginatore";
inline constexpr const char* kVersioneLibreriaStampe = CU_VERSION " " CU_VERSION_DATE;

}  // namespace cu
