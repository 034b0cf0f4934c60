#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "editors/controlli_campi.h"
#include "modello/modello.h"

namespace cu {

using modello::Genere;

enum class Pagina { Modulo1, AltriModuli };

// A column of the form in the layout of a year, with the control that shows it.
struct CampoEditor : ControlloCampo {
  Genere genere = Genere::Importo;
  int numero = 0;     // of its box; 0 for a column that is no box
  char parte = '\0';  // 'a' or 'b' where the box has two columns
  bool addizionale = false;
  bool conSegno = false;  // may be negative
};

// "7.a"; nothing for a column that is no box.
std::string numeroScritto(const CampoEditor& campo);

// The controls of a page whose columns the form has in a year, in their order. The year is one that the form
// knows.
std::vector<CampoEditor> campiEditor(const modello::Modello& modello,
                                     std::span<const ControlloCampo> controlli, Pagina pagina,
                                     std::int32_t anno);

// The program's own.
std::vector<CampoEditor> campiEditor(Pagina pagina, std::int32_t anno);

// A read-only box of the heading in the layout of a year.
struct CampoIntestazione : ControlloIntestazione {
  const modello::Campo* campo = nullptr;
};
std::vector<CampoIntestazione> campiIntestazione(const modello::Modello& modello, std::int32_t anno);

// Whether a page has a control for each column of the form that a person can change, and no other: in no year
// may two boxes keep the same one.
constexpr bool concorda(const modello::Modello& modello, std::span<const ControlloCampo> controlli,
                        Pagina pagina) {
  const bool primo = pagina == Pagina::Modulo1;
  const auto conControllo = [&](std::string_view nome) {
    for (const ControlloCampo& controllo : controlli) {
      if (controllo.colonna == nome) return true;
    }
    return false;
  };
  for (const ControlloCampo& controllo : controlli) {
    bool trovato = false;
    for (std::int32_t anno = modello.noti.primo; anno <= modello.noti.ultimo; ++anno) {
      const modello::Trovato qui = trova(modello, modello::Record::H, controllo.colonna, anno, primo);
      trovato = trovato || (qui.campo != nullptr && qui.campo->riscrittura != modello::Riscrittura::No);
    }
    if (!trovato) return false;
  }
  for (const modello::Campo& campo : modello.campi) {
    if (record(campo.quadro) != modello::Record::H || campo.riscrittura == modello::Riscrittura::No ||
        !inModulo(campo, primo)) {
      continue;
    }
    // A choice is shown by its id; the text beside it follows.
    const modello::ColonneDiCampo colonne(campo);
    for (const modello::Colonna& colonna : colonne) {
      const bool segue = !campo.elenco.empty() && colonna.nome != campo.elenco;
      if (!segue && !conControllo(colonna.nome)) return false;
    }
  }
  return true;
}

}  // namespace cu
