#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "modello/tracciato.h"

namespace cu::riscontro {

// A line of 1898 characters that is filled in by the names of its fields. Texts are Windows-1252.
class RigaComposta {
 public:
  // A blank one with the mark of its end.
  explicit RigaComposta(std::vector<modello::Tavola> tavole);
  RigaComposta(std::vector<modello::Tavola> tavole, std::string testo);
  RigaComposta(std::span<const modello::Tavola> tavole, std::string testo)
      : RigaComposta(std::vector<modello::Tavola>(tavole.begin(), tavole.end()), std::move(testo)) {}

  // From the left; what does not fit is cut off.
  void testo(std::string_view campo, std::string_view valore);
  // Filled with zeros; the digits at the right end stay.
  void numero(std::string_view campo, std::string_view cifre);
  void numero(std::string_view campo, std::size_t valore);
  // The next of the 75; a 76th is left out.
  void cella(std::string_view codice, std::string_view valore);
  const std::string& fatta() const { return testo_; }

 private:
  const modello::CampoRecord& campo(std::string_view nome) const;

  std::vector<modello::Tavola> tavole_;
  std::string testo_;
  std::size_t usate_ = 0;
};

}  // namespace cu::riscontro
