#include "riscontro/tabellone.h"

#include <set>
#include <utility>

#include "base/text.h"
#include "base/windows1252.h"
#include "data/recordset.h"
#include "modello/regole.h"
#include "modello/riconoscimento.h"
#include "riscontro/stato.h"
#include "telematic/attestazione.h"
#include "telematic/controlli.h"
#include "worklist/tabella_lavoro.h"

namespace cu::riscontro {
namespace {

void conta(const VoceStato& voce, RigaTabellone& riga) {
  if (voce.operazione == Operazione::Sostituzione || voce.operazione == Operazione::Annullamento) {
    ++riga.correzioni;
  }
  if (!voce.conto) return;
  ++riga.conti;
  const bool nuova = voce.operazione == Operazione::Nuova;
  if (nuova) ++riga.daInviare[voce.causale];
  if (voce.stato.empty()) return;
  ++riga.scritte;
  if (voce.accettata) {
    ++riga.inviate;
    ++riga.accettate;
    return;
  }
  if (voce.stato == nome(Stato::Scritta)) return;
  ++riga.inviate;
  if (nuova && voce.stato == nome(Stato::Scartata)) ++riga.scartate;
}

// The form in which the year was filed last: no profile says it here.
const modello::Modello& modelloPresentato(Registro& registro, const AnnoAzienda& anno) {
  const modello::Modello* ultimo = &modello::kModello;
  for (const Invio& invio : registro.invii(anno.idAzienda)) {
    if (invio.anno == anno.anno) ultimo = &modello::modelloDelRecordB(anno.anno, a1252(invio.recordB));
  }
  return *ultimo;
}

// What the accounts have, and the form of the year does not.
std::size_t nonAttestati(Connection& connessione, const Conversioni& utilita, const AnnoAzienda& anno,
                         const modello::Modello& modello) {
  if (!modello::codiceDaScegliere(anno.anno, modello)) return 0;
  Filtri filtri;
  filtri.anno = fromInteger(anno.anno);
  return attesta(connessione, utilita,
                 {.tabella = "Compensi",
                  .modello = modello,
                  .righe = fnSelectCompensi(filtri, anno.idAzienda, utilita)})
      .rifiutati.size();
}

}  // namespace

std::size_t RigaTabellone::nuove() const {
  std::size_t somma = 0;
  for (const auto& [causale, quante] : daInviare) somma += quante;
  return somma;
}

std::vector<AnnoAzienda> anniTabellone(Registro& registro, std::int32_t idAzienda) {
  std::set<std::pair<std::int32_t, std::int32_t>> trovati;  // the year with its sign changed, the company
  const std::string suoi = idAzienda == 0 ? "" : " WHERE IDAzienda = " + fromInteger(idAzienda);
  const auto leggi = [&](const std::string& tabella) {
    Recordset righe;
    righe.Open(registro.connessione(), "SELECT DISTINCT IDAzienda, Anno FROM " + tabella + suoi);
    for (; !righe.Eof(); righe.MoveNext()) {
      trovati.emplace(-static_cast<std::int32_t>(righe.Get(1).integer()),
                      static_cast<std::int32_t>(righe.Get(0).integer()));
    }
  };
  leggi("ContoIndividuale");
  if (registro.presente()) leggi("CuInvio");
  std::vector<AnnoAzienda> anni;
  anni.reserve(trovati.size());
  for (const auto& [anno, azienda] : trovati) anni.push_back({azienda, -anno});
  return anni;
}

RigaTabellone rigaTabellone(Registro& registro, const AnnoAzienda& anno, const Conversioni& utilita,
                            const std::function<void()>& letti, const modello::Modello& modello) {
  RigaTabellone riga;
  riga.idAzienda = anno.idAzienda;
  riga.anno = anno.anno;
  const bool presente = registro.presente();
  const Esercizio esercizio{anno.idAzienda, anno.anno,
                            presente ? modelloPresentato(registro, anno) : modello::kModello};
  if (presente) {
    for (const VoceStato& voce : statoEsercizio(registro, esercizio, utilita, [&](std::size_t) {
           if (letti) letti();
         })) {
      conta(voce, riga);
    }
  } else {
    leggiConti(registro.connessione(), esercizio, utilita, [&](const Conto& conto) {
      ++riga.conti;
      ++riga.daInviare[conto.certificato.causale()];
      if (letti) letti();
    });
  }
  Controlli controlli(registro.connessione(), utilita);
  controlli.eseguiSuiConti(anno.idAzienda, anno.anno);
  riga.mancanti = controlli.mancanti().size() + nonAttestati(registro.connessione(), utilita, anno, modello);
  return riga;
}

}  // namespace cu::riscontro
