#pragma once

#include <QString>
#include <cstdint>
#include <string>
#include <vector>

#include "suite/profilo.h"

namespace cu {

// What a person chooses before the wizard starts, where no profile says it; remembered for the next start.
struct SceltaAvvio {
  QString database;  // a file; empty for the demonstration's
  std::int32_t azienda = 1;
  std::int32_t filiale = 1;
  std::int32_t utente = 1;
  std::int32_t funzione = 247;
  QString documentiMinisteriali;

  static SceltaAvvio ricordata();
  void ricorda() const;
};

// The folders of the person who uses the machine.
struct CartelleAvvio {
  QString dati;          // demonstration database
  QString impostazioni;  // the settings' file
  QString documenti;     // where files go as long as nothing else is chosen
  QString guida = {};    // where the user's guide lies
  static CartelleAvvio delUtente();
  QString databaseDimostrativo() const;
};

// Creates the demonstration database where there is none yet. Errors as the database tells them; nothing
// half-made is left.
void preparaDimostrativo(const CartelleAvvio& cartelle);

struct AziendaAvvio {
  std::int32_t azienda = 0;
  std::int32_t filiale = 0;
  std::string nome;
};
// The companies of a database, by name; errors as the database tells them.
std::vector<AziendaAvvio> aziendeDi(const QString& database);

// The profile that the launcher would hand over for the choice.
Profilo profiloDi(const SceltaAvvio& scelta, const CartelleAvvio& cartelle);

// The setting that the editors take the ministerial documents' folder from.
QString cartellaMinisteriale(const CartelleAvvio& cartelle);
void salvaCartellaMinisteriale(const CartelleAvvio& cartelle, const QString& cartella);

}  // namespace cu
