#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/date.h"
#include "intake/mappatura.h"
#include "tabelle/tabella.h"

namespace cu::intake {

// A date as it is written: certain (ISO, a date of a workbook, a month by name), or three numbers whose order
// another row may show.
struct DataScritta {
  enum class Forma : std::uint8_t { Nessuna, Certa, TreNumeri };
  Forma forma = Forma::Nessuna;
  Date certa;
  int a = 0;
  int b = 0;
  int c = 0;
  bool annoCorto = false;  // of two digits
};

// `testo` is the cell's, without blanks at its ends. `ultimoAnno` is the last year that one of two digits can
// be.
DataScritta leggiScritta(std::string_view testo, tabelle::Genere genere, bool dal1904, int ultimoAnno);

// As a date in the order; nullopt where there is no such day, or the year is not one of 1900 to 2199.
std::optional<Date> risolta(const DataScritta& scritta, OrdineData ordine, int ultimoAnno);

// Decides the order of a column on all its dates.
class OrdineColonna {
 public:
  void osserva(const DataScritta& scritta, int ultimoAnno);
  // nullopt where both orders are possible and give different days.
  std::optional<OrdineData> deciso() const;

 private:
  std::size_t soloGiornoPrima_ = 0;
  std::size_t soloMesePrima_ = 0;
  std::size_t incerte_ = 0;
};

}  // namespace cu::intake
