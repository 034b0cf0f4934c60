#include <iostream>
#include <vector>

#include "apps/comune/riepilogo_file.h"
#include "apps/comune/sessione_comando.h"
#include "apps/esame/dopo_scrittura.h"
#include "apps/esame/testo_rilievi.h"
#include "base/text.h"
#include "comandi.h"
#include "esito.h"
#include "host/testi_programma.h"
#include "stampe.h"
#include "telematic/lettura.h"

namespace cu {
namespace {

void stampaRecord(const std::string& riga, std::int32_t anno) {
  std::cout << "Record " << riga.front() << ":\n";
  for (const std::string& campo : telematico::decodifica(riga, anno)) std::cout << "  " << campo << '\n';
}

void stampaFile(const std::string& percorso, std::int32_t anno) {
  const RiepilogoFile riepilogo = riepiloga(percorso);
  std::cout << "File telematico: " << percorso << '\n';
  const auto certificazioni = riepilogo.record.find('D');
  std::cout << "Certificazioni: " << (certificazioni == riepilogo.record.end() ? 0 : certificazioni->second)
            << '\n';
  std::cout << "Record:";
  for (const auto& [tipo, quanti] : riepilogo.record) std::cout << ' ' << tipo << '=' << quanti;
  std::cout << "\nByte: " << riepilogo.byte << '\n';
  for (const std::string& riga : riepilogo.prime) stampaRecord(riga, anno);
}

fornitura::RichiestaCU completaCorsa(const OpzioniMake& opzioni, SessioneComando& sessione,
                                     Surroundings& surroundings, Terminale& terminale) {
  fornitura::RichiestaCU richiesta = opzioni.richiesta;
  if (richiesta.cartella.empty()) richiesta.cartella = sessione.cartella;
  richiesta.cartellaDocumenti = sessione.testi().text(1264);
  const std::vector<ReportInfo> moduli = surroundings.stampe().reports(fnModoCU());
  if (!moduli.empty()) richiesta.modulo = moduli.front();
  richiesta.prosegue = [&terminale](const Finding& avviso) { return terminale.conferma(avviso.text); };
  richiesta.guasto = [&terminale](const std::string& testo) { terminale.messaggi.push_back(testo); };
  richiesta.cartellaScelta = [&sessione](const std::string& cartella) { sessione.cartella = cartella; };
  return richiesta;
}

// What the reader finds in the file that was just written.
void stampaControllo(const std::string& percorso, const DopoScrittura& dopo) {
  if (!dopo.guasto.empty()) std::cerr << percorso << ": " << dopo.guasto << '\n';
  scriviRilievi(percorso, dopo.rilievi, std::cout);
  std::cout << "Controllo: " << dettoConteggio(dopo.rilievi) << '\n';
}

}  // namespace

int comandoMake(const OpzioniMake& opzioni) {
  const Profilo profilo = leggiProfilo(opzioni.profilo);
  Terminale terminale;
  terminale.passaAvvisi = opzioni.passaAvvisi;
  Surroundings surroundings(profilo, terminale, impaginatoreDelProgramma);
  SessioneComando sessione(surroundings, terminale);
  std::optional<fornitura::FileScritto> scritto;
  DopoScrittura dopo;
  bool riuscito = false;
  sessione.esegui([&] {
    Compensi compensi(surroundings.utilita(), terminale);
    const auto esito = fornitura::creaCU(sessione.intorno(), compensi,
                                         completaCorsa(opzioni, sessione, surroundings, terminale));
    if (esito->mancanti.empty()) {
      scriviRifiuti(esito.refusals, terminale);
    } else {
      registra(esito->mancanti, surroundings.factory());
    }
    scritto = esito->file;
    if (scritto && scritto->certificazioni > 0) {
      const fornitura::Intorno intorno = sessione.intorno();
      dopo = dopoScrittura(
          intorno.ambito.database->ownConnection(), surroundings.clock(),
          {scritto->percorso, opzioni.richiesta.tipo,
           static_cast<std::int32_t>(leadingInteger(opzioni.richiesta.anno)), profilo.sessione.azienda});
    }
    riuscito = static_cast<bool>(esito);
  });

  scriviAvvisi(terminale);
  scriviMessaggi(terminale);
  scriviRegistri(terminale);
  if (!terminale.registri.empty()) std::cerr << "Mancano dei dati: il file telematico non è stato creato.\n";
  if (!riuscito) {
    const bool detto =
        !terminale.messaggi.empty() || !terminale.registri.empty() || !terminale.avvisi.empty();
    if (!detto) std::cerr << "La procedura si è fermata prima della fine.\n";
    return kRifiutato;
  }
  if (scritto->certificazioni == 0) {
    std::cerr << "La selezione non dà certificazioni: nessun file telematico è stato creato.\n";
    return kRifiutato;
  }
  stampaFile(scritto->percorso, static_cast<std::int32_t>(leadingInteger(opzioni.richiesta.anno)));
  stampaControllo(scritto->percorso, dopo);
  scriviStampe(terminale, profilo);
  return terminale.messaggi.empty() ? kRiuscito : kRifiutato;
}

}  // namespace cu
