#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "intake/archivio_letto.h"
#include "intake/piano.h"

namespace cu::intake {

// What is known of a payment that a row describes.
struct Riscontro {
  enum class Esito : std::uint8_t {
    Nuovo,
    Uguale,
    Diverso,
    Ripetuto,  // the same document with other data in the files, or more than once in the database
  };
  Esito esito = Esito::Nuovo;
  const schede::SchedaCompenso* compenso = nullptr;  // of the database, for Uguale and Diverso
  std::string dove;                                  // of Ripetuto: "nella riga 12", "in archivio più volte"
};

// The identity of payments: their reference; else payee, reason, document and date of payment; without a
// number of the document payee, reason, date and amounts, as many times as they occur.
class Identita {
 public:
  // The plan's payments are those of the rows judged so far.
  Identita(const Piano& piano, const ArchivioLetto& archivio);

  Riscontro cerca(const schede::SchedaCompenso& scheda, const std::string& riferimento);
  // A row that was judged becomes the plan's payment of that number: later rows may repeat it.
  void aggiungi(const schede::SchedaCompenso& scheda, const std::string& riferimento, std::size_t voce);

 private:
  using Compenso = const schede::SchedaCompenso*;

  Riscontro neiFile(const schede::SchedaCompenso& scheda, const std::string& chiave) const;
  Riscontro nellArchivio(const schede::SchedaCompenso& scheda, const std::string& riferimento);
  Riscontro senzaNumero(const schede::SchedaCompenso& scheda, bool conRiferimento);
  bool possibile(Compenso compenso, bool conRiferimento) const;

  const Piano& piano_;
  const ArchivioLetto& archivio_;
  std::unordered_map<std::int32_t, Compenso> perId_;
  std::unordered_set<std::int32_t> conRiferimento_;
  std::unordered_map<std::string, std::vector<Compenso>> perDocumento_;
  std::unordered_map<std::string, std::vector<Compenso>> perImporti_;  // without a number
  std::unordered_set<std::int32_t> usati_;                             // of those, met by a row
  std::unordered_map<std::string, std::uint32_t> visti_;               // the plan's payments
};

}  // namespace cu::intake
