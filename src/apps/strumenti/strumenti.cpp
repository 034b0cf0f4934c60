#include "apps/strumenti/strumenti.h"

#include "apps/strumenti/finestra_confronto.h"
#include "apps/strumenti/finestra_file.h"
#include "apps/strumenti/finestra_stato.h"
#include "apps/strumenti/finestra_tabellone.h"

namespace cu::strumenti {
namespace {

void inVista(Finestra* finestra) {
  finestra->show();
  finestra->raise();
  finestra->activateWindow();
}

}  // namespace

void guida(const QString& cartella) { Finestra::guida(cartella); }

void apriFile(const QString& percorso, const std::optional<Profilo>& profilo) {
  inVista(new FinestraFile(percorso, profilo));
}

void apriConfronto(const QString& vecchio, const QString& nuovo) {
  inVista(new FinestraConfronto(vecchio, nuovo));
}

void apriConfrontoConConti(const QString& percorso, const Profilo& profilo) {
  inVista(new FinestraConfronto(percorso, profilo));
}

void apriStato(const Profilo& profilo) { inVista(new FinestraStato(profilo)); }

void apriTabellone(const Profilo& profilo) { inVista(new FinestraTabellone(profilo)); }

bool aperti() { return Finestra::aperte(); }

}  // namespace cu::strumenti
