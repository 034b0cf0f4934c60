#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "modello/modello.h"

namespace cu {

// One layout of the editor: its tax years and everything besides the boxes of the form.
struct Disposizione {
  std::string_view form;
  modello::Anni anni;
  // True: the form's picture in two pages that scroll, with links to its documents, the additional data in a
  // dialog, and a check of the input. False: two tabs of labelled fields that include the additional data.
  bool immagine;
  // The documents and the form's name contain the year of issue, which is the following year.
  std::string_view istruzioni = {};
  std::string_view note = {};
  // The boxes of which one is required where box 72 is filled; a repeated number replaces another one.
  std::array<int, 8> elencoB = {};
};

inline constexpr auto kDisposizioni = std::to_array<Disposizione>({
    {.form = "frmCompenso", .anni = modello::nel(2014), .immagine = false},
    {
        .form = "frmCompenso2016",
        .anni = modello::nel(2015),
        .immagine = true,
        .istruzioni = "CU_2016_Istruzioni.pdf",
        .note = "Note di compilazione CU 2016.pdf",
        // In this year boxes 103 and 107 alone are not sufficient.
        .elencoB = {101, 102, 102, 104, 105, 106, 106, 108},
    },
    {
        .form = "frmCompenso2017",
        .anni = modello::dal(2016),
        .immagine = true,
        .istruzioni = "CU_2017_Istruzioni.pdf",
        .note = "Note di compilazione CU 2017.pdf",
        .elencoB = {101, 102, 103, 104, 105, 106, 107, 108},
    },
});

// The layout of a known year.
constexpr const Disposizione& fnDisposizione(std::int32_t anno) {
  for (const Disposizione& disposizione : kDisposizioni) {
    if (disposizione.anni.comprende(anno)) return disposizione;
  }
  return kDisposizioni.back();
}

}  // namespace cu
