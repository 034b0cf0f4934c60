#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "editors/controlli_campi.h"
#include "modello/modello.h"

namespace cu {

using modello::Genere;

enum class Pagina { Modulo1, AltriModuli };

// A column of the form in a year's layout, with the control that shows it.
struct CampoEditor : ControlloCampo {
  Genere genere = Genere::Importo;
  int numero = 0;     // number of its box; 0 for a column that is not a box
  char parte = '\0';  // 'a' or 'b' where the box has two columns
  bool addizionale = false;
  bool conSegno = false;  // may be negative
};

// "7.a"; empty for a column that is not a box.
std::string numeroScritto(const CampoEditor& campo);

// The controls of a page whose columns exist in the year's form, in order. The year is a known year of the
// form.
std::vector<CampoEditor> campiEditor(const modello::Modello& modello,
                                     std::span<const ControlloCampo> controlli, Pagina pagina,
                                     std::int32_t anno);

// The form in which a line's file is written.
struct ModelloDelFile {
  std::int32_t anno = 0;  // tax year
  const modello::Modello& modello = modello::kModello;
};

// The same for the forms that the suite was built for, with the boxes of the file's form that the suite has
// no column for.
std::vector<CampoEditor> campiEditor(Pagina pagina, std::int32_t anno, const ModelloDelFile& file = {});

// A read-only box of the heading in a year's layout.
struct CampoIntestazione : ControlloIntestazione {
  const modello::Campo* campo = nullptr;
};
std::vector<CampoIntestazione> campiIntestazione(const modello::Modello& modello, std::int32_t anno);

// Whether a page has exactly one control for each column of the form that the user can change, and no two
// boxes of a year store the same column.
constexpr bool concorda(const modello::Modello& modello, std::span<const ControlloCampo> controlli,
                        Pagina pagina) {
  const auto daModificare = [&](const modello::Campo& campo) {
    return record(campo.quadro) == modello::Record::H && campo.riscrittura != modello::Riscrittura::No &&
           inModulo(campo, pagina == Pagina::Modulo1);
  };
  const auto conControllo = [&](std::string_view nome) {
    return std::any_of(controlli.begin(), controlli.end(),
                       [nome](const ControlloCampo& controllo) { return controllo.colonna == nome; });
  };
  for (const ControlloCampo& controllo : controlli) {
    modello::Anni viste[4];
    std::size_t quante = 0;
    for (const modello::Campo& campo : modello.campi) {
      if (!tiene(campo, controllo.colonna) || !daModificare(campo)) continue;
      for (std::size_t i = 0; i < quante; ++i) {
        if (siToccano(viste[i], campo.anni)) return false;
      }
      if (quante == std::size(viste)) return false;
      viste[quante++] = campo.anni;
    }
    if (quante == 0) return false;
  }
  for (const modello::Campo& campo : modello.campi) {
    if (!daModificare(campo)) continue;
    // A choice is shown by its id; the text next to it is derived.
    if (!conControllo(campo.elenco.empty() ? campo.colonna : campo.elenco)) return false;
    if (campo.forma == modello::Forma::Somma && !conControllo(campo.altre[0])) return false;
  }
  return true;
}

}  // namespace cu
