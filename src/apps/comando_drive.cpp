#include <iostream>

#include "apps/comune/impianto.h"
#include "apps/comune/impianto_gestione.h"
#include "apps/comune/registro_programma.h"
#include "automation/driver.h"
#include "comandi.h"
#include "stampe.h"
#include "suite/support_log.h"

namespace cu {
namespace {

// Records the numbers of the error boxes.
class Guida : public Driver {
 public:
  Guida() : Driver(std::cin, std::cout) {}
  void error(const Error& error) override {
    logFailure("messaggio", error);
    Driver::error(error);
  }
};

RunContext contesto(Globali& globali) {
  RunContext letto;
  letto.gIDFunzione = globali.gIDFunzione;
  letto.gAnno = globali.gAnno;
  letto.gTabellaLavoro = globali.gTabellaLavoro;
  letto.gTitolo = globali.gTitolo;
  letto.gChiaveImpostazioni = globali.gChiaveImpostazioni;
  letto.gDecimaliValuta = globali.gDecimaliValuta;
  letto.gSimboloValuta = globali.gSimboloValuta;
  letto.gSeparatoreDecimale = globali.gSeparatoreDecimale;
  letto.gSeparatoreMigliaia = globali.gSeparatoreMigliaia;
  try {
    letto.IDUtente = globali.gSessione->IDUtente();
    letto.IDAzienda = globali.gSessione->IDAzienda();
    letto.IDFiliale = globali.gSessione->IDFiliale();
  } catch (const Error&) {
    // The session could not be bound: there are no ids.
  }
  return letto;
}

RunContext contesto(Gestione& gestione) {
  const ContestoGestione& suo = gestione.contesto();
  RunContext letto;
  letto.gTitolo = suo.titolo;
  letto.gDecimaliValuta = suo.valuta.decimali;
  letto.gSimboloValuta = suo.valuta.simbolo;
  letto.gSeparatoreDecimale = suo.valuta.separatoreDecimale;
  letto.gSeparatoreMigliaia = suo.valuta.separatoreMigliaia;
  try {
    letto.IDUtente = gestione.sessione()->IDUtente();
    letto.IDAzienda = gestione.sessione()->IDAzienda();
    letto.IDFiliale = gestione.sessione()->IDFiliale();
  } catch (const Error&) {
    // The session could not be bound: there are no ids.
  }
  return letto;
}

int guidaGestione(const Profilo& profilo) {
  Guida driver;
  ImpiantoGestione impianto(profilo, driver);
  driver.setRunContext([&] { return contesto(impianto.gestione()); });
  const Driver::Outcome esito = driver.drive([&] { impianto.gestione().main(); });
  if (esito == Driver::Outcome::InputEnded) return kRiuscito;
  return esito == Driver::Outcome::EntryFailed || impianto.avvioRifiutato() ? kRifiutato : kRiuscito;
}

}  // namespace

int comandoDrive(const OpzioniDrive& opzioni) {
  const std::string& file = opzioni.profilo;
  const Profilo profilo = leggiProfiloConRegistro(file);
  if (opzioni.inizio == kInizioArchivi) return guidaGestione(profilo);
  Guida driver;
  Impianto impianto(profilo, driver, impaginatoreDelProgramma);
  driver.setRunContext([&] { return contesto(impianto.programma().globali()); });
  switch (driver.drive([&] { impianto.programma().main(); })) {
    case Driver::Outcome::EntryFailed:
      return kRifiutato;
    case Driver::Outcome::InputEnded:
      return kRiuscito;
    case Driver::Outcome::Ended:
      break;
  }
  if (impianto.avvioRifiutato()) return kRifiutato;
  if (profilo.sessione.processi.empty()) {
    std::cerr << file << ": session.processes non indica nessun processo: non c'è nulla da fare\n";
  }
  return kRiuscito;
}

}  // namespace cu
