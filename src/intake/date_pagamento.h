#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "intake/opzioni_fatture.h"

namespace cu::intake {

// The dates of a table, by whom they were paid to and for what.
class DatePagamento {
 public:
  explicit DatePagamento(const std::vector<DataPagata>& date);

  struct Chi {
    std::string_view codice;
    std::string_view codiceFiscale;
    std::string_view partitaIva;
    std::string_view codiceEstero;
  };
  // The different dates of a document; of a row that has no date of the document where no other one has it.
  std::vector<Date> trova(const Chi& chi, std::string_view numero, Date documento) const;

 private:
  using Indice = std::unordered_map<std::string, std::vector<Date>>;
  Indice perDocumento_;
};

}  // namespace cu::intake
