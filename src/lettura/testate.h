#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "lettura/segnalatore.h"
#include "modello/modello.h"

namespace cu::lettura {

// A field of a record's frame by its name.
constexpr Tratto tratto(modello::Tavola tavola, std::string_view nome) {
  for (const modello::CampoRecord& campo : tavola) {
    if (campo.nome == nome) return {campo.posizione, campo.lunghezza};
  }
  return {0, 0};
}

inline std::string_view leggi(std::string_view riga, Tratto tratto) {
  return riga.substr(static_cast<std::size_t>(tratto.posizione - 1),
                     static_cast<std::size_t>(tratto.lunghezza));
}

bool vuoto(std::string_view testo);  // blanks only

// Checks the fields of the frames of A, B, D, H and Z. Record B differs by tax years; of an unknown year the
// fields that move are passed over.
class Testate {
 public:
  Testate();
  void anno(std::optional<std::int32_t> anno, const modello::Modello& modello = modello::kModello);
  // `riga` has 1898 characters.
  void controlla(char record, std::string_view riga, Segnalatore& segnala) const;

 private:
  enum class Genere : std::uint8_t {
    Libero,
    Vuoto,
    Testo,
    Maiuscolo,
    Numero,
    Cifra,
    DueCifre,  // filled with zeros or blanks, or blank
    Data,
    Flag,
    Operazione
  };
  struct Campo {
    Tratto tratto;
    Genere genere;
    std::string_view nome;
  };
  static Genere genere(char record, std::string_view nome, std::optional<std::int32_t> anno);
  static void aggiungi(std::vector<Campo>& campi, char record, modello::Tavola tavola,
                       std::optional<std::int32_t> anno);
  static void controllaCampo(const Campo& campo, std::string_view valore, Segnalatore& segnala);

  std::vector<Campo> a_, b_, d_, h_, z_;
};

}  // namespace cu::lettura
