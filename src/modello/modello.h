#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string_view>

#include "modello/campi.h"
#include "modello/tracciato.h"

namespace cu::modello {

// A code with its tax years.
struct CodiceAnnuo {
  Anni anni;
  std::string_view codice;
};

// The code of sums not subject to withholding that means "all other cases", for a line without a chosen code.
// From 2019 such sums have several codes, and which of them is meant only a person knows.
inline constexpr auto kCodiciNonSoggetti =
    std::to_array<CodiceAnnuo>({{finoAl(2015), "3"}, {nel(2016), "6"}, {{2017, 2018}, "7"}});
inline constexpr std::int32_t kCodiceDaScegliere = 2019;

// A form: one of the program's two, or one derived from them by a test.
struct Modello {
  std::span<const Campo> campi;
  Anni noti;  // the tax years whose form the table contains
  std::span<const CodiceAnnuo> codiciNonSoggetti;
};

// Years after 2017 in the newest of the forms that the suite was built for.
inline constexpr Modello kModello = {kCampi, {2014, 2017}, kCodiciNonSoggetti};
// Those years in forms of their own, as far as they are attested (docs/formato.md).
inline constexpr Modello kModelloPubblicato = {kCampi, {2014, 2025}, kCodiciNonSoggetti};

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

// Whether a known year of the form can have the box.
constexpr bool raggiunge(const Modello& modello, const Campo& campo) {
  return campo.anni.primo <= modello.noti.ultimo;
}

// Whether the year's form requires a chosen code of sums not subject to withholding.
constexpr bool codiceDaScegliere(std::int32_t anno, const Modello& modello = kModello) {
  return annoTracciato(anno, modello) >= kCodiceDaScegliere;
}

// Empty where the code has to be chosen.
constexpr std::string_view codiceNonSoggetti(std::int64_t anno, const Modello& modello = kModello) {
  const std::int64_t tracciato = std::min<std::int64_t>(anno, modello.noti.ultimo);
  for (const CodiceAnnuo& codice : modello.codiciNonSoggetti) {
    if (codice.anni.comprende(tracciato)) return codice.codice;
  }
  return {};
}

// The parts of record B in the layout of a year's file.
constexpr std::array<Tavola, 5> tipoB(std::int32_t anno, const Modello& modello) {
  return tipoB(annoTracciato(anno, modello));
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
