#include <filesystem>
#include <iostream>

#include "apps/esame/dopo_scrittura.h"
#include "apps/comune/tavola.h"
#include "apps/esame/testo_rilievi.h"
#include "apps/esame/registro_del_profilo.h"
#include "comandi.h"
#include "esito.h"
#include "riscontro/correzione.h"
#include "sessione_comando.h"

namespace cu {
namespace {

const char* detto(Comunicazione tipo) {
  switch (tipo) {
    case Comunicazione::Ordinaria:
      return "Certificazioni nuove";
    case Comunicazione::Annullamento:
      return "Annullamenti";
    case Comunicazione::Sostituzione:
    case Comunicazione::Nessuna:
      break;
  }
  return "Sostituzioni";
}

void stampaFile(const riscontro::FileCorretto& file, const DopoScrittura& dopo) {
  std::cout << detto(file.tipo) << ": " << file.percorso << " (" << file.certificazioni << ")\n";
  scriviRilievi(file.percorso, dopo.rilievi, std::cerr);
  if (!dopo.guasto.empty()) std::cerr << file.percorso << ": " << dopo.guasto << '\n';
}

}  // namespace

int comandoCorrect(const OpzioniCorrect& opzioni) {
  const Profilo profilo = leggiProfilo(opzioni.profilo);
  Terminale terminale;
  terminale.passaAvvisi = opzioni.passaAvvisi;
  Surroundings surroundings(profilo, terminale);
  SessioneComando sessione(surroundings, terminale);
  bool riuscito = false;
  std::size_t scritti = 0;
  sessione.esegui([&] {
    const fornitura::Intorno intorno = sessione.intorno();
    Connection& propria = intorno.ambito.database->ownConnection();
    riscontro::Registro registro(propria);
    if (!registro.presente()) throw SenzaRegistro();
    Compensi compensi(surroundings.utilita(), terminale);
    const auto esito = riscontro::scriviCorrezioni(
        intorno, compensi, registro,
        {.anno = opzioni.anno,
         .cartella = std::filesystem::absolute(opzioni.cartella).string(),
         .cartellaDocumenti = sessione.testi().text(1264),
         .firma = opzioni.firma.value_or(surroundings.clock().today()),
         .prosegue = [&terminale](const Finding& avviso) { return terminale.conferma(avviso.text); },
         .scritto =
             [&](const riscontro::FileCorretto& file) {
               stampaFile(file,
                          dopoScrittura(propria, surroundings.clock(),
                                        {file.percorso, file.tipo, opzioni.anno, profilo.sessione.azienda}));
             }});
    registra(esito->mancanti, surroundings.factory());
    if (esito->mancanti.empty()) scriviRifiuti(esito.refusals, terminale);
    scritti = esito->file.size();
    riuscito = static_cast<bool>(esito);
  });
  for (const Terminale::Avviso& avviso : terminale.avvisi) {
    std::cerr << righeDiTesto(avviso.testo)
              << (avviso.passato ? " Sì (--yes)\n" : " No (--yes per proseguire)\n");
  }
  scriviMessaggi(terminale);
  scriviRegistri(terminale);
  if (riuscito && scritti == 0) std::cout << "Nessuna certificazione è da inviare, sostituire o annullare.\n";
  return riuscito && terminale.messaggi.empty() ? kRiuscito : kRifiutato;
}

}  // namespace cu
