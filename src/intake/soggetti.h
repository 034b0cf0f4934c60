#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "intake/riga_in_corso.h"

namespace cu::intake {

// What a row says of who is meant.
struct Chiavi {
  std::string codice;
  std::string codiceFiscale;
  std::string partitaIva;
  // A VAT number that several payees share is left to a person; otherwise it is no key.
  bool scegliPerIva = false;
  std::string codiceEstero;  // of a payee abroad: the VAT number there
  // The fiscal codes that have the VAT number, where they are several: it is no key then, and a payee with it
  // and without a fiscal code is left to a person.
  std::vector<std::string> codiciDellIva{};
};
Chiavi chiaviDi(const RigaLetta& percipiente);
Chiavi chiaviDelCompenso(const RigaLetta& compenso);
// Of the seller of an invoice.
Chiavi chiaviDelCedente(const RigaLetta& percipiente);

// The codes of new payees: they continue those that begin as the last one does, "P046" after "P045". Without
// any code that ends in digits they are numbers of five digits.
class NumeriPercipienti {
 public:
  void osserva(const std::string& codice);
  std::string prossimo();

 private:
  struct Numeri {
    std::int64_t ultimo = 0;
    std::size_t larghezza = 0;
  };
  std::string prefisso_;  // of the last code
  std::unordered_map<std::string, Numeri> numeri_;
};

// The payees of a company by their keys.
class Soggetti {
 public:
  explicit Soggetti(std::span<const schede::SchedaPercipiente> percipienti);

  const schede::SchedaPercipiente* diId(std::int32_t idAnagrafica) const;
  // The payee that the keys mean, the first one that hits: the code, the fiscal code as written, the VAT
  // number that only one payee has, and without another fiscal code. `trovato` stays null where none hits.
  // False, and a message, where keys mean different payees or several ones.
  bool trova(RigaInCorso& corso, const Chiavi& chiavi, const schede::SchedaPercipiente*& trovato) const;
  // The payees of the name whose codes do not contradict the keys.
  std::vector<const schede::SchedaPercipiente*> omonimi(const Chiavi& chiavi, std::string_view cognome,
                                                        std::string_view nome) const;
  // Leaves the choice to a person.
  void candidati(RigaInCorso& corso, const std::vector<const schede::SchedaPercipiente*>& possibili,
                 const std::string& perche) const;

 private:
  using Indice = std::unordered_map<std::string, std::vector<const schede::SchedaPercipiente*>>;
  static const std::vector<const schede::SchedaPercipiente*>& cerca(const Indice& indice,
                                                                    const std::string& chiave);
  bool contesa(RigaInCorso& corso, const Chiavi& chiavi,
               const std::vector<const schede::SchedaPercipiente*>& conIva) const;

  Indice perCodice_;
  Indice perCodiceFiscale_;
  Indice perPartitaIva_;
  Indice perCodiceEstero_;
  Indice perNome_;
  std::unordered_map<std::int32_t, const schede::SchedaPercipiente*> perId_;
};

}  // namespace cu::intake
