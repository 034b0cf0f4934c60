#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "modello/modello.h"

namespace cu::lettura {

// What the value of a cell is held against.
enum class Natura : std::uint8_t {
  Testo,
  Numero,  // digits, right-aligned
  Anno,    // four of them
  Flag,
  Data,
  Importo,
  ImportoConSegno,
  CodiceFiscale,
  Provincia,
  ProvinciaNascita,  // or EE, abroad
};

Natura natura(const modello::Campo& campo);
// Whether blanks fill the value on its left.
bool aDestra(Natura natura);

// A code that the records of a year may have.
struct Casella {
  modello::Quadro quadro{};
  int numero = 0;
  Natura natura{};
  bool primoModulo = false;  // of record H
  bool altriModuli = false;
};

// The codes of a tax year; of an unknown year those of all years, the kinds that change being text.
class Caselle {
 public:
  explicit Caselle(std::optional<std::int32_t> anno, const modello::Modello& modello = modello::kModello);
  // Of the eight characters of a code; null where the record has no such code in the year.
  const Casella* trova(modello::Record record, std::string_view codice) const;

 private:
  static constexpr std::size_t kNumeri = 200;
  void aggiungi(const modello::Campo& campo);

  std::vector<Casella> caselle_;
  std::array<std::array<std::int16_t, kNumeri>, 4> posto_{};  // by part and number; 0 for none, else from 1
};

// Whether a province has or had the sign.
bool provincia(std::string_view sigla);

// Whether the form of the tax year has the reason. Where the lists are not known, every reason of a
// neighbouring year is.
bool causaleDellAnno(std::string_view causale, std::int32_t anno);

}  // namespace cu::lettura
