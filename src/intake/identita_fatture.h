#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "intake/identita.h"

namespace cu::intake {

// The identity of payments of invoices, among themselves and with those of the database, wherever they come
// from: payee, number, date and kind of the document, and of these those with the reason. A payment of the
// database that has no date of its document is that of an invoice with its number that was paid in the same
// year. The database has no kinds of documents: a payment of it is an invoice's or a credit note's.
class IdentitaFatture {
 public:
  IdentitaFatture(const Piano& piano, const ArchivioLetto& archivio);

  struct Come {
    bool dataProposta = false;  // a date of payment that makes no difference
    bool sola = false;          // the document's only payment, of which the reason may have been changed
    // What the payment may be, where it is not certain: one that a person has chosen is not asked for again.
    std::vector<schede::Importi> proposte{};
    bool giaImportata = false;  // the same file was imported before, with whatever a person has written
    bool dataDecisa = false;    // by a person, for this row
    bool fileNoto = false;      // the same file was imported before
  };
  Riscontro cerca(const CompensoDato& dato, const RigaPiano& riga, const Come& come);
  struct Cercato {
    std::int32_t idAnagrafica = 0;
    std::int32_t idCausale = 0;
    bool negativo = false;
    bool sola = false;
  };
  // When a payment was made that is in the database, with the number and the date of its document.
  std::optional<Date> pagamento(const Cercato& cercato, const std::string& numero, Date documento) const;
  // A row that was judged becomes the plan's payment of that number.
  void aggiungi(const CompensoDato& dato, std::size_t voce);

 private:
  using Compenso = const schede::SchedaCompenso*;

  bool stessoDocumento(const RigaPiano& una, const RigaPiano& altra) const;
  std::vector<Compenso> possibili(const CompensoDato& dato, bool sola) const;
  Riscontro nellArchivio(const CompensoDato& dato, const Come& come);
  Riscontro senzaDataDocumento(const CompensoDato& dato, const Come& come) const;
  const std::string& tipo(const RigaPiano& riga) const;
  std::string dove(const RigaPiano& riga) const;

  const Piano& piano_;
  std::unordered_map<std::string, std::vector<Compenso>> perNumero_;
  std::unordered_set<std::int32_t> usati_;                           // met by a row, which no other one means
  std::unordered_map<std::string, std::vector<std::size_t>> viste_;  // the plan's payments
};

}  // namespace cu::intake
