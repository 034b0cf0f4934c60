#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace cu::telematico {

// The two statements of the run, as sent.

// Selects every selected row of the work table that has a VAT period of its own year and company.
std::string queryPrincipale(std::string_view tabellaLavoro);

// The further modules of one compensation line.
std::string queryModuli(std::int64_t anno, std::int64_t idAnagrafica, std::int64_t idAzienda,
                        std::int64_t idCausalePagamento);

}  // namespace cu::telematico
