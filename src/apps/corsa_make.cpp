#include "corsa_make.h"

#include "apps/comune/sessione_comando.h"
#include "base/text.h"
#include "data/recordset.h"
#include "esito.h"
#include "fornitura/scrittura.h"
#include "host/testi_programma.h"
#include "stampe.h"
#include "telematic/controlli.h"

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

// The wizard does not say why a file cannot be written: what its folder shows.
std::string motivoDellaCartella(const fornitura::Intorno& intorno, const fornitura::RichiestaCU& richiesta) {
  FileSystem& files = intorno.files;
  Recordset azienda;
  azienda.Open(intorno.ambito.database->ownConnection(), Controlli::fnQueryAzienda(intorno.ambito.idAzienda));
  if (azienda.Eof()) return {};
  const std::string file =
      files.join(richiesta.cartella,
                 fornitura::fnNomeFile(intorno.utilita.toText(azienda.Get("CodFisc")), richiesta.anno));
  if (!files.folderExists(richiesta.cartella)) return {};
  if (files.folderExists(file)) return file + " è una cartella";
  if (files.fileExists(file)) return files.canWrite(file) ? "" : "il file " + file + " non si può sostituire";
  return files.canWriteIn(richiesta.cartella)
             ? ""
             : "nella cartella " + richiesta.cartella + " non si può scrivere";
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
    const fornitura::RichiestaCU richiesta =
        completaCorsa(opzioni, sessione, surroundings, terminale, ricorda);
    const auto esito = [&] {
      Compensi compensi(surroundings.utilita(), terminale);
      return fornitura::creaCU(sessione.intorno(), compensi, richiesta);
    }();
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
    if (!corsa.riuscita && corsa.mancanti.empty() && terminale.messaggi.empty() && terminale.avvisi.empty()) {
      corsa.motivo = motivoDellaCartella(sessione.intorno(), richiesta);
    }
  });
  return corsa;
}

}  // namespace cu
