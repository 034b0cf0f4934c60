#include "apps/importazione/riepiloghi.h"

#include <algorithm>
#include <array>
#include <map>
#include <unordered_map>
#include <utility>

#include "apps/importazione/documenti_mostrati.h"
#include "apps/importazione/parole_finestra.h"
#include "base/text.h"
#include "intake/archivio_letto.h"
#include "intake/conti_toccati.h"

namespace cu {
namespace {

using intake::Codice;
using intake::ColonnaCompenso;
using intake::Gravita;
using intake::Messaggio;
using intake::Piano;
using intake::RigaPiano;
using StatoSoggetto = SoggettoPiano::Stato;

void aggiungiImporti(schede::Importi& totale, const schede::Importi& importi) {
  for (std::size_t i = 0; i < totale.size(); ++i) totale[i] = totale[i] + importi[i];
}

intake::PostoMessaggio postoDellaRiga(const Piano& piano, const RigaPiano& riga) {
  const intake::Lettura& lettura = (*piano.letture)[riga.posizione.file];
  return {lettura.file, lettura.foglio, lettura.righe[riga.posizione.riga].numero};
}

std::string chiaveLetta(const intake::RigaLetta& letta) {
  for (const ColonnaCompenso colonna :
       {ColonnaCompenso::CodicePercipiente, ColonnaCompenso::CodiceFiscale, ColonnaCompenso::PartitaIva}) {
    if (letta.ha(colonna)) return std::string(letta.valore(colonna).text());
  }
  return {};
}

// Of a row of a table that cannot be planned.
std::optional<Decimal> lordoLetto(const intake::RigaLetta& letta) {
  const CellView dato = letta.valore(ColonnaCompenso::Lordo);
  if (!dato.isNull()) return dato.decimal();
  std::optional<Decimal> lordo;
  using enum ColonnaCompenso;
  for (const ColonnaCompenso colonna : {Onorario, SommeNonSoggette, SommeRegimeConvenzionale}) {
    const CellView importo = letta.valore(colonna);
    if (!importo.isNull()) lordo = lordo.value_or(Decimal()) + importo.decimal();
  }
  return lordo;
}

StatoSoggetto statoSenzaVoce(const RigaPiano& riga) {
  if (haCodice(riga, Codice::P09)) return StatoSoggetto::DaScegliere;
  if (haCodice(riga, Codice::P12)) return StatoSoggetto::Assente;
  if (haCodice(riga, Codice::P10)) return StatoSoggetto::InConflitto;
  return StatoSoggetto::NonCercato;
}

class RaccoltaSoggetti {
 public:
  explicit RaccoltaSoggetti(const Piano& piano) : piano_(piano) {
    for (const schede::SchedaPercipiente& uno : piano.archivio->percipienti) {
      perId_.emplace(uno.anagrafica.id, &uno);
      for (const std::string* chiave :
           {&uno.codice, &uno.anagrafica.codiceFiscale, &uno.anagrafica.partitaIva}) {
        if (chiave->empty()) continue;
        const auto [suo, solo] = perChiave_.emplace(lowerAscii(*chiave), &uno);
        if (!solo && suo->second != &uno) suo->second = nullptr;  // of several payees
      }
    }
  }

  void riga(std::size_t quale) {
    const RigaPiano& riga = piano_.righe[quale];
    if (riga.stato == intake::StatoRiga::Escluso) return;
    if (riga.percipienteNuovo != intake::kSenzaVoce) return nuovo(quale);
    if (riga.voce == intake::kSenzaVoce) return senzaVoce(quale);
    const schede::SchedaCompenso& compenso = piano_.compensi[riga.voce].dopo;
    SoggettoPiano& suo = diChiave({kConVoce, std::to_string(compenso.idAnagrafica)});
    suo.stato = StatoSoggetto::Trovato;
    suo.righe.push_back(quale);
    somma(suo, lordo(compenso.importi));
    const auto noto = perId_.find(compenso.idAnagrafica);
    if (noto == perId_.end() || !suo.chiave.empty()) return;
    suo.chiave = noto->second->codice;
    suo.nome = nominativo(noto->second->anagrafica);
  }

  void senzaVoce(std::size_t quale) {
    const RigaPiano& riga = piano_.righe[quale];
    const std::string chiave = chiaveLetta(piano_.letta(riga));
    const intake::DocumentoLetto* const documento = documentoDellaRiga(piano_, riga);
    const auto noto = perChiave_.find(lowerAscii(chiave));
    const schede::SchedaPercipiente* const scheda = noto == perChiave_.end() ? nullptr : noto->second;
    StatoSoggetto stato = statoSenzaVoce(riga);
    // An invoice may lack its date or its amounts only: its seller is known.
    const bool trovato = documento != nullptr && stato == StatoSoggetto::NonCercato &&
                         riga.stato == intake::StatoRiga::DaDecidere;
    if (trovato) stato = StatoSoggetto::Trovato;
    SoggettoPiano& suo = trovato && scheda != nullptr
                             ? diChiave({kConVoce, std::to_string(scheda->anagrafica.id)})
                             : diChiave({static_cast<int>(stato), chiave});
    suo.stato = stato;
    suo.chiave = trovato && scheda != nullptr ? scheda->codice : chiave;
    if (scheda != nullptr) {
      suo.nome = nominativo(scheda->anagrafica);
    } else if (documento != nullptr) {
      suo.nome = documento->cedente.nominativo();
    }
    suo.candidati = riga.candidati;
    suo.righe.push_back(quale);
    if (documento != nullptr) {
      somma(suo, lordoDelDocumento(piano_, riga));
    } else {
      somma(suo, lordoLetto(piano_.letta(riga)));
    }
  }

  // Of an invoice: it is written with its first payment.
  void nuovo(std::size_t quale) {
    const RigaPiano& riga = piano_.righe[quale];
    SoggettoPiano& suo = diChiave({kNuovo, std::to_string(riga.percipienteNuovo)});
    suo.stato = StatoSoggetto::Nuovo;
    suo.righe.push_back(quale);
    const schede::SchedaPercipiente& scheda = piano_.percipienti[riga.percipienteNuovo].dopo;
    suo.chiave = scheda.codice;
    suo.nome = nominativo(scheda.anagrafica);
    somma(suo, lordoDelDocumento(piano_, riga));
  }

  std::vector<SoggettoPiano> presi() {
    constexpr std::array<int, 6> kOrdine = {5, 2, 0, 1, 3, 4};
    std::stable_sort(soggetti_.begin(), soggetti_.end(), [&](const SoggettoPiano& a, const SoggettoPiano& b) {
      return kOrdine[static_cast<std::size_t>(a.stato)] < kOrdine[static_cast<std::size_t>(b.stato)];
    });
    return std::move(soggetti_);
  }

 private:
  static constexpr int kConVoce = -1;
  static constexpr int kNuovo = -2;
  static void somma(SoggettoPiano& suo, std::optional<Decimal> importo) {
    if (importo) suo.lordo = suo.lordo.value_or(Decimal()) + *importo;
  }
  SoggettoPiano& diChiave(std::pair<int, std::string> chiave) {
    const auto [suo, nuovo] = posti_.try_emplace(std::move(chiave), soggetti_.size());
    if (nuovo) soggetti_.emplace_back();
    return soggetti_[suo->second];
  }

  const Piano& piano_;
  std::unordered_map<std::int32_t, const schede::SchedaPercipiente*> perId_;
  std::unordered_map<std::string, const schede::SchedaPercipiente*> perChiave_;
  std::map<std::pair<int, std::string>, std::size_t> posti_;
  std::vector<SoggettoPiano> soggetti_;
};

}  // namespace

bool haCodice(const RigaPiano& riga, Codice codice) {
  return std::any_of(riga.messaggi.begin(), riga.messaggi.end(),
                     [&](const Messaggio& uno) { return uno.codice == codice; });
}

std::vector<SommaAnnoCausale> sommePerAnnoECausale(const Piano& piano) {
  std::map<std::pair<int, std::string>, SommaAnnoCausale> somme;
  std::vector<SommaAnnoCausale*> deiConti;
  deiConti.reserve(piano.conti.size());
  for (const intake::ContoPiano& conto : piano.conti) {
    SommaAnnoCausale& sua = somme[{conto.anno, conto.causale}];
    sua.anno = conto.anno;
    sua.causale = conto.causale;
    ++sua.conti;
    if (conto.prima) aggiungiImporti(sua.prima, *conto.prima);
    aggiungiImporti(sua.dopo, conto.dopo);
    deiConti.push_back(&sua);
  }
  for (const RigaPiano& riga : piano.righe) {
    if (riga.conto >= 0 && intake::scritta(piano, riga))
      ++deiConti[static_cast<std::size_t>(riga.conto)]->compensi;
  }
  std::vector<SommaAnnoCausale> ordinate;
  ordinate.reserve(somme.size());
  for (auto& [chiave, somma] : somme) ordinate.push_back(std::move(somma));
  return ordinate;
}

Decimal lordo(const schede::Importi& importi) {
  return importi[schede::posto(schede::Importo::Onorario)] +
         importi[schede::posto(schede::Importo::SommeNonSoggette)] +
         importi[schede::posto(schede::Importo::RegimeConvenzionale)];
}

Decimal ritenute(const schede::Importi& importi) {
  return importi[schede::posto(schede::Importo::RitenutaAcconto)] +
         importi[schede::posto(schede::Importo::RitenutaImposta)];
}

std::vector<AvvisiDiCodice> avvisiPerCodice(const Piano& piano) {
  std::map<Codice, AvvisiDiCodice> trovati;
  const auto aggiungi = [&](const Messaggio& uno, const intake::PostoMessaggio& posto) {
    if (uno.gravita != Gravita::Avviso) return;
    AvvisiDiCodice& suoi = trovati[uno.codice];
    if (suoi.quanti++ == 0) suoi.primo = perLaFinestra(intake::dettoMessaggio(posto, uno));
  };
  if (!piano.scrive()) return {};
  for (const Messaggio& uno : piano.messaggi) aggiungi(uno, uno.posto);
  for (const RigaPiano& riga : piano.righe) {
    if (riga.messaggi.empty() || !intake::scritta(piano, riga)) continue;
    const intake::PostoMessaggio posto = postoDellaRiga(piano, riga);
    for (const Messaggio& uno : riga.messaggi) aggiungi(uno, posto);
  }
  std::vector<AvvisiDiCodice> avvisi;
  for (auto& [codice, suoi] : trovati) {
    suoi.codice = codice;
    suoi.accettati = piano.richiesta.accettati.contains(codice);
    avvisi.push_back(std::move(suoi));
  }
  return avvisi;
}

std::vector<std::string> messaggiGenerali(const Piano& piano) {
  std::vector<std::string> testi;
  for (const Messaggio& uno : piano.messaggi) {
    if (uno.gravita != Gravita::Avviso) testi.push_back(perLaFinestra(intake::dettoMessaggio(uno)));
  }
  return testi;
}

std::vector<SoggettoPiano> soggettiDelPiano(const Piano& piano) {
  if (piano.elenco != intake::Elenco::Compensi || piano.archivio == nullptr) return {};
  RaccoltaSoggetti raccolta(piano);
  for (std::size_t i = 0; i < piano.righe.size(); ++i) raccolta.riga(i);
  return raccolta.presi();
}

std::string detto(StatoSoggetto stato) {
  switch (stato) {
    case StatoSoggetto::Trovato:
      return "✓ in archivio";
    case StatoSoggetto::Assente:
      return "✖ non in archivio";
    case StatoSoggetto::DaScegliere:
      return "? da scegliere";
    case StatoSoggetto::InConflitto:
      return "✖ codici in conflitto";
    case StatoSoggetto::Nuovo:
      return "+ nuovo";
    case StatoSoggetto::NonCercato:
      break;
  }
  return "− righe con errori";
}

}  // namespace cu
