#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "host/session.h"
#include "intake/archivio_letto.h"
#include "intake/piano.h"
#include "schede/scrittura.h"

namespace cu::intake {

// The accounts of a batch: they are never written directly, but rebuilt from their payments.
class ContiLotto {
 public:
  ContiLotto(DatabaseHost& database, RicostruzioneConti& ricostruzione, std::int32_t idAzienda,
             std::int32_t lotto);

  // Keeps what they are before the batch: amounts, and the sum of their payments.
  void ricorda(const std::vector<ContoPiano>& conti);
  // Rebuilds those that have payments; the amounts of others become zero. Reports each year.
  void ricostruisci(ProgressSink* avanzamento = nullptr);
  // Raises Error where they are not as planned.
  void confronta(const std::vector<ContoPiano>& conti) const;

  // An account that is not as the batch left it.
  struct Corretto {
    ChiaveConto chiave;
    bool eliminato = false;  // otherwise its amounts are no longer the sum of its payments
  };
  // The way back, in this order: the accounts that were corrected since; and, once the payments are as
  // before, the accounts as before.
  std::vector<Corretto> corretti() const;
  void riporta();

 private:
  struct Ricordo {
    std::optional<schede::Riga> prima;
    schede::Importi somma{};
  };
  struct Attuali {
    std::map<ChiaveConto, schede::Riga> conti;
    std::map<ChiaveConto, schede::Importi> somme;  // of the accounts that have payments
  };
  std::map<ChiaveConto, Ricordo> ricordi() const;
  Attuali attuali(const std::set<ChiaveConto>& quali) const;
  std::set<ChiaveConto> chiavi() const;
  std::set<int> anni() const;
  bool haAltro(const ChiaveConto& chiave) const;

  DatabaseHost& database_;
  Connection& connessione_;
  RicostruzioneConti& ricostruzione_;
  std::int32_t idAzienda_;
  std::int32_t lotto_;
};

}  // namespace cu::intake
