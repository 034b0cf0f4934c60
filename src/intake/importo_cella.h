#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "base/decimal.h"

namespace cu::intake {

// The marks of a file's amounts. Without a decimal mark both are one, unless what follows them are three
// digits: then the other amounts of the file decide.
struct SegniImporto {
  std::optional<char> decimali;
  std::optional<char> migliaia;
  bool virgolaVista = false;  // an amount in which it can be nothing but a decimal mark
  bool puntoVisto = false;

  // Learns from an amount as it is written, without blanks at its ends.
  void osserva(std::string_view testo);
};

enum class EsitoImporto : std::uint8_t {
  Letto,
  Trattino,  // a hyphen alone, also beside the sign of the currency
  Altro,     // no amount
  Migliaia,  // with thousands marks that are not allowed
  Incerto,   // the mark may be one of decimals or of thousands
  Grande,    // beyond the limit
  Valuta,    // of another currency
};

struct ImportoLetto {
  EsitoImporto esito = EsitoImporto::Altro;
  Decimal valore;
  bool arrotondato = false;  // to the given number of decimals, half away from zero
};

// "1234,5", "12,00-", "(12,00)", "€ 12,00". `testo` has no blanks at its ends; `decimali` is 2 to 4.
ImportoLetto leggiImporto(std::string_view testo, const SegniImporto& segni, int decimali = 2);

}  // namespace cu::intake
