#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string_view>

#include "modello/campi.h"

namespace cu::modello {

// A code that stands for a fact in some tax years.
struct CodiceAnnuo {
  Anni anni;
  std::string_view codice;
};

// The code of sums not subject to withholding that means "all other cases", for a line where none was chosen.
inline constexpr auto kCodiciNonSoggetti =
    std::to_array<CodiceAnnuo>({{finoAl(2015), "3"}, {nel(2016), "6"}, {dal(2017), "7"}});

// A form: the one of the program, or another one that a test derives from.
struct Modello {
  std::span<const Campo> campi;
  Anni noti;  // the tax years whose form the table holds
  std::span<const CodiceAnnuo> codiciNonSoggetti;
};

inline constexpr Modello kModello = {kCampi, {2014, 2017}, kCodiciNonSoggetti};

// The known year whose form a year has, on the screen and on paper: its own, or else the newest one. That
// holds for years before the first one too, whose lines can still be looked at.
constexpr std::int32_t annoDisposizione(std::int32_t anno, const Modello& modello = kModello) {
  return modello.noti.comprende(anno) ? anno : modello.noti.ultimo;
}

// The year by which the telematic file of a year is laid out. It differs from the form's before the first
// known year, for which no file was ever asked for: one that is made all the same has the boxes that are
// bound to no first year, and nothing of what came or moved with the newest form.
constexpr std::int32_t annoTracciato(std::int32_t anno, const Modello& modello = kModello) {
  return std::min(anno, modello.noti.ultimo);
}

constexpr std::string_view codiceNonSoggetti(std::int64_t anno, const Modello& modello = kModello) {
  for (const CodiceAnnuo& codice : modello.codiciNonSoggetti) {
    if (codice.anni.comprende(anno)) return codice.codice;
  }
  return {};
}

// A column and the box that keeps it; no box where a year has none.
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

// In a record's boxes of one year and module no column may be asked for that two of them keep.
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

// What a column holds in whatever year and module.
constexpr Trovato trova(const Modello& modello, std::string_view colonna) {
  for (const Campo& campo : modello.campi) {
    if (tiene(campo, colonna)) return trovatoIn(campo, colonna);
  }
  return {};
}

// The box of a part by its number.
constexpr const Campo* trovaNumero(const Modello& modello, Quadro quadro, std::int32_t numero,
                                   std::int32_t anno, bool primoModulo) {
  for (const Campo& campo : modello.campi) {
    if (campo.quadro == quadro && campo.numero == numero && vale(campo, anno, primoModulo)) return &campo;
  }
  return nullptr;
}

}  // namespace cu::modello
