#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tabelle/errore.h"
#include "tabelle/lettura.h"

namespace cu::tabelle::prova {

using namespace std::string_literals;

// The table as a text for comparison: a line a row, its number, the cells between bars. The kind of a cell
// that is no text is a letter before it: N number, P percentage, D date, L truth value, E error, F formula.
inline std::string scritta(const RigaTabella& riga) {
  constexpr std::string_view kLettere = "..NPDLEF";
  std::string testo = std::to_string(riga.numero) + ":";
  for (const Cella& cella : riga.celle) {
    testo += '|';
    const char lettera = kLettere[static_cast<std::size_t>(cella.genere)];
    if (lettera != '.') testo += lettera + " "s;
    testo += cella.testo;
  }
  return testo;
}

inline std::vector<std::string> scritte(const Tabella& tabella) {
  std::vector<std::string> righe = {scritta(tabella.intestazione)};
  for (const RigaTabella& riga : tabella.righe) righe.push_back(scritta(riga));
  return righe;
}

inline std::vector<std::string> segnalate(const Tabella& tabella) {
  std::vector<std::string> righe;
  for (const Rilievo& rilievo : tabella.rilievi) {
    righe.push_back(descrizione(rilievo.posto) + ": " + rilievo.testo + " (" + rilievo.codice + ")");
  }
  return righe;
}

// The description of the error that reading raises, or "read".
inline std::string rifiuto(std::string_view byte, std::string_view nome, const OpzioniLettura& opzioni = {}) {
  try {
    leggiTabella(byte, nome, opzioni);
  } catch (const ErroreTabella& errore) {
    return errore.description();
  }
  return "read";
}

using Membri = std::vector<std::pair<std::string, std::string>>;

// A ZIP archive; with a password, its members are encrypted.
std::string zipDi(const Membri& membri, const std::string& password = {});

// The parts of a workbook around the rows of its one sheet, "Dati"; `foglio` is what is within its element
// worksheet, `testi` within sst, `stili` within styleSheet.
struct Cartella {
  std::string foglio;
  std::string testi;
  std::string stili;
  std::string proprieta;  // within workbook, before the sheets
  std::string dopo;       // within workbook, behind the sheets
  std::string fogli = R"(<sheet name="Dati" sheetId="1" r:id="rId1"/>)";
  std::string relazioni =
      R"(<Relationship Id="rId1" Type="http://x/relationships/worksheet" Target="worksheets/sheet1.xml"/>)";
};
Membri membriDi(const Cartella& cartella);
std::string xlsxDi(const Cartella& cartella);
// With these rows alone.
std::string xlsxDiRighe(const std::string& righe);

}  // namespace cu::tabelle::prova
