#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "intake/piano.h"

namespace cu {

// A column of the rows of a plan, as a window shows them.
struct ColonnaRiga {
  enum class Genere : std::uint8_t { Testo, Data, Importo };
  const char* titolo;
  Genere genere = Genere::Testo;
};
std::span<const ColonnaRiga> colonneDelleRighe(intake::Elenco elenco);

// A row of a plan as texts: amounts with a point and dates in ISO form, so that they can be sorted.
struct RigaMostrata {
  std::vector<std::string> celle;  // one for each column
  std::string messaggi;            // each with its code
};
// In the order of the plan's rows.
std::vector<RigaMostrata> righeMostrate(const intake::Piano& piano);

// "? da decidere": a sign and a word.
std::string dettoStato(intake::StatoRiga stato);

}  // namespace cu
