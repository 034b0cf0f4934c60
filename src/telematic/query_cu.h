#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace cu::telematico {

// The two statements of the run, as sent.

// Selects every selected row of the work table that has a VAT period of its own year and company. With
// `righe`, a SELECT of lines as the work table has them, nothing is read from a table of that name.
std::string queryPrincipale(std::string_view tabellaLavoro, std::string_view righe = {});

// The further modules of one compensation line.
std::string queryModuli(std::int64_t anno, std::int64_t idAnagrafica, std::int64_t idAzienda,
                        std::int64_t idCausalePagamento);

}  // namespace cu::telematico
