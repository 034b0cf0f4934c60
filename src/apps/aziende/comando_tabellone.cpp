#include "apps/aziende/comando_tabellone.h"

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>

#include "apps/aziende/tabellone_letto.h"
#include "apps/comune/codici_uscita.h"
#include "apps/comune/connessioni.h"
#include "apps/comune/modello_del_profilo.h"
#include "apps/comune/registro_programma.h"
#include "apps/comune/tavola.h"
#include "apps/esame/json_lettura.h"
#include "base/text.h"
#include "suite/orologio.h"

namespace cu {
namespace {

using Json = nlohmann::ordered_json;

Json jsonTermine(const riscontro::Termine& termine, Date oggi) {
  return {{"due", termine.entro.toIso()}, {"condition", termine.condizione},
          {"reasons", termine.causali},   {"certificates", termine.certificazioni},
          {"past", termine.entro < oggi}, {"source", termine.fonte}};
}

Json jsonVoce(const std::vector<DatabaseScelto>& database, const VoceTabellone& voce, Date oggi) {
  const riscontro::RigaTabellone& riga = voce.riga;
  Json termini = Json::array();
  for (const riscontro::Termine& uno : voce.termini.tutti) termini.push_back(jsonTermine(uno, oggi));
  return {{"database", database[voce.database].nome},
          {"company", voce.azienda.azienda},
          {"name", voce.azienda.nome},
          {"fiscalCode", voce.azienda.codiceFiscale},
          {"year", riga.anno},
          {"lines", riga.conti},
          {"missing", riga.mancanti},
          {"written", riga.scritte},
          {"sent", riga.inviate},
          {"accepted", riga.accettate},
          {"rejected", riga.scartate},
          {"toSend", riga.nuove()},
          {"corrections", riga.correzioni},
          {"late", voce.termini.inRitardo},
          {"perhapsLate", voce.termini.forseInRitardo},
          {"deadlines", termini}};
}

std::string numero(std::size_t quante) { return fromInteger(static_cast<std::int64_t>(quante)); }

// What is due next, and what is late.
std::string dettaScadenza(const VoceTabellone& voce, Date oggi) {
  const riscontro::Termini& termini = voce.termini;
  std::string testo;
  if (termini.inRitardo > 0) testo = "in ritardo " + numero(termini.inRitardo);
  if (termini.forseInRitardo > 0) {
    testo += (testo.empty() ? "" : ", ") + std::string("forse in ritardo ") + numero(termini.forseInRitardo);
  }
  const auto prossimo = std::find_if(termini.tutti.begin(), termini.tutti.end(),
                                     [oggi](const riscontro::Termine& uno) { return !(uno.entro < oggi); });
  if (prossimo == termini.tutti.end()) return testo;
  return testo + (testo.empty() ? "" : ", ") + "entro il " + prossimo->entro.toItalian() +
         (prossimo->condizione.empty() ? "" : " " + prossimo->condizione);
}

void scriviTavola(const std::vector<DatabaseScelto>& database, const std::vector<VoceTabellone>& voci,
                  Date oggi) {
  std::vector<std::vector<std::string>> tavola = {{"Azienda", "Nome", "Codice fiscale", "Anno", "Conti",
                                                   "Dati mancanti", "Scritte", "Inviate", "Accettate",
                                                   "Scartate", "Da inviare", "Correzioni", "Scadenza"}};
  const bool piu = database.size() > 1;
  if (piu) tavola.front().insert(tavola.front().begin(), "Database");
  for (const VoceTabellone& voce : voci) {
    const riscontro::RigaTabellone& riga = voce.riga;
    std::vector<std::string> celle = {fromInteger(voce.azienda.azienda),
                                      voce.azienda.nome,
                                      voce.azienda.codiceFiscale,
                                      fromInteger(riga.anno),
                                      numero(riga.conti),
                                      numero(riga.mancanti),
                                      numero(riga.scritte),
                                      numero(riga.inviate),
                                      numero(riga.accettate),
                                      numero(riga.scartate),
                                      numero(riga.nuove()),
                                      numero(riga.correzioni),
                                      dettaScadenza(voce, oggi)};
    if (piu) celle.insert(celle.begin(), database[voce.database].nome);
    tavola.push_back(std::move(celle));
  }
  stampaTavola(tavola, std::cout);
}

void scriviSomma(const std::vector<VoceTabellone>& voci) {
  std::size_t conti = 0;
  std::size_t nuove = 0;
  std::size_t inRitardo = 0;
  for (const VoceTabellone& voce : voci) {
    conti += voce.riga.conti;
    nuove += voce.riga.nuove();
    inRitardo += voce.termini.inRitardo;
  }
  std::cout << "Righe " << voci.size() << ", certificazioni " << conti << ", da inviare " << nuove
            << ", in ritardo " << inRitardo << ".\n";
}

}  // namespace

int comandoTabellone(const OpzioniTabellone& opzioni) {
  const Profilo profilo = leggiProfiloConRegistro(opzioni.profilo);
  const auto indicati = databaseIndicati(opzioni.aziende, profilo);
  if (!indicati) return kUsoSbagliato;
  int stato = kRiuscito;
  const std::vector<DatabaseScelto> database =
      leggiDatabase(*indicati, &apriPerLeggere, [&](const std::string& testo) {
        stato = kRifiutato;
        std::cerr << testo << '\n';
      });
  const Date oggi = orologio(profilo)->today();
  std::vector<VoceTabellone> voci;
  try {
    voci = leggiTabellone(database, {.richieste = opzioni.aziende.richieste,
                                     .anno = opzioni.anno,
                                     .oggi = oggi,
                                     .modello = modelloDi(profilo)});
  } catch (const SceltaErrata& errore) {
    std::cerr << errore.what() << '\n';
    return kRifiutato;
  }
  if (opzioni.json) {
    Json lista = Json::array();
    for (const VoceTabellone& voce : voci) lista.push_back(jsonVoce(database, voce, oggi));
    std::cout << lista.dump(-1, ' ', false, kNonUtf8) << '\n';
    return stato;
  }
  for (std::size_t i = 0; i < database.size(); ++i) {
    const bool senza = std::any_of(voci.begin(), voci.end(), [i](const VoceTabellone& voce) {
      return voce.database == i && !voce.registro;
    });
    if (senza) {
      std::cerr << "Il database " << database[i].nome
                << " non ha le tabelle per seguire gli invii: nulla vi risulta scritto. Aggiungerle con "
                   "«cuctl upgrade --database URL».\n";
    }
  }
  scriviTavola(database, voci, oggi);
  scriviSomma(voci);
  return stato;
}

}  // namespace cu
