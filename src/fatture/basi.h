#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "fatture/compensi.h"
#include "fatture/fattura.h"

namespace cu::fatture {

// A percentage of an amount in cents, rounded half away from zero.
Decimal quotaPercentuale(Decimal importo, Decimal percentuale);
// "1.234,50"
std::string inEuro(Decimal importo);

enum class GenereLinea : std::uint8_t {
  Vuota,          // without an amount
  Soggetta,       // marked as subject to the tax
  Spesa,          // an expense, a stamp: N1, or said by its text
  NonImponibile,  // of another nature without VAT
  Altra,
};
GenereLinea genereLinea(const Linea& linea);

// ENASARCO as a fund is a deduction, whatever its flag says.
inline bool diEnasarco(const Cassa& cassa) { return cassa.tipo == "TC07"; }
inline bool rivalsaInps(const Cassa& cassa) { return cassa.tipo == "TC22"; }

// A part of a document that may be the fee: ranks of its lines and funds.
struct Base {
  std::vector<std::size_t> linee;
  std::vector<std::size_t> casse;
  bool sconto = false;
  Decimal importo;  // in cents, with its sign

  bool ha(std::size_t linea) const;
  bool haCassa(std::size_t cassa) const;
};

// The parts of a document that may be the fee, the most likely ones first, without repetitions.
std::vector<Base> basiPossibili(const Fattura& fattura);
Base baseDi(const Fattura& fattura, std::vector<std::size_t> linee, std::vector<std::size_t> casse = {},
            bool sconto = false);

// A base whose share, with its rate, gives the tax.
struct Riscontro {
  int imponibile = 100;  // the taxable share of the fee, in percent
  Decimal aliquota;      // of that share
  Decimal ritenuta;      // as it follows, without sign
  Decimal scarto;        // from the document's
};
// nullopt where no share usual for the reason gives the tax to 0.01.
std::optional<Riscontro> riscontra(const Base& base, const Ritenuta& ritenuta);

// "compenso 2.000,00 + rivalsa INPS 80,00 = imponibile 2.080,00; 20 % = 416,00"
std::string spiega(const Fattura& fattura, const Base& base, const Riscontro& riscontro);

}  // namespace cu::fatture
