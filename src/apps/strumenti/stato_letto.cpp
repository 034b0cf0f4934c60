#include "apps/strumenti/stato_letto.h"

#include <algorithm>
#include <functional>
#include <set>

#include "apps/comune/connessioni.h"
#include "apps/comune/modello_del_profilo.h"
#include "apps/comune/terminale.h"
#include "apps/esame/registro_del_profilo.h"
#include "data/recordset.h"
#include "fornitura/carico.h"
#include "suite/orologio.h"
#include "suite/utilita.h"

namespace cu::strumenti {
namespace {

std::vector<std::int32_t> anniDi(riscontro::Registro& registro, std::int32_t idAzienda) {
  std::set<std::int32_t, std::greater<>> anni;
  Recordset righe;
  righe.Open(registro.connessione(), fornitura::fnOrigineAnni(idAzienda, true));
  for (; !righe.Eof(); righe.MoveNext()) anni.insert(static_cast<std::int32_t>(righe.Get(0).integer()));
  for (const riscontro::Invio& invio : registro.invii(idAzienda)) anni.insert(invio.anno);
  return {anni.begin(), anni.end()};
}

VoceMostrata mostrata(riscontro::VoceStato voce) {
  VoceMostrata fatta{std::move(voce.percipiente),
                     std::move(voce.nome),
                     std::move(voce.causale),
                     voce.stato.empty() ? "mai scritta" : std::move(voce.stato),
                     voce.operazione,
                     std::move(voce.motivo),
                     {},
                     {},
                     std::move(voce.caselle)};
  if (voce.accettata) {
    fatta.protocollo = voce.accettata->protocollo;
    fatta.progressivo = voce.accettata->progressivo;
  }
  return fatta;
}

}  // namespace

StatoLetto leggiStato(const Profilo& profilo, std::optional<std::int32_t> anno,
                      const std::function<void(const char* che, std::size_t fatti)>& avanza) {
  StatoLetto letto;
  const auto connessione = apriConnessione(profilo.database);
  riscontro::Registro registro(*connessione);
  letto.tabelle = registro.presente();
  if (!letto.tabelle) return letto;
  const std::int32_t azienda = profilo.sessione.azienda;
  letto.anni = anniDi(registro, azienda);
  if (letto.anni.empty()) return letto;
  const bool noto = anno && std::find(letto.anni.begin(), letto.anni.end(), *anno) != letto.anni.end();
  letto.anno = noto ? *anno : letto.anni.front();
  Terminale terminale;
  const UtilitaItaliana utilita(terminale, profilo.documenti);
  if (avanza) avanza("Lettura degli invii", 0);
  const auto letti = [&avanza](std::size_t conti) {
    if (avanza) avanza("Lettura dei conti", conti);
  };
  for (riscontro::VoceStato& voce :
       riscontro::statoEsercizio(registro, {azienda, letto.anno, modelloDi(profilo)}, utilita, letti)) {
    ++letto.quante.at(static_cast<std::size_t>(voce.operazione));
    letto.voci.push_back(mostrata(std::move(voce)));
  }
  return letto;
}

riscontro::PianoRicevuta pianoRicevuta(const Profilo& profilo,
                                       const std::vector<riscontro::RigaRicevuta>& righe) {
  RegistroDelProfilo registro(profilo);
  return riscontro::pianifica(*registro, profilo.sessione.azienda, righe);
}

bool registraRicevuta(const Profilo& profilo, const std::vector<riscontro::RigaRicevuta>& righe) {
  RegistroDelProfilo registro(profilo);
  const riscontro::PianoRicevuta piano = riscontro::pianifica(*registro, profilo.sessione.azienda, righe);
  if (!piano.applicabile()) return false;
  riscontro::applica(*registro, piano, orologio(profilo)->today());
  return true;
}

std::string detto(riscontro::Operazione operazione) {
  switch (operazione) {
    case riscontro::Operazione::Nuova:
      return "+ nuova";
    case riscontro::Operazione::Sostituzione:
      return "≠ sostituzione";
    case riscontro::Operazione::Annullamento:
      return "− annullamento";
    case riscontro::Operazione::Attesa:
      return "… attesa";
    case riscontro::Operazione::Nessuna:
      break;
  }
  return "✓ nessuna";
}

std::string detto(riscontro::EsitoRiga esito) {
  switch (esito) {
    case riscontro::EsitoRiga::Nuovo:
      return "+ nuovo";
    case riscontro::EsitoRiga::Uguale:
      return "= già registrato";
    case riscontro::EsitoRiga::DaDecidere:
      return "? da decidere";
    case riscontro::EsitoRiga::Errore:
      break;
  }
  return "✖ errore";
}

}  // namespace cu::strumenti
