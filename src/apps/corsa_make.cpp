#include "corsa_make.h"

#include "apps/comune/sessione_comando.h"
#include "base/text.h"
#include "esito.h"
#include "host/testi_programma.h"
#include "stampe.h"

namespace cu {
namespace {

fornitura::RichiestaCU completaCorsa(const OpzioniMake& opzioni, SessioneComando& sessione,
                                     Surroundings& surroundings, Terminale& terminale, bool ricorda) {
  fornitura::RichiestaCU richiesta = opzioni.richiesta;
  if (richiesta.cartella.empty()) richiesta.cartella = sessione.cartella;
  richiesta.cartellaDocumenti = sessione.testi().text(1264);
  const std::vector<ReportInfo> moduli = surroundings.stampe().reports(fnModoCU());
  if (!moduli.empty()) richiesta.modulo = moduli.front();
  richiesta.prosegue = [&terminale](const Finding& avviso) { return terminale.conferma(avviso.text); };
  richiesta.guasto = [&terminale](const std::string& testo) { terminale.messaggi.push_back(testo); };
  if (ricorda) {
    richiesta.cartellaScelta = [&sessione](const std::string& cartella) { sessione.cartella = cartella; };
  }
  return richiesta;
}

}  // namespace

CorsaMake eseguiMake(const Profilo& profilo, const OpzioniMake& opzioni, Terminale& terminale, bool ricorda) {
  CorsaMake corsa;
  corsa.anno = static_cast<std::int32_t>(leadingInteger(opzioni.richiesta.anno));
  // Of several companies each has one processor.
  Surroundings surroundings(profilo, terminale, impaginatoreDelProgramma,
                            opzioni.aziende ? std::optional(1) : opzioni.lavori);
  SessioneComando sessione(surroundings, terminale);
  sessione.esegui([&] {
    Compensi compensi(surroundings.utilita(), terminale);
    const auto esito = fornitura::creaCU(sessione.intorno(), compensi,
                                         completaCorsa(opzioni, sessione, surroundings, terminale, ricorda));
    corsa.mancanti = esito->mancanti;
    if (esito->mancanti.empty()) {
      scriviRifiuti(esito.refusals, terminale);
    } else {
      registra(esito->mancanti, surroundings.factory());
    }
    corsa.scritto = esito->file;
    if (corsa.scritto && corsa.scritto->certificazioni > 0) {
      const fornitura::Intorno intorno = sessione.intorno();
      corsa.dopo = dopoScrittura(intorno.ambito.database->ownConnection(), surroundings.clock(),
                                 {corsa.scritto->percorso, opzioni.richiesta.tipo, corsa.anno,
                                  profilo.sessione.azienda, nullptr, intorno.modello});
    }
    corsa.riuscita = static_cast<bool>(esito);
  });
  return corsa;
}

}  // namespace cu
