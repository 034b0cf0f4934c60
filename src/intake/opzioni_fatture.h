#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "base/date.h"

namespace cu::intake {

// The date of the payment of a document, as a table of them has it. One of the keys is there; a row without
// the document's date means any document of that number.
struct DataPagata {
  std::string codicePercipiente;
  std::string codiceFiscale;
  std::string partitaIva;
  std::string numero;
  Date documento;  // day 0 for none
  Date pagamento;
};

// Where the date of payment of an invoice comes from, which no invoice has. A date that was decided for a row
// (Decisione::pagamento) precedes all of them.
enum class FontePagamento : std::uint8_t {
  Nessuna,    // each one is to be decided
  Tavola,     // a table of dates; an invoice that it lacks is to be decided
  Documento,  // the document's date, proposed (R12)
  Giorno,     // the same day for all
};

// How invoices become payments, beside what they say themselves.
struct OpzioniFatture {
  FontePagamento fonte = FontePagamento::Nessuna;
  Date giorno{};                   // of Giorno
  std::vector<DataPagata> date{};  // of Tavola
  // What a reason of a document means: "Z" -> "ZO".
  std::map<std::string, std::string> causali{};
  // The reason of sellers in the flat-rate scheme, and those of single ones by their code, fiscal code or VAT
  // number, which precede it: of documents that say none. "" for none: it is to be decided.
  std::string causaleForfettari{};
  std::map<std::string, std::string> causaliPercipienti{};
  // Invoices to another company (F06) are left out rather than errors.
  bool tralasciaAltrui = false;
};

}  // namespace cu::intake
