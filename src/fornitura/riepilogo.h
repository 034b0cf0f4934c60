#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "base/decimal.h"
#include "fornitura/controllo.h"
#include "fornitura/intorno.h"
#include "worklist/compensi.h"

// What a run would do, computed before it: nothing is written, and no statement is traced.
namespace cu::fornitura {

// Of the selected lines, in memory.
struct Riepilogo {
  std::size_t righe = 0;
  std::size_t caricate = 0;  // all lines
  std::size_t percipienti = 0;
  Decimal lordo;
  Decimal ritenute;                // on account and as final tax
  std::size_t daMemorizzare = 0;   // corrected lines that the run writes back
  std::size_t nonMemorizzate = 0;  // corrected lines that it does not, because they are not selected
  // Of the lines that it writes back, those whose refunded expenses leave the account by that.
  std::size_t senzaSpese = 0;
};
Riepilogo riepiloga(Compensi& compensi);

// The company of the run, and the missing data of company and payees that the checks would report.
struct DatiPrevisti {
  std::string azienda;  // surname or name, and first name
  std::string sCodFisc;
  std::vector<DatoMancante> mancanti;
  std::size_t conCaselleVuote = 0;  // payees with boxes that remain blank, of which the run warns
};
// Reads the company alone where `tabella` is empty. Database errors propagate.
DatiPrevisti prevedi(const Intorno& intorno, const std::string& tabella,
                     Comunicazione tipo = Comunicazione::Ordinaria);

// "1.234.567,80"
std::string importoItaliano(Decimal importo);
// "20.748"
std::string numeroItaliano(std::size_t numero);

}  // namespace cu::fornitura
