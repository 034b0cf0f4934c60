#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "apps/importazione/file_scelto.h"
#include "intake/lettura_righe.h"

namespace cu {

// A column of the list, where a file has it, and what its rows give for it.
struct ColonnaScelta {
  const intake::Colonna* colonna = nullptr;
  std::vector<std::string> intestazioni;  // of the file
  std::optional<std::string> costante;
  intake::Segno segno = intake::Segno::ComeScritto;
  bool scelta = false;              // by a person or a profile; otherwise found by its name
  std::size_t valori = 0;           // rows with a value
  std::vector<std::string> esempi;  // the first different values, as they were read
  std::string estremi;              // of dates: "dal 05/01/2017 al 12/12/2017"
  std::size_t respinti = 0;         // values that cannot be read
  std::string primoRespinto;        // why, of the first one
  bool presente() const { return !intestazioni.empty() || (costante && !costante->empty()); }
};

// In the order of the list. The file has a table.
std::vector<ColonnaScelta> colonneScelte(const FileScelto& file, const intake::Lettura& lettura);

// The other columns that a heading of the file is used for; `perde`: those that were found by their name,
// and lose it to one that is chosen.
struct AltriUsi {
  std::vector<std::string_view> tengono;
  std::vector<std::string_view> perdono;
};
AltriUsi altriUsi(const std::vector<ColonnaScelta>& scelte, const intake::Colonna& colonna,
                  const std::string& titolo);

// Whether a column can be made of several ones of the file.
bool unisceColonne(const intake::Colonna& colonna);
// Where the values of a column come from, from now on: no headings and no constant is a column that is not
// imported, also where the file has one of its name.
void cambiaFonte(intake::Mappatura& mappatura, std::uint8_t colonna, intake::Fonte fonte);

// The mapping with more columns: those whose name begins, word for word, as an unused heading of the file
// does
// ("Data pag.", "Caus."), where only one does. Nothing without one.
std::optional<intake::Mappatura> conProposte(const FileScelto& file,
                                             const std::vector<ColonnaScelta>& scelte);

// The different texts of a column of the file with what each means, up to a number of them.
using Significati = std::vector<std::pair<std::string, std::string>>;
Significati testiDi(const FileScelto& file, const ColonnaScelta& colonna, std::size_t massimo);
void cambiaSignificato(intake::Mappatura& mappatura, std::uint8_t colonna, const std::string& testo,
                       const std::string& significato);

// A value as a window shows it: "1234,50", "05/03/2017", "sì".
std::string valoreMostrato(CellView valore, intake::TipoColonna tipo);

}  // namespace cu
