#pragma once

#include <QString>
#include <exception>

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

// Shows it in a box where there is a screen, and writes it to standard error.
void mostraErroreAvvio(const std::exception& errore);

}  // namespace cu
