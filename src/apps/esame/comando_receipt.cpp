#include <iostream>

#include "apps/comune/codici_uscita.h"
#include "apps/comune/file_letto.h"
#include "apps/comune/registro_programma.h"
#include "apps/esame/comandi_esame.h"
#include "apps/esame/registro_del_profilo.h"
#include "apps/esame/ricevuta_letta.h"
#include "suite/orologio.h"
#include "tabelle/errore.h"

namespace cu {
namespace {

using riscontro::EsitoRiga;
using riscontro::PianoRicevuta;
using riscontro::RigaPiano;
using riscontro::RigaRicevuta;

void scriviMessaggi(const std::string& file, const PianoRicevuta& piano) {
  for (const RigaPiano& riga : piano.righe) {
    if (riga.codice.empty()) continue;
    std::cerr << file << ", riga " << riga.letta.riga;
    if (!riga.colonna.empty()) std::cerr << ", colonna \"" << riga.colonna << "\"";
    std::cerr << ": " << riga.testo << " (" << riga.codice << ").\n";
  }
}

void scriviEsito(const PianoRicevuta& piano, bool applicato) {
  std::cout << (applicato ? "Ricevuta: " : "Prova: ") << piano.quanti(EsitoRiga::Nuovo) << " nuovi ("
            << piano.nuovi("accettata") << " accettate, " << piano.nuovi("scartata") << " scartate), "
            << piano.quanti(EsitoRiga::Uguale) << " uguali, " << piano.quanti(EsitoRiga::DaDecidere)
            << " da decidere, " << piano.quanti(EsitoRiga::Errore) << " errori."
            << (applicato ? "\n" : " Non è stato scritto nulla.\n");
  for (const std::int64_t id : piano.daSegnare) {
    const riscontro::Invio& invio = piano.invio(id);
    std::cout << "Invio " << invio.id << " (" << invio.nome << ", " << invio.anno << "): "
              << (applicato ? "segnato anche come inviato.\n" : "verrebbe segnato anche come inviato.\n");
  }
}

}  // namespace

int comandoReceipt(const OpzioniReceipt& opzioni) {
  const Profilo profilo = leggiProfiloConRegistro(opzioni.profilo);
  try {
    const std::vector<RigaRicevuta> righe = righeRicevuta(opzioni.tabella);
    RegistroDelProfilo registro(profilo);
    const PianoRicevuta piano = riscontro::pianifica(*registro, profilo.sessione.azienda, righe);
    scriviMessaggi(opzioni.tabella, piano);
    const bool applicabile = piano.applicabile();
    if (opzioni.applica && applicabile) riscontro::applica(*registro, piano, orologio(profilo)->today());
    scriviEsito(piano, opzioni.applica && applicabile);
    return applicabile ? kRiuscito : kRifiutato;
  } catch (const FileIlleggibile& errore) {
    std::cerr << errore.what() << '\n';
    return kUsoSbagliato;
  } catch (const tabelle::ErroreTabella& errore) {
    std::cerr << errore.description() << '\n';
    return kRifiutato;
  }
}

}  // namespace cu
