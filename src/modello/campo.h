#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "modello/anni.h"

namespace cu::modello {

// The parts of the form. The boxes of each part are numbered separately.
enum class Quadro : std::uint8_t { Azienda, Percipiente, Firma, Autonomo };

// The records of the telematic file that contain boxes.
enum class Record : std::uint8_t { D, H };

constexpr Record record(Quadro quadro) { return quadro == Quadro::Autonomo ? Record::H : Record::D; }

// The prefix of the codes of a part's cells.
constexpr std::string_view prefisso(Quadro quadro) {
  switch (quadro) {
    case Quadro::Azienda:
      return "DA001";
    case Quadro::Percipiente:
      return "DA002";
    case Quadro::Firma:
      return "DA003";
    case Quadro::Autonomo:
      break;
  }
  return "AU001";
}

// How the value of a box is computed from its columns.
enum class Forma : std::uint8_t {
  Testo,              // unchanged
  Maiuscolo,          // in upper case
  Destra,             // right-aligned to 16
  RifilatoADestra,    // trimmed, then right-aligned
  Intero,             // a whole number, right-aligned
  Data,               // DDMMYYYY, right-aligned
  DataFirma,          // date of the signature; today where there is none
  Telefono,           // cleaned; the second column where the first is not a number
  Uno,                // ticked where the condition holds
  Flag,               // ticked where the column is true
  Importo,            // "#0.00", right-aligned; zero has no cell
  ImportoConSegno,    // an amount that may be negative
  Somma,              // an amount: the sum of two columns
  CodiceNonSoggetti,  // the code; where none was chosen and sums are not subject, the year's own code
  CodicePressoEnte,   // the company's code at the fund whose id is in the column
};

// Whether a box is present; evaluated once per certificate and module.
enum class Condizione : std::uint8_t {
  Sempre,
  PersonaFisica,
  NonResidente,
  Schumacker,  // a non-resident of the kind "Schumacker"
  AnnoDovuto,  // an advance, or a reason that requires the year
  CausaleN,    // the payment reason with surcharges
  BloccoC,     // contributions: at least one of the five amounts
  NonNelFile,  // stored with the module, but neither a cell of the file nor a box of the print
};

// The modules of a certificate that contain a box.
enum class Moduli : std::uint8_t { Primo, Altri, Ogni };

// Where the corrected value of a box is stored when the line is written back. In a further module either
// value means the row of the module.
enum class Riscrittura : std::uint8_t {
  No,
  Riga,     // the work table; from there by a formula into the account, or not at all
  Dati,     // the work table and, unchanged, the account's additional data
  Propria,  // the work table of a form that has the box, and a table of this program's own
};

// The kind of a column's value for the user; a column of a list contains the id.
enum class Genere : std::uint8_t { Importo, Testo, Flag, Elenco, Numero };

using AltreColonne = std::array<std::string_view, 3>;

// A box of the form, in the tax years and modules in which it has this number, column and condition. Module 1
// reads its columns from the row of the certificate, further modules from the row of the module.
struct Campo {
  Quadro quadro;
  std::int32_t numero;       // in its part; 0 for a column of the module's row that is not a box
  std::string_view colonna;  // empty for a box without a column
  Forma forma;
  Condizione condizione;
  Anni anni;
  Moduli moduli = Moduli::Primo;
  Riscrittura riscrittura = Riscrittura::No;
  std::string_view elenco = {};  // the column of the id, where the user chooses the value from a list
  AltreColonne altre = {};       // where the form of the value requires more than one column
};

constexpr bool inModulo(const Campo& campo, bool primoModulo) {
  return campo.moduli == Moduli::Ogni || campo.moduli == (primoModulo ? Moduli::Primo : Moduli::Altri);
}

constexpr bool vale(const Campo& campo, std::int32_t anno, bool primoModulo) {
  return inModulo(campo, primoModulo) && campo.anni.comprende(anno);
}

// Whether the record has a cell for the box, in the box's years and modules.
constexpr bool haCella(const Campo& campo, Record dove) {
  return record(campo.quadro) == dove && campo.condizione != Condizione::NonNelFile;
}

inline constexpr std::size_t kLunghezzaCodice = 8;
using Codice = std::array<char, kLunghezzaCodice>;

// "AU001004": the code of the box's cell.
constexpr Codice codice(const Campo& campo) {
  Codice codice{};
  const std::string_view inizio = prefisso(campo.quadro);
  for (std::size_t i = 0; i < inizio.size(); ++i) codice.at(i) = inizio[i];
  std::int32_t resto = campo.numero;
  for (std::size_t i = kLunghezzaCodice; i > inizio.size(); --i, resto /= 10) {
    codice.at(i - 1) = static_cast<char>('0' + resto % 10);
  }
  return codice;
}

// The column from which a cell is written; empty where its form reads none. A code at a fund falls back to
// the column after the id.
constexpr std::string_view fonte(const Campo& campo) {
  if (campo.forma == Forma::Uno || campo.forma == Forma::DataFirma) return {};
  return campo.forma == Forma::CodicePressoEnte ? campo.altre[0] : campo.colonna;
}

constexpr Genere genere(Forma forma) {
  switch (forma) {
    case Forma::Importo:
    case Forma::ImportoConSegno:
    case Forma::Somma:
      return Genere::Importo;
    case Forma::Uno:
    case Forma::Flag:
      return Genere::Flag;
    case Forma::Intero:
      return Genere::Numero;
    case Forma::CodicePressoEnte:
      return Genere::Elenco;
    case Forma::Testo:
    case Forma::Maiuscolo:
    case Forma::Destra:
    case Forma::RifilatoADestra:
    case Forma::Data:
    case Forma::DataFirma:
    case Forma::Telefono:
    case Forma::CodiceNonSoggetti:
      break;
  }
  return Genere::Testo;
}

// A column that stores the user's input for a box.
struct Colonna {
  std::string_view nome;
  Genere genere = Genere::Testo;
  char parte = '\0';  // 'a' or 'b' where the box is the sum of two columns
};

// The columns of a box, in the order in which they are written back: for a list the id and the value that it
// represents, for a sum its two parts.
class ColonneDiCampo {
 public:
  constexpr explicit ColonneDiCampo(const Campo& campo) {
    if (!campo.elenco.empty()) aggiungi({campo.elenco, Genere::Elenco});
    if (campo.forma == Forma::Somma) {
      aggiungi({campo.colonna, Genere::Importo, 'a'});
      aggiungi({campo.altre[0], Genere::Importo, 'b'});
    } else if (!campo.colonna.empty()) {
      aggiungi({campo.colonna, genere(campo.forma)});
    }
  }
  constexpr const Colonna* begin() const { return colonne_.data(); }
  constexpr const Colonna* end() const { return colonne_.data() + quante_; }

 private:
  constexpr void aggiungi(const Colonna& colonna) { colonne_.at(quante_++) = colonna; }

  std::array<Colonna, 2> colonne_{};
  std::size_t quante_ = 0;
};

// Whether the user's input for the box is stored in the column.
constexpr bool tiene(const Campo& campo, std::string_view colonna) {
  if (colonna.empty()) return false;
  return campo.colonna == colonna || campo.elenco == colonna ||
         (campo.forma == Forma::Somma && campo.altre[0] == colonna);
}

}  // namespace cu::modello
