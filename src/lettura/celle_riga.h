#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "lettura/caselle.h"
#include "lettura/segnalatore.h"
#include "modello/tracciato.h"

namespace cu::lettura {

// A value of a record, its continuations joined.
struct Cella {
  const Casella* casella = nullptr;
  std::string_view codice;
  int prima = 0;           // of the 75, from 0
  int quante = 1;          // cells
  std::string_view testo;  // Windows-1252; without the blanks that fill it
  bool buona = false;      // of its kind, and every byte a character
  std::int64_t cents = 0;  // of a good amount
};

// The cells of a record D or H. What is wrong with each is reported (K01 to K06, K08 of a cell that the
// module has no place for); what is required, or depends on other cells, is left to those who know the
// certificate. Everything that it hands out is valid until the next line.
class CelleRiga {
 public:
  // `riga` has 1898 characters.
  void leggi(std::string_view riga, modello::Record record, const Caselle& caselle, bool primoModulo,
             Segnalatore& segnala);

  std::size_t quante() const { return quante_; }
  const Cella* begin() const { return celle_.data(); }
  const Cella* end() const { return celle_.data() + quante_; }
  // The first with the code; null without it.
  const Cella* trova(modello::Quadro quadro, int numero) const;
  const Cella* somma(int numero) const { return trova(modello::Quadro::Autonomo, numero); }
  std::int64_t cents(int numero) const {
    const Cella* const cella = somma(numero);
    return cella == nullptr ? 0 : cella->cents;
  }

  static Tratto tratto(const Cella& cella) {
    return {modello::kPrimaCella + cella.prima * modello::kLarghezzaCella,
            cella.quante * modello::kLarghezzaCella};
  }
  // Where the cell of a code that is missing would be.
  Tratto posto(std::string_view codice) const;

 private:
  struct Stato;
  void aggiungi(Stato& stato, int indice, std::string_view codice, std::string_view valore);
  void inizia(Stato& stato, int indice, std::string_view codice, std::string_view valore);
  void continua(Stato& stato, int indice, std::string_view valore);
  static void controlla(Cella& cella, std::string_view primoValore, Segnalatore& segnala);

  static constexpr std::size_t kCelle = modello::kCelle;
  std::array<Cella, kCelle> celle_;
  std::size_t quante_ = 0;
  std::array<char, kCelle * 16> testi_{};  // joined values
};

}  // namespace cu::lettura
