#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "apps/comune/aziende_database.h"
#include "apps/comune/connessioni.h"
#include "suite/profilo.h"

// Runs for many companies: which ones, and what each of them has of its own.
namespace cu {

// A database and all of its companies.
struct DatabaseScelto {
  std::string nome;  // different for each database of a run
  Profilo::Database database;
  std::vector<AziendaTrovata> aziende;
};

// Opens each database by `apri` and reads its companies; a password is asked for once. The same file given
// twice is one database. Errors rise as they are; where `escluso` is given and there are several databases,
// one that cannot be read has no companies, and its error's text goes there.
std::vector<DatabaseScelto> leggiDatabase(std::vector<Profilo::Database> database, AperturaDatabase apri,
                                          const std::function<void(const std::string& testo)>& escluso = {});

struct AziendaScelta {
  std::size_t database = 0;  // its place in the list
  AziendaTrovata azienda;
  std::string cartella;  // relative; no two companies of a run have the same
};

// The text is for the user.
class SceltaErrata : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The companies asked for, by fiscal code (or VAT number) or by number, of each database that has them; all
// of them where none is asked for. Raises SceltaErrata for one that no database has, and for a code that
// several companies of a database share.
std::vector<AziendaScelta> scegliAziende(const std::vector<DatabaseScelto>& database,
                                         const std::vector<std::string>& richieste);

// The number in the place of the user's in the session of one company: work tables and tables of lines to
// print bear it, so that runs of different companies and users have their own. It is the same each time.
std::int32_t numeroSessione(std::int32_t utente, std::int32_t azienda);

// The profile for one of them: its settings, on the company's database, with a session and a trace of its
// own. Writers wait for each other.
Profilo profiloPer(const Profilo& profilo, const std::vector<DatabaseScelto>& database,
                   const AziendaScelta& scelta);

// "Alfa S.r.l. (01234567890, azienda 3)", and before it the database where there are several.
std::string dettaAzienda(const std::vector<DatabaseScelto>& database, const AziendaScelta& scelta);

}  // namespace cu
