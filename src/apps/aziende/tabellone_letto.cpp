#include "apps/aziende/tabellone_letto.h"

#include <algorithm>
#include <map>
#include <memory>
#include <utility>

#include "apps/comune/connessioni.h"
#include "apps/comune/terminale.h"
#include "base/text.h"
#include "suite/utilita.h"

namespace cu {
namespace {

struct Lavoro {
  std::size_t database = 0;
  AziendaTrovata azienda;
  std::vector<riscontro::AnnoAzienda> anni;
};

// The years of each company that is asked for, in the order of the companies.
std::vector<Lavoro> lavori(const std::vector<DatabaseScelto>& database,
                           const std::vector<std::unique_ptr<Connection>>& connessioni,
                           const RichiestaTabellone& richiesta) {
  std::vector<Lavoro> tutti;
  const std::vector<AziendaScelta> scelte = scegliAziende(database, richiesta.richieste);
  for (std::size_t i = 0; i < database.size(); ++i) {
    if (!connessioni[i]) continue;
    riscontro::Registro registro(*connessioni[i]);
    std::map<std::int32_t, std::vector<riscontro::AnnoAzienda>> anni;
    for (const riscontro::AnnoAzienda& uno : riscontro::anniTabellone(registro, 0)) {
      if (!richiesta.anno || uno.anno == *richiesta.anno) anni[uno.idAzienda].push_back(uno);
    }
    for (const AziendaScelta& scelta : scelte) {
      if (scelta.database == i) tutti.push_back({i, scelta.azienda, anni[scelta.azienda.azienda]});
    }
  }
  return tutti;
}

}  // namespace

std::vector<VoceTabellone> leggiTabellone(const std::vector<DatabaseScelto>& database,
                                          const RichiestaTabellone& richiesta) {
  std::vector<std::unique_ptr<Connection>> connessioni;
  connessioni.reserve(database.size());
  // One without companies may be one that could not be opened.
  for (const DatabaseScelto& uno : database) {
    connessioni.push_back(uno.aziende.empty() ? nullptr : apriPerLeggere(uno.database));
  }
  const std::vector<Lavoro> tutti = lavori(database, connessioni, richiesta);
  std::size_t righe = 0;
  for (const Lavoro& lavoro : tutti) righe += lavoro.anni.size();
  const std::vector<riscontro::Scadenza> scadenze = riscontro::scadenze();
  Terminale terminale;
  const UtilitaItaliana utilita(terminale, "");
  std::vector<VoceTabellone> voci;
  const auto avanza = [&] {
    if (richiesta.avanza) richiesta.avanza(righe, voci.size());
  };
  for (const Lavoro& lavoro : tutti) {
    riscontro::Registro registro(*connessioni[lavoro.database]);
    const bool presente = registro.presente();
    for (const riscontro::AnnoAzienda& anno : lavoro.anni) {
      avanza();
      VoceTabellone voce{lavoro.database, lavoro.azienda, {}, {}, presente};
      voce.riga = riscontro::rigaTabellone(registro, anno, utilita, avanza, richiesta.modello);
      voce.termini = riscontro::termini(scadenze, anno.anno, voce.riga.daInviare, richiesta.oggi);
      voci.push_back(std::move(voce));
    }
  }
  avanza();
  return voci;
}

std::string dettiTermini(const riscontro::Termini& termini) {
  std::string testo;
  for (const riscontro::Termine& termine : termini.tutti) {
    testo += (testo.empty() ? "" : "; ") + termine.entro.toItalian();
    if (!termine.condizione.empty()) testo += " " + termine.condizione;
    testo += ": ";
    for (std::size_t i = 0; i < termine.causali.size(); ++i)
      testo += (i == 0 ? "" : ", ") + termine.causali[i];
    testo += " (" + fromInteger(static_cast<std::int64_t>(termine.certificazioni)) + ")";
  }
  return testo;
}

}  // namespace cu
