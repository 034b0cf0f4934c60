#include "fatture/proposta.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace cu::fatture {
namespace {

constexpr std::size_t kProposte = 5;

Decimal conSegno(Decimal importo, bool negativo) { return negativo ? -importo.abs() : importo.abs(); }

std::string conSomme(std::string spiegazione, Decimal somme) {
  if (!somme.isZero()) spiegazione += "; somme non soggette " + inEuro(somme.abs());
  return spiegazione;
}

}  // namespace

Proposta::Proposta(const Fattura& fattura) : fattura_(fattura) {}

bool Proposta::estero() const {
  const std::string& paese =
      fattura_.cedente.sede.nazione.empty() ? fattura_.cedente.paese : fattura_.cedente.sede.nazione;
  return !paese.empty() && paese != "IT" && !fattura_.cedente.stabileOrganizzazione;
}

Rilievo Proposta::rilievo(const char* codice, std::string testo, std::size_t riga) const {
  Posto posto = fattura_.posto;
  posto.elemento.clear();
  if (riga > 0) posto.riga = riga;
  return {codice, std::move(posto), std::move(testo), codice[0] == 'R' && std::string(codice) != "R02"};
}

Proposta::Restanti Proposta::restanti(const std::vector<std::size_t>& prese,
                                      const std::vector<std::size_t>& casse, bool negativo) const {
  ImportoEsatto somme;
  ImportoEsatto incerte;
  Restanti esito;
  for (std::size_t i = 0; i < fattura_.casse.size(); ++i) {
    const Cassa& cassa = fattura_.casse[i];
    const bool presa = std::find(casse.begin(), casse.end(), i) != casse.end();
    if (!presa && rivalsaInps(cassa) && !cassa.importo.value_or(Decimal()).isZero())
      esito.rivalse.push_back(i);
  }
  for (std::size_t i = 0; i < fattura_.linee.size(); ++i) {
    if (std::find(prese.begin(), prese.end(), i) != prese.end()) continue;
    const Linea& linea = fattura_.linee[i];
    switch (genereLinea(linea)) {
      case GenereLinea::Vuota:
        break;
      case GenereLinea::Spesa:
        somme = somme + *linea.prezzoTotale;
        break;
      case GenereLinea::Soggetta:
        esito.dubbi = "la linea " + linea.numero + " è soggetta a ritenuta, ma la ritenuta non la comprende";
        break;
      case GenereLinea::NonImponibile:  // it may be a fee as well as an expense
      case GenereLinea::Altra:
        incerte = incerte + *linea.prezzoTotale;
        break;
    }
  }
  esito.somme = somme.arrotondato();
  esito.incerte = incerte.arrotondato();
  if (negativo) {
    esito.somme = -esito.somme;
    esito.incerte = -esito.incerte;
  }
  if (esito.somme < Decimal()) {
    esito.dubbi = "le somme non soggette hanno il segno opposto a quello del compenso";
  } else if (!esito.incerte.isZero() && esito.dubbi.empty()) {
    esito.dubbi = "linee per " + inEuro(esito.incerte) +
                  " non sono soggette a ritenuta: decidere se sono somme non soggette o altro";
  }
  return esito;
}

ImportiFattura Proposta::importi(const Ritenuta& ritenuta, const Base& base, int imponibile,
                                 Decimal somme) const {
  const bool meno = negativo(base);
  const Decimal compenso = base.importo.abs();
  const Decimal quota = compenso - quotaPercentuale(compenso, Decimal::fromInteger(imponibile));
  ImportiFattura esito;
  esito.onorario = compenso;
  esito.sommeNonSoggette = somme;
  // The deduction of an author's rights is a sum not subject, that of a commission a share of the fee.
  if (ritenuta.causale == "B") {
    esito.onorario = compenso - quota;
    esito.sommeNonSoggette = somme + quota;
  } else {
    esito.quotaNonSoggetta = quota;
  }
  const bool imposta = estero() || ritenuta.causale == "V" || ritenuta.causale == "P";
  (imposta ? esito.ritenutaImposta : esito.ritenutaAcconto) = ritenuta.importo.value_or(Decimal()).abs();
  if (!meno) return esito;
  for (Decimal* uno : {&esito.onorario, &esito.quotaNonSoggetta, &esito.sommeNonSoggette,
                       &esito.ritenutaAcconto, &esito.ritenutaImposta})
    *uno = -*uno;
  return esito;
}

void Proposta::avverti(CompensoProposto& compenso, const Ritenuta& ritenuta, const Base& base) const {
  if (negativo(base)) {
    compenso.rilievi.push_back(rilievo("R06", notaDiCredito()
                                                  ? "nota di credito: riduce i compensi del percipiente"
                                                  : "importi negativi: riducono i compensi del percipiente"));
  }
  for (const std::size_t i : base.casse) {
    const Cassa& cassa = fattura_.casse[i];
    if (rivalsaInps(cassa)) continue;
    compenso.rilievi.push_back(rilievo("R07",
                                       "il contributo " + cassa.tipo + " di " +
                                           inEuro(cassa.importo.value_or(Decimal()).abs()) +
                                           " è soggetto a ritenuta e compreso nel lordo",
                                       cassa.riga));
  }
  if (regimeForfettario() && !ritenuta.importo.value_or(Decimal()).isZero()) {
    compenso.rilievi.push_back(rilievo(
        "R10", "il percipiente è in regime " + fattura_.cedente.regime + ", ma il documento ha una ritenuta",
        ritenuta.riga));
  }
}

void Proposta::dubbiSullaRivalsa(CompensoProposto& compenso, const Ritenuta& ritenuta, const Base& base,
                                 const Riscontro& riscontro, const Restanti& restanti) const {
  for (const std::size_t i : restanti.rivalse) {
    const Cassa& cassa = fattura_.casse[i];
    std::vector<std::size_t> casse = base.casse;
    casse.push_back(i);
    const Base tutto = baseDi(fattura_, base.linee, casse, base.sconto);
    compenso.candidati.push_back({importi(ritenuta, tutto, riscontro.imponibile, restanti.somme),
                                  conSomme(spiega(fattura_, tutto, riscontro), restanti.somme)});
    compenso.deciso = false;
    compenso.rilievi.push_back(rilievo("R02",
                                       "la ritenuta non comprende la rivalsa INPS di " +
                                           inEuro(cassa.importo.value_or(Decimal()).abs()) +
                                           ", che è parte del compenso",
                                       cassa.riga));
  }
}

// The fee is what is paid: a tax on more than that may be wrong as well as meant.
void Proposta::dubbiSulloSconto(CompensoProposto& compenso, const Ritenuta& ritenuta, const Base& base,
                                const Riscontro& riscontro, const Restanti& restanti) const {
  if (base.sconto || fattura_.sconti.empty()) return;
  const Base scontata = baseDi(fattura_, base.linee, base.casse, true);
  const Decimal sconto = scontata.importo - base.importo;
  if (sconto.isZero()) return;
  compenso.candidati.push_back({importi(ritenuta, scontata, riscontro.imponibile, restanti.somme),
                                conSomme(spiega(fattura_, scontata, riscontro), restanti.somme)});
  compenso.deciso = false;
  compenso.rilievi.push_back(rilievo("R02",
                                     "la ritenuta non tiene conto dello sconto o della maggiorazione di " +
                                         inEuro(sconto.abs()) + " sul documento",
                                     ritenuta.riga));
}

// The tax of a director is that of the fee without the contribution withheld from it. How the certificate
// shows it is for a person to decide.
void Proposta::menoContributo(CompensoProposto& compenso, const Ritenuta& ritenuta,
                              const std::vector<Base>& basi) const {
  const auto inps = std::find_if(fattura_.ritenute.begin(), fattura_.ritenute.end(), [](const Ritenuta& una) {
    return una.tipo == "RT03" && una.importo && !una.importo->isZero();
  });
  if (inps == fattura_.ritenute.end()) return;
  const Decimal contributo = inps->importo->abs();
  for (const Base& base : basi) {
    Base ridotta = base;
    ridotta.importo = base.importo.abs() - contributo;
    const std::optional<Riscontro> riscontro = riscontra(ridotta, ritenuta);
    if (!riscontro || riscontro->imponibile != 100 || ridotta.importo < Decimal()) continue;
    const Decimal somme = restanti(base).somme;
    Candidato candidato{importi(ritenuta, base, 100, somme), {}};
    candidato.importi.quotaNonSoggetta = conSegno(contributo, negativo(base));
    candidato.spiegazione =
        conSomme("compenso " + inEuro(base.importo.abs()) + " - contributo INPS " + inEuro(contributo) +
                     " = imponibile " + inEuro(ridotta.importo) + "; ritenuta " + inEuro(riscontro->ritenuta),
                 somme);
    compenso.candidati.push_back(std::move(candidato));
    return;
  }
}

CompensoProposto Proposta::trovata(const Ritenuta& ritenuta, const Base& base, const Riscontro& riscontro,
                                   const Restanti& restanti) const {
  CompensoProposto compenso;
  compenso.causale = ritenuta.causale;
  compenso.deciso = true;
  std::string spiegazione = spiega(fattura_, base, riscontro);
  if (!riscontro.scarto.isZero()) {
    const std::string importo = inEuro(ritenuta.importo.value_or(Decimal()).abs());
    spiegazione += " (nel documento " + importo + ")";
    compenso.rilievi.push_back(rilievo("R09",
                                       "la ritenuta è " + importo + ", ma risulta " +
                                           inEuro(riscontro.ritenuta) + ": differenza di arrotondamento",
                                       ritenuta.riga));
  }
  if (estero()) spiegazione += "; percipiente estero: ritenuta a titolo d'imposta";
  const int quota = riscontro.imponibile;
  compenso.candidati.push_back(
      {importi(ritenuta, base, quota, restanti.somme), conSomme(spiegazione, restanti.somme)});
  avverti(compenso, ritenuta, base);
  if (!restanti.dubbi.empty()) {
    compenso.deciso = false;
    compenso.rilievi.push_back(rilievo("R02", restanti.dubbi));
    if (!restanti.incerte.isZero()) {
      const Decimal tutte = restanti.somme + restanti.incerte;
      compenso.candidati.push_back({importi(ritenuta, base, quota, tutte), conSomme(spiegazione, tutte)});
    }
  }
  dubbiSullaRivalsa(compenso, ritenuta, base, riscontro, restanti);
  dubbiSulloSconto(compenso, ritenuta, base, riscontro, restanti);
  if (ritenuta.causale == "N" && !estero()) {
    Candidato altro = compenso.candidati.front();
    std::swap(altro.importi.ritenutaAcconto, altro.importi.ritenutaImposta);
    altro.spiegazione += "; ritenuta a titolo d'imposta";
    compenso.candidati.push_back(std::move(altro));
    compenso.deciso = false;
    compenso.rilievi.push_back(
        rilievo("R02", "per la causale N decidere se la ritenuta è d'acconto o d'imposta", ritenuta.riga));
  }
  return compenso;
}

CompensoProposto Proposta::nonTrovata(const Ritenuta& ritenuta, const std::vector<Base>& basi) const {
  CompensoProposto compenso;
  compenso.causale = ritenuta.causale;
  const Decimal aliquota = ritenuta.aliquota.value_or(Decimal());
  const std::string importo = inEuro(ritenuta.importo.value_or(Decimal()).abs());
  menoContributo(compenso, ritenuta, basi);
  for (std::size_t i = 0; i < basi.size() && i < kProposte; ++i) {
    const Decimal somme = restanti(basi[i]).somme;
    compenso.candidati.push_back(
        {importi(ritenuta, basi[i], 100, somme),
         conSomme(spiega(fattura_, basi[i], {100, aliquota, {}, {}}) + ", nel documento " + importo, somme)});
  }
  if (!basi.empty()) avverti(compenso, ritenuta, basi.front());
  std::string testo = "nessuna parte del documento dà la ritenuta di " + importo;
  if (ritenuta.importo.value_or(Decimal()).isZero() || aliquota.isZero())
    testo = "la ritenuta è zero: decidere quali importi sono soggetti";
  compenso.rilievi.push_back(rilievo("R02", std::move(testo), ritenuta.riga));
  return compenso;
}

CompensoProposto Proposta::forfettaria(const std::string& causale, Decimal& spese) const {
  CompensoProposto compenso;
  compenso.causale = causale;
  std::vector<std::size_t> linee;
  std::vector<std::size_t> casse;
  for (std::size_t i = 0; i < fattura_.linee.size(); ++i) {
    const GenereLinea genere = genereLinea(fattura_.linee[i]);
    if (genere != GenereLinea::Vuota && genere != GenereLinea::Spesa) linee.push_back(i);
  }
  for (std::size_t i = 0; i < fattura_.casse.size(); ++i) {
    if (rivalsaInps(fattura_.casse[i])) casse.push_back(i);
  }
  const Base base = baseDi(fattura_, linee, casse, !fattura_.sconti.empty());
  const bool meno = negativo(base);
  const Restanti altre = restanti(base);
  spese = conSegno(altre.somme, meno);
  Candidato candidato;
  candidato.importi.sommeNonSoggette = conSegno(base.importo, meno) + spese;
  candidato.spiegazione = "compenso " + inEuro(base.importo.abs());
  if (!casse.empty()) candidato.spiegazione += ", compresa la rivalsa INPS";
  candidato.spiegazione += ", senza ritenuta (regime " + fattura_.cedente.regime + ")";
  if (!spese.isZero()) candidato.spiegazione += "; spese " + inEuro(spese.abs());
  compenso.candidati.push_back(std::move(candidato));
  compenso.deciso = altre.dubbi.empty() && !base.importo.isZero();
  if (!compenso.deciso) {
    compenso.rilievi.push_back(
        rilievo("R02", altre.dubbi.empty() ? "il documento non ha un compenso" : altre.dubbi));
  }
  avverti(compenso, {}, {linee, {}, false, base.importo});
  return compenso;
}

}  // namespace cu::fatture
