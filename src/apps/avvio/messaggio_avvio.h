#pragma once

#include <QString>
#include <exception>

namespace cu {

// What a person reads who has started the program and gets no window: what has happened and what to do about
// it; and the detail for whoever has installed the program.
struct MessaggioAvvio {
  QString testo;
  QString dettaglio;
};
MessaggioAvvio messaggioAvvio(const std::exception& errore);

// Why a database cannot be used, where another one can be chosen at once; `nome` is what the person calls it.
QString avvisoDatabase(const QString& nome, const std::exception& errore);

// In a box where there is a screen, and on standard error.
void mostraErroreAvvio(const std::exception& errore);

}  // namespace cu
