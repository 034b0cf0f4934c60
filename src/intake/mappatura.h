#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "intake/colonne.h"
#include "tabelle/lettura.h"

namespace cu::intake {

enum class OrdineData : std::uint8_t { GiornoMeseAnno, MeseGiornoAnno, AnnoMeseGiorno };

// What an amount of the file becomes.
enum class Segno : std::uint8_t { ComeScritto, Positivo, Inverso };

// Where the values of a column come from: columns of the file, or the same text in every row.
struct Fonte {
  std::vector<std::string> colonne;  // as the file names them; more than one add up
  std::optional<std::string> costante;
  Segno segno = Segno::ComeScritto;
};

// A row of the file that is none of the list, such as a total.
struct Salto {
  std::string colonna;  // "" for none
  std::string inizia;   // without case and accents
};

// How a file is read, as a value. Without a profile everything is recognised, and columns by their names.
struct Mappatura {
  tabelle::OpzioniLettura lettura;
  std::optional<char> decimali;  // without it, the file's amounts decide
  std::optional<char> migliaia;  // without it, amounts have no thousands mark
  std::optional<OrdineData> date;
  Salto salto;
  // By the column's rank. A column that is not among them is looked for by its names unless the map has
  // given its heading to another one.
  std::map<std::uint8_t, Fonte> colonne;
  // By the column's rank: what a text of the file means.
  std::map<std::uint8_t, std::map<std::string, std::string>> valori;
};

}  // namespace cu::intake
