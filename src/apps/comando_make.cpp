#include <iostream>

#include "apps/comune/modello_del_profilo.h"
#include "apps/comune/registro_programma.h"
#include "apps/comune/riepilogo_file.h"
#include "apps/esame/testo_rilievi.h"
#include "comandi.h"
#include "corsa_make.h"
#include "esito.h"
#include "telematic/lettura.h"

namespace cu {
namespace {

void stampaRecord(const std::string& riga, std::int32_t anno, const modello::Modello& modello) {
  std::cout << "Record " << riga.front() << ":\n";
  for (const std::string& campo : telematico::decodifica(riga, anno, modello))
    std::cout << "  " << campo << '\n';
}

void stampaFile(const std::string& percorso, std::int32_t anno, const modello::Modello& modello) {
  const RiepilogoFile riepilogo = riepiloga(percorso);
  std::cout << "File telematico: " << percorso << '\n';
  const auto certificazioni = riepilogo.record.find('D');
  std::cout << "Certificazioni: " << (certificazioni == riepilogo.record.end() ? 0 : certificazioni->second)
            << '\n';
  std::cout << "Record:";
  for (const auto& [tipo, quanti] : riepilogo.record) std::cout << ' ' << tipo << '=' << quanti;
  std::cout << "\nByte: " << riepilogo.byte << '\n';
  for (const std::string& riga : riepilogo.prime) stampaRecord(riga, anno, modello);
}

// What the reader finds in the file that was just written.
void stampaControllo(const std::string& percorso, const DopoScrittura& dopo) {
  if (!dopo.guasto.empty()) std::cerr << percorso << ": " << dopo.guasto << '\n';
  scriviRilievi(percorso, dopo.rilievi, std::cout);
  std::cout << "Controllo: " << dettoConteggio(dopo.rilievi) << '\n';
}

}  // namespace

int comandoMake(const OpzioniMake& opzioni) {
  if (opzioni.aziende) return comandoMakeAziende(opzioni);
  const Profilo profilo = leggiProfiloConRegistro(opzioni.profilo);
  Terminale terminale;
  terminale.passaAvvisi = opzioni.passaAvvisi;
  const CorsaMake corsa = eseguiMake(profilo, opzioni, terminale, true);
  scriviAvvisi(terminale);
  scriviMessaggi(terminale);
  scriviRegistri(terminale);
  if (!terminale.registri.empty()) {
    std::cerr << (fornitura::soloNonAttestati(corsa.mancanti) ? "Alcuni dati non sono del modello dell'anno"
                                                              : "Mancano dei dati")
              << ": il file telematico non è stato creato.\n";
  }
  if (!corsa.riuscita) {
    const bool detto =
        !terminale.messaggi.empty() || !terminale.registri.empty() || !terminale.avvisi.empty();
    if (!detto) {
      std::cerr << "La procedura si è fermata prima della fine" << (corsa.motivo.empty() ? "" : ": ")
                << corsa.motivo << ".\n";
    }
    return kRifiutato;
  }
  if (corsa.scritto->certificazioni == 0) {
    std::cerr << "La selezione non dà certificazioni: nessun file telematico è stato creato.\n";
    return kRifiutato;
  }
  if (!corsa.dopo.letto) {
    std::cerr << "Il file scritto non si può rileggere: " << corsa.dopo.guasto << '\n';
    scriviStampe(terminale, profilo);
    return kRifiutato;
  }
  stampaFile(corsa.scritto->percorso, corsa.anno, modelloDi(profilo));
  stampaControllo(corsa.scritto->percorso, corsa.dopo);
  scriviStampe(terminale, profilo);
  return terminale.messaggi.empty() ? kRiuscito : kRifiutato;
}

}  // namespace cu
