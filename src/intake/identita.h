#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "intake/archivio_letto.h"
#include "intake/piano.h"

namespace cu::intake {

// A payment as a row gives it. What the row does not give is empty here, and is left as the database has it.
struct CompensoDato {
  schede::SchedaCompenso scheda;
  std::bitset<schede::kImporti> importi;  // those given
  bool numero = false;                    // of the document
  bool documento = false;                 // its date
  std::string riferimento;

  // The payment as the row leaves it; `prima` is null for a new one.
  schede::SchedaCompenso su(const schede::SchedaCompenso* prima) const;
  bool stessiImporti(const schede::SchedaCompenso& altro) const;
};

// What is known of a payment that a row describes.
struct Riscontro {
  enum class Esito : std::uint8_t {
    Nuovo,
    Uguale,
    Diverso,
    Ripetuto,  // the same document with other data in the files, or more than once in the database
    Incerto,   // whether it is the payment of the database, a person has to say
  };
  Esito esito = Esito::Nuovo;
  const schede::SchedaCompenso* compenso = nullptr;  // of the database, for Uguale and Diverso
  std::size_t voce = kSenzaVoce;                     // of Uguale: the plan's payment that the row repeats
  std::string dove;  // "nella riga 12", "in archivio più volte"; of Incerto: what has to be decided
};

// The identity of payments: their reference; else payee, reason, document and date of payment; without a
// number of the document payee, reason, date and amounts, as many times as they occur. Only what a row gives
// is compared. Rows of different references are different payments.
class Identita {
 public:
  // The plan's payments are those of the rows judged so far.
  Identita(const Piano& piano, const ArchivioLetto& archivio);

  Riscontro cerca(const CompensoDato& dato);
  // A row that was judged becomes the plan's payment of that number: later rows may repeat it.
  void aggiungi(const CompensoDato& dato, std::size_t voce);

 private:
  using Compenso = const schede::SchedaCompenso*;

  Riscontro neiFile(const CompensoDato& dato, const std::string& chiave) const;
  Riscontro nellArchivio(const CompensoDato& dato);
  std::vector<Compenso> conNumero(const CompensoDato& dato) const;
  Riscontro senzaNumero(const CompensoDato& dato);
  bool possibile(Compenso compenso, bool conRiferimento) const;

  const Piano& piano_;
  const ArchivioLetto& archivio_;
  std::unordered_map<std::int32_t, Compenso> perId_;
  std::unordered_set<std::int32_t> conRiferimento_;
  std::unordered_map<std::string, std::vector<Compenso>> perNumero_;
  std::unordered_map<std::string, std::vector<Compenso>> perImporti_;  // without a number
  std::unordered_map<std::string, std::vector<Compenso>> perGiorno_;   // the same ones
  std::unordered_set<std::int32_t> usati_;                // met by a row, which no other one means
  std::unordered_map<std::string, std::uint32_t> visti_;  // the plan's payments
};

}  // namespace cu::intake
