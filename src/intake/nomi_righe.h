#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "data/database.h"
#include "intake/archivio_letto.h"
#include "schede/elenchi.h"
#include "schede/tabelle_suite.h"

namespace cu::intake {

// Names rows of the suite's tables in a clerk's words, as parts of a sentence. What is no longer there is
// named as imports have written it. The names are read at the first question.
class NomiRighe {
 public:
  explicit NomiRighe(Connection& connessione) : connessione_(connessione) {}

  // "il compenso di P001 Rossi Mario, causale A, del 20/09/2017, documento 3"
  std::string riga(const schede::TabellaSuite& tabella, const schede::Riga& riga);
  // "il conto di P001 Rossi Mario, causale A, anno 2017"
  std::string conto(const ChiaveConto& chiave);

 private:
  struct Nomi {
    explicit Nomi(Connection& connessione) : elenchi(connessione) {}
    schede::Elenchi elenchi;
    std::map<std::int32_t, std::string> anagrafiche;  // "Rossi Mario"
    std::map<std::int32_t, std::string> codici;       // of the payees
    std::map<std::int32_t, std::int32_t> aziende;     // the records of their seats
  };
  const Nomi& nomi();
  void daStorico(Nomi& nomi);
  std::string anagrafica(std::int32_t id);
  std::string percipiente(std::int32_t id);
  std::string azienda(std::int32_t id);
  std::string compenso(const schede::Riga& riga);

  Connection& connessione_;
  std::optional<Nomi> nomi_;
};

// "2 compensi": rows of the table that name another one.
std::string detteRighe(std::string_view tabella, std::size_t quante);

}  // namespace cu::intake
