#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "data/database.h"
#include "intake/piano.h"
#include "schede/elenchi.h"
#include "schede/luoghi.h"
#include "schede/schede.h"

namespace cu::intake {

// An account's key within a company.
struct ChiaveConto {
  std::int32_t idAnagrafica = 0;
  std::int32_t idCausale = 0;
  int anno = 0;
  friend auto operator<=>(const ChiaveConto&, const ChiaveConto&) = default;  // NOLINT(modernize-use-nullptr)
};

struct ContoLetto {
  std::optional<schede::Importi> importi;  // none: there is no account
  bool haDatiAggiuntivi = false;
  std::int32_t idCodiceNonSoggette = 0;
  bool moduliConSomme = false;
};

// What an import of one kind needs of the database, each table read once.
struct ArchivioLetto {
  // `luoghi`: those of an earlier reading, which takes most of the time of a small one.
  ArchivioLetto(Connection& connessione, Elenco elenco, const RichiestaPiano& richiesta,
                std::shared_ptr<const schede::Luoghi> luoghi = nullptr);

  std::shared_ptr<const schede::Luoghi> luoghiLetti;
  const schede::Luoghi& luoghi;
  schede::Elenchi elenchi;
  std::vector<schede::SchedaAzienda> aziende;          // the company, or all of them
  std::vector<schede::SchedaPercipiente> percipienti;  // not for companies
  std::vector<schede::SchedaCompenso> compensi;        // payments only, and so all that follows
  std::map<ChiaveConto, ContoLetto> conti;
  std::unordered_map<std::string, std::int32_t> riferimenti;  // of payments that batches wrote: their ids
  std::set<std::string> impronte;                             // of the files imported before

  // Of all these rows: two readings with the same one are alike.
  std::uint64_t impronta() const;

 private:
  void leggiConti(Connection& connessione, std::int32_t idAzienda);
  void leggiStorico(Connection& connessione, Elenco elenco, std::int32_t idAzienda);
};

}  // namespace cu::intake
