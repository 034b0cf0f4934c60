#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "data/database.h"
#include "lettura/confronto.h"
#include "riscontro/conti.h"

// What the company says that records A and B of its file hold. As for the cells, how they are written is not
// known here.
namespace cu::riscontro {

// Who transmits a supply; texts as they fill their fields.
struct Trasmissione {
  std::string tipo;           // "01" the company itself, "10" an intermediary
  std::string fornitore;      // fiscal code
  std::string intermediario;  // fiscal code
  std::string impegno;        // one digit
  std::string data;           // "05032018"; zeros without one
  std::string firma;          // "1" of an intermediary
};

// The parts of a file that its frontispiece sums up.
struct Contenuto {
  std::size_t certificazioni = 0;
  bool annullamenti = false;
  bool sostituzioni = false;
};

class Frontespizio {
 public:
  // `recordA` and `recordB` as they are without what follows from the transmission and from the contents; any
  // of `ammesse`, of which there is at least one, may be the transmission.
  Frontespizio(std::int32_t anno, std::string recordA, std::string recordB, std::vector<Trasmissione> ammesse,
               const modello::Modello& modello = modello::kModello);

  // The fields that differ, "A Tipo fornitore" and so on. Both lines have 1898 characters of Windows-1252.
  std::vector<lettura::CasellaDiversa> diverse(std::string_view recordA, std::string_view recordB,
                                               const Contenuto& contenuto) const;

 private:
  const modello::Modello* modello_;
  std::int32_t anno_;
  std::string recordA_;
  std::string recordB_;
  std::vector<Trasmissione> ammesse_;
};

// Reads the company and its settings. The intermediary may be none, the one of the settings, or that of any
// supply of the year on record: which of them was meant is known only to the person who made the file.
Frontespizio leggiFrontespizio(Connection& connessione, const Esercizio& esercizio);

// The fields of two lines that differ, named by the record and the field.
std::vector<lettura::CasellaDiversa> campiDiversi(char record, std::int32_t anno, std::string_view vecchia,
                                                  std::string_view nuova,
                                                  const modello::Modello& modello = modello::kModello);

}  // namespace cu::riscontro
