#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string_view>

#include "modello/campi.h"

namespace cu::modello {

// A code with its tax years.
struct CodiceAnnuo {
  Anni anni;
  std::string_view codice;
};

// The code of sums not subject to withholding that means "all other cases", for a line without a chosen code.
inline constexpr auto kCodiciNonSoggetti =
    std::to_array<CodiceAnnuo>({{finoAl(2015), "3"}, {nel(2016), "6"}, {dal(2017), "7"}});

// A form: that of the program, or one derived from it by a test.
struct Modello {
  std::span<const Campo> campi;
  Anni noti;  // the tax years whose form the table contains
  std::span<const CodiceAnnuo> codiciNonSoggetti;
};

inline constexpr Modello kModello = {kCampi, {2014, 2017}, kCodiciNonSoggetti};

// The known year whose form is used for a year, on screen and on paper: the year itself, otherwise the newest
// one. That includes years before the first one, whose lines can still be displayed.
constexpr std::int32_t annoDisposizione(std::int32_t anno, const Modello& modello = kModello) {
  return modello.noti.comprende(anno) ? anno : modello.noti.ultimo;
}

// The year that determines the layout of a year's telematic file. Before the first known year it differs from
// annoDisposizione: no file was ever required for such a year; its file has the boxes without a first year,
// and none that the newest form added or moved.
constexpr std::int32_t annoTracciato(std::int32_t anno, const Modello& modello = kModello) {
  return std::min(anno, modello.noti.ultimo);
}

constexpr std::string_view codiceNonSoggetti(std::int64_t anno, const Modello& modello = kModello) {
  for (const CodiceAnnuo& codice : modello.codiciNonSoggetti) {
    if (codice.anni.comprende(anno)) return codice.codice;
  }
  return {};
}

// A column and the box that stores it; no box where the year has none.
struct Trovato {
  const Campo* campo = nullptr;
  Colonna colonna;
};

constexpr Trovato trovatoIn(const Campo& campo, std::string_view colonna) {
  for (const Colonna& sua : ColonneDiCampo(campo)) {
    if (sua.nome == colonna) return {&campo, sua};
  }
  return {};
}

// Within a record's boxes of one year and module a column is required to be unique.
constexpr Trovato trova(const Modello& modello, Record dove, std::string_view colonna, std::int32_t anno,
                        bool primoModulo) {
  Trovato trovato;
  for (const Campo& campo : modello.campi) {
    if (record(campo.quadro) != dove || !vale(campo, anno, primoModulo) || !tiene(campo, colonna)) continue;
    if (trovato.campo != nullptr) throw std::logic_error("two boxes keep the column");
    trovato = trovatoIn(campo, colonna);
  }
  return trovato;
}

// The content of a column, in any year and module.
constexpr Trovato trova(const Modello& modello, std::string_view colonna) {
  for (const Campo& campo : modello.campi) {
    if (tiene(campo, colonna)) return trovatoIn(campo, colonna);
  }
  return {};
}

// The box with that number in the part.
constexpr const Campo* trovaNumero(const Modello& modello, Quadro quadro, std::int32_t numero,
                                   std::int32_t anno, bool primoModulo) {
  for (const Campo& campo : modello.campi) {
    if (campo.quadro == quadro && campo.numero == numero && vale(campo, anno, primoModulo)) return &campo;
  }
  return nullptr;
}

}  // namespace cu::modello
