#include "apps/comune/connessioni.h"

#include "database/schema.h"
#include "database/sqlite/sqlite_connection.h"
#include "host/error.h"

namespace cu {
namespace {

[[noreturn]] void senzaOdbc() {
  throw DatabaseError(DatabaseErrorKind::Unavailable, 0, "",
                      "Questo programma è stato costruito senza il collegamento ODBC: indicare un database "
                      "\"sqlite:FILE\".");
}

}  // namespace

std::unique_ptr<Connection> apriConnessione(const Profilo::Database& database) {
  switch (database.motore) {
    case Profilo::Motore::Sqlite:
      return SqliteConnection::open(database.origine, nomiSchema());
    case Profilo::Motore::Odbc:
      senzaOdbc();
  }
  senzaOdbc();
}

std::unique_ptr<Connection> creaConnessione(const Profilo::Database& database) {
  switch (database.motore) {
    case Profilo::Motore::Sqlite:
      return SqliteConnection::create(database.origine);
    case Profilo::Motore::Odbc:
      senzaOdbc();
  }
  senzaOdbc();
}

}  // namespace cu
