#pragma once

#include <cstddef>
#include <cstring>

#include "modello/campo.h"
#include "telematic/catalogo.h"
#include "telematic/engine/record_image.h"

namespace cu::telematico {

using modello::kLunghezzaCodice;
inline constexpr std::size_t kLunghezzaValore = 16;
inline constexpr char kSegnoContinuazione = '+';

// The cells Campo1 to Campo75 of a record's line, filled from the first without gaps, each with a code and a
// value. A value of more than 16 characters continues in the next cells, which repeat the code and contain
// "+" and 15 characters each. Unused cells are blank.
class Celle {
 public:
  explicit Celle(RecordImage& riga) : prima_(riga.at(kPrimaCella - 1)) {}

  void vuota() {
    std::memset(prima_, ' ', usate_ * kLarghezzaCella);
    usate_ = 0;
  }

  // `codice` has 8 characters, `valore` has `n`. An empty value takes no cell. Returns false when the cells
  // are used up.
  [[nodiscard]] bool fnScriviCampo(const char* codice, const char* valore, std::size_t n) {
    if (n == 0) return true;
    if (usate_ == kCelle) return false;
    char* const cella = prossima(codice);
    if (n <= kLunghezzaValore) {
      std::memcpy(cella, valore, n);
      return true;
    }
    std::memcpy(cella, valore, kLunghezzaValore);
    return continua(codice, valore + kLunghezzaValore, n - kLunghezzaValore);
  }

  // Right-aligns the value; at most 16 characters.
  [[nodiscard]] bool scriviADestra(const char* codice, const char* valore, std::size_t n) {
    if (usate_ == kCelle) return false;
    std::memcpy(prossima(codice) + (kLunghezzaValore - n), valore, n);
    return true;
  }

 private:
  // Writes the code into the next cell and returns its value area.
  char* prossima(const char* codice) {
    char* const cella = prima_ + usate_++ * kLarghezzaCella;
    std::memcpy(cella, codice, kLunghezzaCodice);
    return cella + kLunghezzaCodice;
  }
  bool continua(const char* codice, const char* resto, std::size_t n);

  char* prima_;
  std::size_t usate_ = 0;
};

}  // namespace cu::telematico
