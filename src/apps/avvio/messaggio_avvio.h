#pragma once

#include <QString>
#include <exception>
#include <string>

#include "suite/profilo.h"

namespace cu {

// The message for a user who started the program and gets no window: what has happened and what to do; and
// the detail for the administrator.
struct MessaggioAvvio {
  QString testo;
  QString dettaglio;
};
MessaggioAvvio messaggioAvvio(const std::exception& errore);

// Why a database cannot be used, where another one can be chosen at once; `nome` is the user's name for it.
QString avvisoDatabase(const QString& nome, const std::exception& errore);

// A question before a second start; false where the user does not want it. Without a screen the text goes to
// standard error, and the answer is yes.
bool proseguiUgualmente(const QString& avviso);

// Offers to make a database that others can read its owner's alone, once for each. Without a screen it is a
// line on standard error.
void avvisaPermessi(const Profilo::Database& database);

// Tells that the log for support cannot be written: on standard error, and where there is a screen in a
// window that stops nothing. Called from any thread.
void avvisaRegistro(const std::string& avviso);

// Shows it in a box where there is a screen, and writes it to standard error.
void mostraErroreAvvio(const std::exception& errore);

}  // namespace cu
