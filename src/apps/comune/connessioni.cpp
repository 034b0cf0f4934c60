#include "apps/comune/connessioni.h"

#include <filesystem>
#include <iostream>

#include "apps/comune/password.h"
#include "apps/comune/permessi_database.h"
#include "archive/schema.h"
#include "base/error.h"
#include "odbc/odbc_connection.h"
#include "sqlite/own_files.h"
#include "sqlite/sqlite_connection.h"
#include "suite/logged_connection.h"

namespace cu {
namespace {

constexpr int kMillesimi = 1000;

// A server of another kind would reject the first statement with a less specific message.
std::unique_ptr<Connection> apriServer(const Profilo::Database& database) {
  OdbcSettings impostazioni{database.origine, "", database.cifrata, database.secondiAccesso,
                            database.secondiIstruzione};
  if (database.password) {
    impostazioni.password = *database.password;
  } else if (OdbcConnection::wantsPassword(database.origine)) {
    impostazioni.password = passwordDi(database);
  }
  auto connessione =
      OdbcConnection::open(impostazioni, [](const std::string& avviso) { std::cerr << avviso << std::endl; });
  if (!connessione->isSqlServer()) {
    throw DatabaseError(DatabaseErrorKind::Unavailable, 0, "",
                        "Il server dell'indirizzo non è Microsoft SQL Server: risponde «" +
                            connessione->product() + "». Correggere l'indirizzo.");
  }
  return connessione;
}

// Rejects a database without any table of the suite. One that lacks some tables is opened: the operations
// that need them report an error, or continue without.
void esigiSuite(Connection& connessione, const std::string& senza) {
  if (contieneSuite(connessione)) return;
  throw DatabaseError(DatabaseErrorKind::NoSchema, 0, "",
                      senza +
                          " Verificare con «cuctl check», correggere l'indirizzo nel profilo, o creare un "
                          "database con «cuctl create».");
}

using ApriFile = std::unique_ptr<SqliteConnection> (*)(const std::string& file);

std::unique_ptr<Connection> aperta(const Profilo::Database& database, ApriFile apri) {
  segnalaPermessi(database);
  switch (database.motore) {
    case Profilo::Motore::Sqlite: {
      auto file = apri(database.origine);
      if (database.secondiAttesa) {
        file->setPatience(*database.secondiAttesa * kMillesimi, [nome = database.origine] {
          std::cerr << "Il database «" << nome << "» è occupato da un altro programma: si attende."
                    << std::endl;
        });
      }
      esigiSuite(*file, "Il database «" + database.origine + "» non contiene le tabelle della suite.");
      return file;
    }
    case Profilo::Motore::Odbc:
      break;
  }
  auto connessione = apriServer(database);
  esigiSuite(*connessione,
             "Il database del server non contiene le tabelle della suite, o l'utente non le vede.");
  return connessione;
}

std::unique_ptr<Connection> daRiempire(const Profilo::Database& database) {
  segnalaPermessi(database);
  switch (database.motore) {
    case Profilo::Motore::Sqlite:
      return SqliteConnection::create(database.origine);
    case Profilo::Motore::Odbc:
      break;
  }
  return apriServer(database);
}

const char* nomeMotore(const Profilo::Database& database) {
  return database.motore == Profilo::Motore::Sqlite ? "sqlite" : "odbc";
}

std::unique_ptr<Connection> annotata(const Profilo::Database& database, ApriFile apri) {
  return withLog(logged({.operation = "apertura database", .detail = nomeMotore(database)},
                        [&] { return aperta(database, apri); }));
}

}  // namespace

std::optional<Profilo::Database> databaseIndicato(const OpzioniDatabase& opzioni) {
  auto database = analizzaIndirizzo(opzioni.indirizzo, std::filesystem::current_path().string());
  if (!database) {
    std::cerr << "--database: atteso \"sqlite:FILE\" oppure \"odbc:Driver=...;Server=...\"\n";
    return std::nullopt;
  }
  database->variabilePassword = opzioni.variabilePassword;
  database->cifrata = !opzioni.inChiaro;
  return database;
}

void chiediPassword(Profilo::Database& database) {
  const bool server = database.motore == Profilo::Motore::Odbc;
  if (!server || database.password || !OdbcConnection::wantsPassword(database.origine)) return;
  database.password = passwordDi(database);
}

bool chiedePassword(const Profilo::Database& database) {
  return database.motore == Profilo::Motore::Odbc && !database.password &&
         database.variabilePassword.empty() && OdbcConnection::wantsPassword(database.origine);
}

void ricordaDatabase(const Profilo::Database& database) {
  if (database.motore == Profilo::Motore::Sqlite) rememberOwnDatabase(database.origine);
}

std::unique_ptr<Connection> apriConnessione(const Profilo::Database& database) {
  return annotata(database, &SqliteConnection::open);
}

std::unique_ptr<Connection> apriPerLeggere(const Profilo::Database& database) {
  return annotata(database, &SqliteConnection::openToRead);
}

std::unique_ptr<Connection> creaConnessione(const Profilo::Database& database) {
  return withLog(logged({.operation = "apertura database", .detail = nomeMotore(database)},
                        [&] { return daRiempire(database); }));
}

std::vector<VoceControllo> controllaDatabase(const Profilo::Database& database) {
  const auto modello = SqliteConnection::create(":memory:");
  creaSchema(*modello);
  segnalaPermessi(database);
  if (database.motore == Profilo::Motore::Sqlite) {
    const auto connessione =
        withLog(logged({.operation = "apertura database", .detail = nomeMotore(database)},
                       [&] { return SqliteConnection::open(database.origine); }));
    return controllaTabelle(*connessione, *modello);
  }
  const auto connessione = creaConnessione(database);
  std::vector<VoceControllo> voci = controllaServer(*connessione);
  for (VoceControllo& voce : controllaTabelle(*connessione, *modello)) voci.push_back(std::move(voce));
  return voci;
}

}  // namespace cu
