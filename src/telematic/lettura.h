#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace cu::telematico {

// A finished telematic file, read back for people. Any content can be read; what is wrong with it is told.

struct RiepilogoFile {
  std::size_t byte = 0;
  std::size_t righe = 0;
  std::size_t righeA = 0;
  std::size_t righeB = 0;
  std::size_t righeD = 0;
  std::size_t righeH = 0;
  std::size_t righeZ = 0;
  std::int32_t anno = 0;  // the run year, from the supply's code; 0 when it cannot be told
  std::string difetto;    // empty: lines of 1900 bytes from A to Z, and Z counts what there is
  bool completo() const { return difetto.empty(); }
};

RiepilogoFile riepiloga(std::string_view contenuto);

// "7600 byte, 4 righe: 1 A, 1 B, 1 D, 0 H, 1 Z. Il file è completo."
std::string inParole(const RiepilogoFile& riepilogo);

// What one line holds, a text for each field and each cell that is not blank: "Progressivo modulo: 00000001",
// "DA002002 (Anagrafica): ROSSI". UTF-8; continuations are joined, blanks at both ends dropped. `linea` is
// without its end; a line of another length or type yields nothing.
std::vector<std::string> decodifica(std::string_view linea, std::int32_t anno);

}  // namespace cu::telematico
