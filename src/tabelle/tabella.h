#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// Tables of cells, as files of spreadsheets and of accounting programs have them: read and written, without a
// meaning of their columns.
namespace cu::tabelle {

enum class Genere : std::uint8_t {
  Vuota,
  Testo,
  Numero,
  Percentuale,
  Data,
  Logica,
  Errore,
  FormulaMaiCalcolata,
};

// A cell. A text file has only Vuota and Testo; the others are of workbooks:
//   Testo                as it is, neither trimmed nor folded; a time of day is "14:30:00"
//   Numero               decimal digits, with a point and without exponent, thousands mark or superfluous
//                        zeros: "199.9", "-0.5", "1234"
//   Percentuale          a number shown as a percentage, as it is shown: "20" for a stored 0.2
//   Data                 "2017-03-05", or "2017-03-05T14:30:00" when it has a time
//   Logica               "true" or "false"
//   Errore               what the cell shows ("#N/A"), or the number that its date format cannot show
//   FormulaMaiCalcolata  the formula with its equals sign; its result was never stored
struct Cella {
  std::string_view testo;  // UTF-8; valid as long as any copy of the cell's table
  Genere genere = Genere::Vuota;
};

struct RigaTabella {
  // As in the file, from 1: a workbook's row, or the first physical line of a text's record.
  std::size_t numero = 0;
  std::vector<Cella> celle;

  // From 0; a cell beyond the last one is empty.
  Cella cella(std::size_t colonna) const { return colonna < celle.size() ? celle[colonna] : Cella(); }
};

// Where something is: the row as in RigaTabella, the column from 1; 0 for unknown.
struct Posto {
  std::string file;
  std::string foglio;
  std::size_t riga = 0;
  std::size_t colonna = 0;
};

// "compensi.xlsx, foglio "Marzo", riga 14, colonna C": the parts that are known.
std::string descrizione(const Posto& posto);
// 1 is "A", 27 is "AA".
std::string letteraColonna(std::size_t colonna);

// What is wrong with one row, when the others can be read all the same. `codice` is one of the stable codes.
struct Rilievo {
  std::string codice;
  Posto posto;
  std::string testo;  // a sentence in Italian, without the place
};

struct Tabella {
  std::string file;
  std::string foglio;        // "" for a text
  RigaTabella intestazione;  // its last cell has a text
  // The rows below it that have at least one cell with more than blanks, in order.
  std::vector<RigaTabella> righe;
  // F03: a cell beyond the last heading, or a text after the closing quote. The row is there nevertheless.
  std::vector<Rilievo> rilievi;
  // How a text was read; 0 and "" for a workbook.
  char separatore = 0;
  std::string_view caratteri;
  // Dates are counted from 1 January 1904: of use only for a number in a column of dates.
  bool dal1904 = false;
  std::size_t righeNascoste = 0;  // hidden rows among `righe`

  std::shared_ptr<const void> testi;  // owns the texts of the cells
};

// Why a cell has no value, as a sentence for the message V08; "" for any other cell.
std::string motivoSenzaValore(const Cella& cella);

}  // namespace cu::tabelle
