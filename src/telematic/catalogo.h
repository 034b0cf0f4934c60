#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "modello/modello.h"
#include "telematic/engine/record_image.h"

namespace cu {
class CURecords;
}

namespace cu::telematico {

// modello defines the layout of the telematic file; here it becomes positions in a line and records with
// named fields. The names connect layout and writers.
using modello::CampoRecord;
using modello::kCelle;
using modello::kLarghezzaCella;
using modello::kLarghezzaRecord;
using modello::kPrimaCella;
using modello::kTipoA;
using modello::kTipoD;
using modello::kTipoH;
using modello::kTipoZ;
using modello::Tavola;

// The position of the field, computed at compile time: a name missing from the table does not compile.
consteval FieldPlace posto(Tavola tavola, std::string_view nome) {
  for (const CampoRecord& riga : tavola) {
    if (riga.nome == nome) {
      return {static_cast<std::size_t>(riga.posizione - 1), static_cast<std::size_t>(riga.lunghezza)};
    }
  }
  throw "the record has no such field";
}

static_assert(posto(kTipoD, "Campo").offset == kPrimaCella - 1 &&
              posto(kTipoH, "Campo").offset == kPrimaCella - 1);

// The records TipoA, TipoB, TipoD, TipoH and TipoZ, with empty values, for the run year.
void creaCatalogo(CURecords& catalogo, std::int32_t gAnno,
                  const modello::Modello& modello = modello::kModello);

}  // namespace cu::telematico
