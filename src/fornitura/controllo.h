#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/date.h"
#include "base/result.h"
#include "fornitura/intorno.h"
#include "telematic/controlli.h"

// Checks of the data before a file is made.
namespace cu::fornitura {

struct Controllo {
  std::string sCodFisc;  // the company's fiscal code, or its VAT number
  std::vector<DatoMancante> mancanti;
};
// Returns every missing datum as a refusal (code "dato-mancante") and as a row of the log, and what the form
// of the year does not have (code "non-attestato"). The value is present in both cases. A warning (code
// "caselle-non-attestate") has the payees of whom boxes remain blank because their content is not attested.
Result<Controllo> controlla(const Intorno& intorno, const DatiControllo& dati, const std::string& tabella);

// Whether everything is there, and only cannot be written in the form of the year.
bool soloNonAttestati(const std::vector<DatoMancante>& mancanti);

// Fills the suite's log, which the caller shows.
void riempiLog(LogGrid& oLogGrid, std::int32_t idUtente, const std::vector<DatoMancante>& mancanti);

struct DateFornitura {
  std::optional<Date> firma;
  std::optional<Date> impegno;  // none without an intermediary
};
// Dates for which the authority may reject the file, in the order of the questions to the user.
Result<> controllaDate(const DateFornitura& date, Date oggi);

}  // namespace cu::fornitura
