#include <iostream>

#include "apps/comune/registro_programma.h"
#include "apps/comune/sessione_comando.h"
#include "comandi.h"
#include "esito.h"
#include "host/testi_programma.h"
#include "stampe.h"

namespace cu {
namespace {

fornitura::RichiestaReport completaStampa(const OpzioniPrint& opzioni, const Surroundings& surroundings,
                                          Terminale& terminale) {
  const bool conti = opzioni.report == kStampaConti;
  fornitura::RichiestaReport richiesta = opzioni.richiesta;
  richiesta.modo = conti ? ModoCorsa::ContiIndividuali : ModoCorsa::Certificazione;
  richiesta.tipoOggetto = conti ? fnModoContiIndividuali() : fnModoCertificazione();
  for (const ReportInfo& report : surroundings.stampe().reports(richiesta.tipoOggetto)) {
    if (report.name == opzioni.report) richiesta.report = report;
  }
  richiesta.guasto = [&terminale](const std::string& testo) { terminale.messaggi.push_back(testo); };
  return richiesta;
}

}  // namespace

int comandoPrint(const OpzioniPrint& opzioni) {
  const Profilo profilo = leggiProfiloConRegistro(opzioni.profilo);
  Terminale terminale;
  terminale.fileDaSalvare = opzioni.file;
  Surroundings surroundings(profilo, terminale, impaginatoreDelProgramma);
  SessioneComando sessione(surroundings, terminale);
  sessione.esegui([&] {
    const auto esito =
        fornitura::stampaReport(sessione.intorno(), completaStampa(opzioni, surroundings, terminale));
    scriviRifiuti(esito.refusals, terminale);
  });

  scriviMessaggi(terminale);
  scriviStampe(terminale, profilo);
  if (!terminale.stampe.empty() && terminale.messaggi.empty()) return kRiuscito;
  if (terminale.messaggi.empty()) std::cerr << "La procedura si è fermata prima della fine.\n";
  return kRifiutato;
}

}  // namespace cu
