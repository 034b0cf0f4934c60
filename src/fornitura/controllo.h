#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/date.h"
#include "base/result.h"
#include "fornitura/intorno.h"
#include "telematic/controlli.h"

// Checking what a file is made of, before it is made.
namespace cu::fornitura {

struct Controllo {
  std::string sCodFisc;  // the company's fiscal code, or its VAT number
  std::vector<DatoMancante> mancanti;
};
// Every datum that is missing, as a refusal (code "dato-mancante") and as a row of the log. The value is
// there in both cases.
Result<Controllo> controlla(const Intorno& intorno, const DatiControllo& dati, const std::string& tabella);

// The rows in the suite's log, which it shows when it is told to.
void riempiLog(LogGrid& oLogGrid, std::int32_t idUtente, const std::vector<DatoMancante>& mancanti);

struct DateFornitura {
  std::optional<Date> firma;
  std::optional<Date> impegno;  // none where no intermediary is used
};
// Dates for which the authority may refuse the file, in the order in which a person is asked.
Result<> controllaDate(const DateFornitura& date, Date oggi);

}  // namespace cu::fornitura
