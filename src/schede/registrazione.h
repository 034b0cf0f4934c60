#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "base/result.h"
#include "host/progress.h"
#include "host/session.h"
#include "schede/schede.h"
#include "schede/scrittura.h"

namespace cu::schede {

// An account of a company.
struct ContoToccato {
  std::int32_t idAnagrafica = 0;
  std::int32_t idCausale = 0;
  int anno = 0;
  friend auto operator<=>(const ContoToccato&,
                          const ContoToccato&) = default;  // NOLINT(modernize-use-nullptr)
};
ContoToccato contoDi(const SchedaCompenso& compenso);

// Which of these accounts have amounts that are not the sum of their payments: someone has corrected them.
std::vector<ContoToccato> contiCorretti(Connection& connessione, std::int32_t idAzienda,
                                        const std::set<ContoToccato>& conti);
// The same of all accounts with payments.
std::vector<ContoToccato> contiCorretti(Connection& connessione, std::int32_t idAzienda);

// Keeps single records: each call is one transaction of the host's own connection, with the accounts that the
// record touches. A call that is refused has written nothing; a record that differs from `prima`, which the
// caller has read, is refused, because someone else has changed it. Every call may raise DatabaseError.
class Registrazione {
 public:
  Registrazione(DatabaseHost& database, HostFactory& factory) : database_(database), factory_(factory) {}

  // Without `prima` a new record is added. The result is the record with its ids.
  Result<SchedaAzienda> azienda(const std::optional<SchedaAzienda>& prima, SchedaAzienda dopo);
  Result<> togliAzienda(const SchedaAzienda& prima);
  // `localitaEstera` is the place abroad where the payee lives; "" for none.
  Result<SchedaPercipiente> percipiente(const std::optional<SchedaPercipiente>& prima, SchedaPercipiente dopo,
                                        const std::string& localitaEstera = {});
  Result<> togliPercipiente(const SchedaPercipiente& prima);
  Result<SchedaCompenso> compenso(const std::optional<SchedaCompenso>& prima, SchedaCompenso dopo);
  Result<> togliCompenso(const SchedaCompenso& prima);

  // Sums all payments of a company into their accounts, except into those given; returns the number of
  // accounts that changed. Reports each year; what the sink raises ends it with nothing written.
  std::size_t ricalcola(std::int32_t idAzienda, const std::vector<ContoToccato>& tranne,
                        ProgressSink* avanzamento = nullptr);

 private:
  Connection& connessione() { return database_.ownConnection(); }
  Result<> aggiornaConti(Scrittura& scrittura, std::int32_t idAzienda, const std::set<ContoToccato>& conti);
  std::size_t ricostruisci(std::int32_t idAzienda, int anno, const std::string& filtro);

  DatabaseHost& database_;
  HostFactory& factory_;
};

}  // namespace cu::schede
