#pragma once

#include <functional>
#include <string>

#include "controls/frontend.h"
#include "controls/utility.h"
#include "host/clock.h"
#include "host/session.h"
#include "schede/registrazione.h"

namespace cu {

// The surroundings of the forms for own data, passed by the program that builds them.
struct AmbienteGestione {
  FrontEnd& frontEnd;
  UtilitaSuite& utilita;
  HostFactory& factory;
  Clock& clock;
  // Whether the user has asked to interrupt the running work; where it is empty, nobody can.
  std::function<bool()> interrotto = {};
};

// The same within a session.
struct ContestoGestione : AmbienteGestione {
  DatabaseHost* database = nullptr;
  Valuta valuta = {};
  std::string titolo = {};  // of every box
  std::int32_t contestoGuida = 0;
  bool scrivibile = false;  // the database was created by this program

  Connection& connessione() const { return database->ownConnection(); }
  schede::Registrazione registrazione() const { return {*database, factory}; }
  // The answer by default writes and deletes nothing.
  bool conferma(const std::string& domanda) const {
    return frontEnd.messageBox({domanda, titolo, BoxIcon::Question, BoxButtons::YesNo, Answer::No}) ==
           Answer::Yes;
  }
  void avvisa(const std::string& testo) const { utilita.message(testo, titolo, BoxIcon::Warning); }
};

// Said by every form where the database is not the program's own.
inline constexpr const char* kSoloLettura =
    "Questo database non è stato creato da questa procedura: i suoi dati si possono solo consultare. "
    "Si cambiano nel programma che li tiene.";

}  // namespace cu
