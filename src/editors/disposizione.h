#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "editors/campi_editor.h"

namespace cu {

// One layout of the ministerial form: its fields are the rows of the tables that bear its bit.
struct Disposizione {
  std::string_view form;
  Disposizioni bit;
  // The form's picture in two pages that scroll, with links to its documents, the additional data in a dialog
  // and the check of what was filled in; otherwise two tabs of labelled fields with the additional data among
  // them.
  bool immagine;
  std::string_view istruzioni = {};
  std::string_view note = {};
  bool fusioneComuni = false;  // the notes on merged municipalities are kept
  // The fields of which one must be filled where campo 72 is; one may stand twice in place of another.
  std::array<std::string_view, 8> elencoB = {};
};

inline constexpr Disposizione kFrmCompenso = {.form = "frmCompenso", .bit = kSolo2015, .immagine = false};

inline constexpr Disposizione kFrmCompenso2016 = {
    .form = "frmCompenso2016",
    .bit = kSolo2016,
    .immagine = true,
    .istruzioni = "CU_2016_Istruzioni.pdf",
    .note = "Note di compilazione CU 2016.pdf",
    // In this year campi 103 and 107 alone do not count.
    .elencoB = {"101", "102", "102", "104", "105", "106", "106", "108"},
};

inline constexpr Disposizione kFrmCompenso2017 = {
    .form = "frmCompenso2017",
    .bit = kSolo2017,
    .immagine = true,
    .istruzioni = "CU_2017_Istruzioni.pdf",
    .note = "Note di compilazione CU 2017.pdf",
    .fusioneComuni = true,
    .elencoB = {"101", "102", "103", "104", "105", "106", "107", "108"},
};

constexpr const Disposizione& fnDisposizione(std::int32_t anno) {
  if (anno == 2014) return kFrmCompenso;
  if (anno == 2015) return kFrmCompenso2016;
  return kFrmCompenso2017;
}

}  // namespace cu
