#include "intake/conti_toccati.h"

#include <algorithm>
#include <string>
#include <utility>

#include "base/text.h"
#include "intake/riga_in_corso.h"
#include "schede/importi.h"

namespace cu::intake {
namespace {

using schede::Importi;
using schede::SchedaCompenso;

void somma(Importi& totale, const Importi& importi) {
  for (std::size_t i = 0; i < totale.size(); ++i) totale[i] = totale[i] + importi[i];
}
void sottrai(Importi& totale, const Importi& importi) {
  for (std::size_t i = 0; i < totale.size(); ++i) totale[i] = totale[i] - importi[i];
}

}  // namespace

bool scritta(const Piano& piano, const RigaPiano& riga) {
  return riga.stato == StatoRiga::Nuovo ||
         (riga.stato == StatoRiga::Diverso && piano.richiesta.diversi == SuDiversi::Aggiorna);
}

ChiaveConto ContiToccati::chiave(const SchedaCompenso& scheda) {
  return {scheda.idAnagrafica, scheda.idCausale, scheda.pagamento.year()};
}

const ContoLetto* ContiToccati::letto(const ChiaveConto& chiave) const {
  const auto suo = archivio_.conti.find(chiave);
  return suo == archivio_.conti.end() ? nullptr : &suo->second;
}

void ContiToccati::calcola() {
  raccogli();
  sommaEsistenti();
  for (auto& [chiave, conto] : conti_) corretti(chiave, conto);
  applicaRighe();
  for (const auto& [chiave, conto] : conti_) controlla(chiave, conto);
  scrivi();
}

void ContiToccati::raccogli() {
  for (std::size_t i = 0; i < piano_.righe.size(); ++i) {
    const RigaPiano& riga = piano_.righe[i];
    if (!scritta(piano_, riga)) continue;
    const Voce<SchedaCompenso>& voce = piano_.compensi[riga.voce];
    conti_[chiave(voce.dopo)].righe.push_back(i);
    if (voce.prima && chiave(*voce.prima) != chiave(voce.dopo))
      conti_[chiave(*voce.prima)].righe.push_back(i);
  }
}

void ContiToccati::sommaEsistenti() {
  if (conti_.empty()) return;
  for (const SchedaCompenso& compenso : archivio_.compensi) {
    const auto suo = conti_.find(chiave(compenso));
    if (suo == conti_.end()) continue;
    somma(suo->second.primaDiTutto, compenso.importi);
    ++suo->second.compensi;
  }
  for (auto& [chiave, conto] : conti_) conto.dopo = conto.primaDiTutto;
}

// The rebuild would give up what a person has corrected.
void ContiToccati::corretti(const ChiaveConto& chiave, Conto& conto) {
  const ContoLetto* const suo = letto(chiave);
  if (suo == nullptr || !suo->importi || *suo->importi == conto.primaDiTutto) return;
  std::erase_if(conto.righe, [&](std::size_t quale) {
    const auto presa = piano_.richiesta.decisioni.find(piano_.righe[quale].posizione);
    return presa != piano_.richiesta.decisioni.end() && presa->second.sovrascriviConto;
  });
  if (conto.righe.empty()) return;
  segnala(chiave, conto, Codice::A02,
          "gli importi del conto non sono la somma dei suoi compensi: sono stati corretti a mano", true);
  for (const std::size_t quale : conto.righe) piano_.righe[quale].stato = StatoRiga::DaDecidere;
}

void ContiToccati::applicaRighe() {
  for (auto& [chiave, conto] : conti_) {
    conto.righe.clear();
    const ContoLetto* const suo = letto(chiave);
    if (suo != nullptr) conto.codice = suo->idCodiceNonSoggette;
  }
  for (std::size_t i = 0; i < piano_.righe.size(); ++i) {
    const RigaPiano& riga = piano_.righe[i];
    if (!scritta(piano_, riga)) continue;
    const Voce<SchedaCompenso>& voce = piano_.compensi[riga.voce];
    if (voce.prima) {
      Conto& prima = conti_[chiave(*voce.prima)];
      sottrai(prima.dopo, voce.prima->importi);
      if (chiave(*voce.prima) != chiave(voce.dopo)) prima.righe.push_back(i);
    }
    Conto& conto = conti_[chiave(voce.dopo)];
    somma(conto.dopo, voce.dopo.importi);
    conto.righe.push_back(i);
    conto.aggiungeSomme =
        conto.aggiungeSomme || !voce.dopo.importi[posto(schede::Importo::SommeNonSoggette)].isZero();
    const std::optional<std::int32_t> codice = piano_.accantoCompensi[riga.voce].idCodiceNonSoggette;
    const bool qui = voce.prima && chiave(*voce.prima) == chiave(voce.dopo);
    // A payment that is new in the account has no code that it could empty.
    if (codice && (*codice != 0 || qui)) conto.codici.insert(*codice);
    if (voce.prima && (codice || !qui)) ++conti_[chiave(*voce.prima)].conCodice;
  }
  for (auto& [chiave, conto] : conti_) decidiCodice(conto);
}

// An account has one code. The one that it had goes with the last payment that rows leave it for.
void ContiToccati::decidiCodice(Conto& conto) {
  if (conto.codici.empty()) return;
  const bool svuota = conto.codici.erase(0) > 0;
  const bool resta = conto.compensi == 0 || conto.conCodice < conto.compensi;
  if (conto.codice != 0 && resta && !svuota) conto.codici.insert(conto.codice);
  conto.dueCodici = conto.codici.size() > 1;
  conto.codice = conto.codici.empty() ? 0 : *conto.codici.begin();
}

void ContiToccati::controlla(const ChiaveConto& chiave, const Conto& conto) {
  if (conto.righe.empty()) return;
  if (conto.dueCodici) {
    segnala(chiave, conto, Codice::A03,
            "il conto avrebbe due codici per le somme non soggette: le altre vanno in un modulo aggiuntivo",
            true);
  }
  const bool negativo =
      std::any_of(conto.dopo.begin(), conto.dopo.end(), [](Decimal uno) { return uno < Decimal(); });
  if (negativo) {
    segnala(chiave, conto, Codice::A01, "una somma del conto diventa negativa", true);
  } else if (const std::string oltre = schede::oltreIlCompenso(conto.dopo); !oltre.empty()) {
    segnala(chiave, conto, Codice::R13, "nel conto " + oltre, true);
  }
  const ContoLetto* const suo = letto(chiave);
  if (suo != nullptr && suo->moduliConSomme && conto.aggiungeSomme) {
    segnala(chiave, conto, Codice::A04,
            "i moduli aggiuntivi del conto hanno già somme non soggette: nel lordo si aggiungono a queste",
            false);
  }
}

void ContiToccati::segnala(const ChiaveConto& chiave, const Conto& conto, Codice codice,
                           const std::string& testo, bool sulleRighe) {
  const schede::SchedaPercipiente* const suo = piano_.percipiente(chiave.idAnagrafica);
  std::string quale = suo == nullptr ? std::string() : suo->codice + ", ";
  quale += "causale " + archivio_.elenchi.causali.codice(chiave.idCausale) + ", " + fromInteger(chiave.anno) +
           ": ";
  piano_.messaggi.push_back(messaggio(codice, quale + testo));
  if (!sulleRighe) return;
  for (const std::size_t riga : conto.righe) {
    piano_.righe[riga].messaggi.push_back(messaggio(codice, testo));
    if (voce(codice).gravita == Gravita::Errore) piano_.righe[riga].stato = StatoRiga::Errore;
  }
}

void ContiToccati::scrivi() {
  for (const auto& [chiave, conto] : conti_) {
    if (conto.righe.empty()) continue;
    ContoPiano scritto;
    scritto.idAnagrafica = chiave.idAnagrafica;
    scritto.idCausale = chiave.idCausale;
    scritto.anno = chiave.anno;
    const schede::SchedaPercipiente* const suo = piano_.percipiente(chiave.idAnagrafica);
    if (suo != nullptr) scritto.percipiente = suo->codice;
    scritto.causale = archivio_.elenchi.causali.codice(chiave.idCausale);
    if (const ContoLetto* const prima = letto(chiave)) {
      scritto.prima = prima->importi;
      scritto.codicePrima = prima->idCodiceNonSoggette;
    }
    scritto.dopo = conto.dopo;
    scritto.codiceDopo = conto.codice;
    for (const std::size_t riga : conto.righe) {
      piano_.righe[riga].conto = static_cast<std::int32_t>(piano_.conti.size());
    }
    piano_.conti.push_back(std::move(scritto));
  }
}

}  // namespace cu::intake
