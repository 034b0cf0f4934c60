#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/date.h"
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
  struct Trovate {
    std::vector<Date> date;   // the different ones
    bool senzaData = false;   // of rows that have no date of the document
    bool perPartita = false;  // by the VAT number alone
  };
  // The dates of a document; of rows that have no date of the document where no other one has it. The fiscal
  // code decides: a row with another one is not found by the VAT number.
  Trovate trova(const Chi& chi, std::string_view numero, Date documento) const;

 private:
  struct Voce {
    std::string codiceFiscale;
    Date pagamento;
  };
  std::unordered_map<std::string, std::vector<Voce>> perDocumento_;
};

// The documents of an import by seller and number: a row of the table without the date of the document means
// one of them.
class DocumentiOmonimi {
 public:
  explicit DocumentiOmonimi(const DatePagamento& date) : date_(date) {}
  void aggiungi(const DatePagamento::Chi& chi, const std::string& numero, Date documento);
  // The documents that take a row without a date, found for one of them; at least 1.
  std::size_t quanti(const DatePagamento::Chi& chi, const std::string& numero, bool perPartita) const;

 private:
  struct Uno {
    std::string codiceFiscale;
    Date data;
  };
  const DatePagamento& date_;
  std::unordered_map<std::string, std::vector<Uno>> documenti_;
};

}  // namespace cu::intake
