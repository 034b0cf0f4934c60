#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>
#include <string>
#include <vector>

#include "apps/comune/aziende_database.h"
#include "suite/profilo.h"

namespace cu {

// A database on a server: an ODBC connection text without a password; empty for none.
struct ServerAvvio {
  QString testo;
  bool cifrata = true;

  Profilo::Database database() const;
  // "contabilita.local, database Suite, utente cu".
  QString nome() const;
};

// The user's choices before the wizard starts, where no profile contains them; stored for the next start.
struct SceltaAvvio {
  QString database;         // a file; empty for the demonstration database
  ServerAvvio server = {};  // in place of a file
  std::int32_t azienda = 1;
  std::int32_t filiale = 1;
  std::int32_t utente = 1;
  std::int32_t funzione = 247;
  QString documentiMinisteriali;
  bool moduliPubblicati = false;  // later years in the forms published for them

  static SceltaAvvio ricordata();
  void ricorda() const;
  // The user has not started anything yet.
  static bool mai();
  Profilo::Database suo(const QString& dimostrativo) const;
};

// Makes what the windows remember the user's alone: creates its file where there is none. To be called before
// anything is remembered.
void riservaMemoria();

// The databases of the last starts, the last one first: files that still exist, and "odbc:" with the text of
// a server.
QStringList databaseRecenti();
inline constexpr QLatin1String kRecenteServer("odbc:");

// The year with which a company was worked on last, as the user left it; empty for none.
QString annoRicordato(const QString& database, std::int32_t azienda);
void ricordaAnno(const QString& database, std::int32_t azienda, const QString& anno);

// Whether a database is worked on in the published forms: as was chosen for it, otherwise as it was created;
// one on a server is not asked.
bool moduliPubblicatiDi(const QString& database);
void ricordaModuli(const QString& database, bool pubblicati);

// The folders of the current user.
struct CartelleAvvio {
  QString dati;          // of the demonstration database
  QString impostazioni;  // of the settings file
  QString documenti;     // of files until the user chooses another one
  QString guida = {};    // of the user's guide
  static CartelleAvvio delUtente();
  QString databaseDimostrativo() const;
};

// Creates the demonstration database where it is missing. Database errors propagate; no incomplete file is
// left.
void preparaDimostrativo(const CartelleAvvio& cartelle);

// Creates a database for the published forms with the lists and no company. A file that exists, and an error,
// leave everything as it was; both are raised with a text for the user.
void creaArchivioVuoto(const QString& file);

// The proposal for a new one: a name in the folder that no file has yet.
QString nomeNuovoArchivio(const QString& cartella);

using AziendaAvvio = AziendaTrovata;
// The companies of a database, by name; database errors propagate.
std::vector<AziendaAvvio> aziendeDi(const Profilo::Database& database);

// The name of such a profile in messages.
inline constexpr const char* kAvvioSenzaProfilo = "avvio";
// The profile that the launcher would pass for the choice.
Profilo profiloDi(const SceltaAvvio& scelta, const CartelleAvvio& cartelle);

// Writes that profile into a file that its owner alone can read, for later starts and for cuctl. It holds no
// password. FileError where it cannot be written.
void salvaProfilo(const SceltaAvvio& scelta, const CartelleAvvio& cartelle, const QString& file);

// What the program says of itself: the version's text, then where the data are; of a start with a profile its
// own.
QString testoInformazioni(const std::string& versione, const CartelleAvvio& cartelle, const Profilo* profilo);

// The setting that contains the folder of the ministerial documents for the editors.
QString cartellaMinisteriale(const CartelleAvvio& cartelle);
void salvaCartellaMinisteriale(const CartelleAvvio& cartelle, const QString& cartella);

}  // namespace cu
