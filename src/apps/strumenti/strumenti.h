#pragma once

#include <QString>
#include <optional>

#include "suite/profilo.h"

// The windows for telematic files. Each is independent of the others and destroyed when it is closed.
namespace cu::strumenti {

// The folder of the user's guide, which F1 opens.
void guida(const QString& cartella);
// Without a profile the accounts are not known.
void apriFile(const QString& percorso, const std::optional<Profilo>& profilo);
void apriConfronto(const QString& vecchio, const QString& nuovo);
void apriConfrontoConConti(const QString& percorso, const Profilo& profilo);
void apriStato(const Profilo& profilo);
// The board of all companies of the profile's database.
void apriTabellone(const Profilo& profilo);
// Whether one of them is on the screen.
bool aperti();

}  // namespace cu::strumenti
