#include <iostream>

#include "apps/comune/impianto.h"
#include "automation/walker.h"
#include "comandi.h"
#include "esito.h"

namespace cu {

int comandoPrint(const OpzioniPrint& opzioni) {
  constexpr std::int32_t kModoConti = 246;
  constexpr std::int32_t kModoCertificazione = 247;
  Profilo profilo = leggiProfilo(opzioni.profilo);
  const bool conti = opzioni.richiesta.report == kStampaConti;
  profilo.sessione.processi = {{"Wizard stampa", conti ? kModoConti : kModoCertificazione}};
  Walker walker;
  Impianto impianto(profilo, walker);
  walker.runEvent([&] { impianto.programma().main(); });
  const bool riuscito = walker.shown != nullptr && walker.messages.empty() &&
                        stampaCompensi(*walker.shown, walker, opzioni.richiesta);
  if (walker.shown != nullptr) walker.runEvent([&] { walker.shown->close(); });

  scriviMessaggi(walker);
  scriviStampe(walker, profilo);
  if (riuscito && walker.messages.empty()) return kRiuscito;
  if (walker.messages.empty()) std::cerr << "La procedura si è fermata prima della fine.\n";
  return kRifiutato;
}

}  // namespace cu
