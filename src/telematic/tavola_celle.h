#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <string_view>

namespace cu::telematico {

// What a row of a cell table is made of. The tables themselves, one a record, are in tavola_d.h and
// tavola_h.h.

// How a value is formed from its source.
enum class Forma : std::uint8_t {
  Testo,              // as it is read
  Maiuscolo,          // in upper case
  Destra,             // right-aligned to 16
  RifilatoADestra,    // trimmed, then right-aligned
  Data,               // DDMMYYYY, right-aligned
  DataFirma,          // that of the signature, today where there is none
  Telefono,           // cleaned; the second source where the first is no number
  Uno,                // 15 blanks and "1"
  Flag,               // the same where the source is true
  Importo,            // "#0.00", right-aligned; zero has none
  Somma,              // an amount: the sum of two sources
  CodiceNonSoggetti,  // the code, or the year's own where sums are not subject and no code was chosen
  CodicePressoEnte,   // the company's code at the fund
};

// Whether a row takes part; found once a record.
enum class Condizione : std::uint8_t {
  Sempre,
  PersonaFisica,
  NonResidente,
  NonResidenteSchumacker,  // a non-resident of that kind
  AnnoDovuto,              // an advance, or the reasons G, H, I
  CausaleN,
  BloccoC,  // contributions: at least one of the five amounts
};

// Run years, first and last.
struct Anni {
  std::int32_t primo = std::numeric_limits<std::int32_t>::min();
  std::int32_t ultimo = std::numeric_limits<std::int32_t>::max();
  constexpr bool comprende(std::int32_t anno) const { return anno >= primo && anno <= ultimo; }
};
inline constexpr Anni kTutti = {};
constexpr Anni nel(std::int32_t anno) { return {anno, anno}; }
constexpr Anni dal(std::int32_t anno) { return {.primo = anno}; }
constexpr Anni finoAl(std::int32_t anno) { return {.ultimo = anno}; }

// The modules of a certificate in which a row stands.
enum class Moduli : std::uint8_t { Primo, Altri, Tutti };

using AltreFonti = std::array<std::string_view, 3>;

struct RigaCella {
  std::string_view codice;
  std::string_view fonte;  // column of the query; empty where the form needs none
  Forma forma;
  Condizione condizione;
  Anni anni;
  Moduli moduli = Moduli::Primo;
  AltreFonti altre = {};  // where the form needs more than one
};

constexpr bool vale(const RigaCella& riga, std::int32_t anno, bool primoModulo) {
  const bool modulo =
      riga.moduli == Moduli::Tutti || riga.moduli == (primoModulo ? Moduli::Primo : Moduli::Altri);
  return modulo && riga.anni.comprende(anno);
}

// In one year and module no code stands twice, and codes grow: the order of the rows is that of the form.
constexpr bool inOrdine(std::span<const RigaCella> tavola, std::int32_t anno, bool primoModulo) {
  std::string_view ultimo;
  for (const RigaCella& riga : tavola) {
    if (riga.codice.size() != 8) return false;
    if (!vale(riga, anno, primoModulo)) continue;
    if (riga.codice <= ultimo) return false;
    ultimo = riga.codice;
  }
  return true;
}

constexpr bool inOrdine(std::span<const RigaCella> tavola) {
  for (std::int32_t anno = 2012; anno <= 2020; ++anno) {
    if (!inOrdine(tavola, anno, true) || !inOrdine(tavola, anno, false)) return false;
  }
  return true;
}

}  // namespace cu::telematico
