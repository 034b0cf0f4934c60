#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "intake/piano.h"

// What a person looks at before an import: what a plan does, in sums.
namespace cu {

bool haCodice(const intake::RigaPiano& riga, intake::Codice codice);

// The accounts of a reason in a year that a plan changes, together.
struct SommaAnnoCausale {
  int anno = 0;
  std::string causale;
  std::size_t conti = 0;
  std::size_t compensi = 0;  // rows that are written
  schede::Importi prima{};
  schede::Importi dopo{};
};
// Ordered by year and reason.
std::vector<SommaAnnoCausale> sommePerAnnoECausale(const intake::Piano& piano);

// What was paid: fees, sums that are not taxed and those under a tax treaty.
Decimal lordo(const schede::Importi& importi);
// The tax on account and the one at source together.
Decimal ritenute(const schede::Importi& importi);

// The warnings of a kind.
struct AvvisiDiCodice {
  intake::Codice codice = intake::Codice::C03;
  std::size_t quanti = 0;
  std::string primo;  // the first one, with its place
  bool accettati = false;
};
// Of files, accounts and rows that would be written.
std::vector<AvvisiDiCodice> avvisiPerCodice(const intake::Piano& piano);

// Errors and what is to be decided of files and accounts, and the rows that cannot be written as they are.
std::vector<std::string> messaggiGenerali(const intake::Piano& piano);

// Whom rows of payments mean.
struct SoggettoPiano {
  enum class Stato : std::uint8_t { Trovato, Assente, DaScegliere, InConflitto, NonCercato, Nuovo };
  Stato stato = Stato::NonCercato;
  std::string chiave;              // its code, or what the file says
  std::string nome;                // "" where it is not known
  std::vector<std::size_t> righe;  // indices of the plan
  std::optional<Decimal> lordo;    // of the rows whose amounts are known
  std::vector<intake::Candidato> candidati;
};
// Those to be cleared first; none for other lists than payments.
std::vector<SoggettoPiano> soggettiDelPiano(const intake::Piano& piano);
std::string detto(SoggettoPiano::Stato stato);

}  // namespace cu
