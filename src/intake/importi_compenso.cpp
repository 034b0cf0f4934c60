#include "intake/importi_compenso.h"

#include <algorithm>
#include <optional>
#include <string>

#include "base/text.h"
#include "schede/importi.h"
#include "schede/regole_causale.h"

namespace cu::intake {
namespace {

using schede::euro;
using schede::Importi;
using schede::percento;
using I = schede::Importo;

// Whether the usual tax of the reason is final.
bool aTitoloDiImposta(std::string_view causale) {
  const std::optional<schede::RegolaCausale> regola = schede::regolaDi(causale, false);
  return regola && regola->imposta;
}

// The usual rate of a reason, of the tax on account or of the final one; others are not compared.
std::optional<Decimal> aliquotaUsuale(std::string_view causale, bool imposta) {
  const std::optional<schede::RegolaCausale> regola = schede::regolaDi(causale, false);
  if (!regola || regola->imposta != imposta) return std::nullopt;
  return Decimal::fromInteger(regola->aliquota);
}

// What a row has of its columns.
class ColonneCompenso {
 public:
  explicit ColonneCompenso(const RigaInCorso& corso) : letta_(corso.letta()) {}

  bool ha(ColonnaCompenso colonna) const { return letta_.ha(colonna); }
  // With a value, or to be emptied.
  bool da(ColonnaCompenso colonna) const { return letta_.campo(colonna) != nullptr; }
  Decimal dato(ColonnaCompenso colonna) const { return letta_.valore(colonna).decimal(); }
  bool daLordo() const { return !ha(ColonnaCompenso::Onorario) && ha(ColonnaCompenso::Lordo); }

 private:
  const RigaLetta& letta_;
};

class ImportiDellaRiga {
 public:
  ImportiDellaRiga(RigaInCorso& corso, std::string_view causale)
      : corso_(corso), riga_(corso), causale_(causale) {}

  ImportiDati calcola() {
    using enum ColonnaCompenso;
    dai(I::SommeNonSoggette, SommeNonSoggette);
    dai(I::RegimeConvenzionale, SommeRegimeConvenzionale);
    dai(I::RitenutaImposta, RitenutaImposta);
    dai(I::Onorario, Onorario);
    dai(I::QuotaNonSoggetta, QuotaNonSoggetta);
    dai(I::RitenutaAcconto, RitenutaAcconto);
    dai(I::ContributoPrevidenziale, ContributoPrevidenziale);
    dai(I::ContributoPercipiente, ContributoPercipiente);
    onorario();
    quota();
    ritenuta();
    contributi();
    return dati_;
  }

 private:
  Decimal di(I importo) const { return dati_.importi[posto(importo)]; }
  bool dato(I importo) const { return dati_.dati[posto(importo)]; }
  void dai(I importo, ColonnaCompenso colonna) {
    dati_.importi[posto(importo)] = riga_.dato(colonna);
    dati_.dati[posto(importo)] = riga_.da(colonna);
  }
  // `certo`: the row gives what the amount follows from, so that it counts as given.
  void deriva(I importo, ColonnaCompenso colonna, Decimal valore, bool certo) {
    dati_.importi[posto(importo)] = valore;
    dati_.dati[posto(importo)] = certo;
    corso_.derivato(colonna);
  }

  void onorario() {
    using enum ColonnaCompenso;
    if (!riga_.daLordo()) return;
    deriva(I::Onorario, Onorario, riga_.dato(Lordo) - di(I::SommeNonSoggette) - di(I::RegimeConvenzionale),
           true);
  }

  void quota() {
    using enum ColonnaCompenso;
    if (riga_.ha(QuotaNonSoggetta)) return;
    if (riga_.ha(PercentualeImponibile)) {
      deriva(I::QuotaNonSoggetta, QuotaNonSoggetta,
             di(I::Onorario) - percento(di(I::Onorario), riga_.dato(PercentualeImponibile)),
             dato(I::Onorario));
    } else if (riga_.daLordo() && riga_.ha(Imponibile)) {
      deriva(I::QuotaNonSoggetta, QuotaNonSoggetta, di(I::Onorario) - riga_.dato(Imponibile), true);
    }
  }

  void ritenuta() {
    using enum ColonnaCompenso;
    if (riga_.ha(RitenutaAcconto) || riga_.ha(RitenutaImposta) || !riga_.ha(AliquotaRitenuta)) return;
    // A reason that is taxed finally has no tax on account.
    const bool imposta = aTitoloDiImposta(causale_);
    deriva(imposta ? I::RitenutaImposta : I::RitenutaAcconto, imposta ? RitenutaImposta : RitenutaAcconto,
           percento(di(I::Onorario) - di(I::QuotaNonSoggetta), riga_.dato(AliquotaRitenuta)),
           dato(I::Onorario));
  }

  void contributi() {
    using enum ColonnaCompenso;
    const bool ditta = riga_.ha(ContributoDitta);
    const bool percipiente = riga_.ha(ContributoPercipiente);
    if (riga_.ha(ContributoPrevidenziale)) {
      if (!ditta || percipiente) return;
      deriva(I::ContributoPercipiente, ContributoPercipiente,
             riga_.dato(ContributoPrevidenziale) - riga_.dato(ContributoDitta), true);
    } else if (ditta || percipiente) {
      // Of the payee's part alone the total does not follow where the payment already has one.
      deriva(I::ContributoPrevidenziale, ContributoPrevidenziale,
             riga_.dato(ContributoDitta) + riga_.dato(ContributoPercipiente), ditta);
    }
  }

  RigaInCorso& corso_;
  ColonneCompenso riga_;
  std::string_view causale_;
  ImportiDati dati_;
};

class ControlloImporti {
 public:
  ControlloImporti(RigaInCorso& corso, std::string_view causale, const Importi& importi, const Importi* prima)
      : corso_(corso), riga_(corso), causale_(causale), importi_(importi), prima_(prima) {}

  void esegui() {
    using enum ColonnaCompenso;
    ritenute();
    contributi();
    confronta(Lordo, lordo(), "il lordo");
    confronta(Imponibile, base(), "l'imponibile");
    confronta(Netto, lordo() - di(I::RitenutaAcconto) - di(I::RitenutaImposta) - di(I::ContributoPercipiente),
              "il netto");
    if (const std::string oltre = schede::oltreIlCompenso(importi_); !oltre.empty())
      corso_.segnala(Codice::R13, oltre);
    if (!detto(Codice::R06) && lordo() < Decimal()) {
      corso_.segnala(Codice::R06, "importi negativi: riducono i compensi del percipiente");
    }
  }

 private:
  // By the reading.
  bool detto(Codice codice) const {
    return std::any_of(corso_.riga().messaggi.begin(), corso_.riga().messaggi.end(),
                       [&](const Messaggio& uno) { return uno.codice == codice; });
  }
  Decimal di(I importo) const { return importi_[posto(importo)]; }
  Decimal base() const { return di(I::Onorario) - di(I::QuotaNonSoggetta); }
  Decimal lordo() const { return di(I::Onorario) + di(I::SommeNonSoggette) + di(I::RegimeConvenzionale); }

  // The two taxes are compared apart: the rate of the row belongs to the one that the row has, or that is the
  // reason's.
  void ritenute() {
    using enum ColonnaCompenso;
    // Of an invoice that is to be decided.
    if (corso_.stato(StatoRiga::Nuovo) == StatoRiga::DaDecidere && detto(Codice::R02)) return;
    const bool imposta =
        !riga_.ha(RitenutaAcconto) && (riga_.ha(RitenutaImposta) || aTitoloDiImposta(causale_));
    ritenuta(I::RitenutaAcconto, RitenutaAcconto, !imposta);
    ritenuta(I::RitenutaImposta, RitenutaImposta, imposta);
    senzaQuota();
  }

  void ritenuta(I importo, ColonnaCompenso colonna, bool haAliquota) {
    using enum ColonnaCompenso;
    if (!riga_.ha(colonna) && (prima_ == nullptr || *prima_ == importi_)) return;
    std::optional<Decimal> aliquota;
    if (riga_.ha(AliquotaRitenuta) && haAliquota) {
      aliquota = riga_.dato(AliquotaRitenuta);
    } else if (!di(importo).isZero()) {
      aliquota = aliquotaUsuale(causale_, importo == I::RitenutaImposta);
    }
    if (!aliquota) return;
    const Decimal attesa = percento(base(), *aliquota);
    const Decimal scarto = (attesa - di(importo)).abs();
    if (scarto.isZero()) return;
    const std::string testo = "la ritenuta non è il " + aliquota->toText() +
                              " % dell'imponibile: " + euro(di(importo)) + " invece di " + euro(attesa);
    if (scarto <= Decimal::fromScaled(100)) {
      if (!detto(Codice::R09)) corso_.segnala(Codice::R09, colonna, testo);
    } else if (riga_.daLordo() && !quotaData()) {
      corso_.segnala(Codice::R02, Lordo, "l'imponibile non si ricava dal lordo: " + testo);
    } else {
      corso_.segnala(Codice::R01, colonna, testo);
    }
  }

  bool quotaData() const {
    using enum ColonnaCompenso;
    return riga_.ha(Imponibile) || riga_.ha(QuotaNonSoggetta) || riga_.ha(PercentualeImponibile);
  }

  // A tax that follows from the rate alone, of a reason of which only a share of the fee is usually taxed.
  void senzaQuota() {
    using enum ColonnaCompenso;
    const bool daAliquota =
        riga_.ha(AliquotaRitenuta) && !riga_.ha(RitenutaAcconto) && !riga_.ha(RitenutaImposta);
    const std::optional<schede::RegolaCausale> regola = schede::regolaDi(causale_, false);
    constexpr int kTutto = 100;
    if (!daAliquota || quotaData() || !di(I::QuotaNonSoggetta).isZero() || !regola ||
        regola->imponibile == kTutto) {
      return;
    }
    corso_.segnala(Codice::R01, AliquotaRitenuta,
                   "la ritenuta è calcolata su tutto il compenso, ma con la causale " +
                       std::string(causale_) + " l'imponibile è di solito il " +
                       fromInteger(regola->imponibile) + " %");
  }

  void contributi() {
    using enum ColonnaCompenso;
    const Decimal totale = di(I::ContributoPrevidenziale);
    const Decimal suo = di(I::ContributoPercipiente);
    const bool data = riga_.ha(ContributoPercipiente) || riga_.ha(ContributoPrevidenziale);
    if (data && suo.abs() > totale.abs()) {
      corso_.segnala(Codice::R14, ContributoPercipiente,
                     "la parte del percipiente, " + euro(suo) + ", supera il contributo, " + euro(totale));
    }
    if (!riga_.ha(ContributoDitta)) return;
    const Decimal parti = riga_.dato(ContributoDitta) + di(I::ContributoPercipiente);
    if (parti == di(I::ContributoPrevidenziale)) return;
    corso_.segnala(
        Codice::R14, ContributoPrevidenziale,
        "le due parti del contributo danno " + euro(parti) + ", non " + euro(di(I::ContributoPrevidenziale)));
  }

  void confronta(ColonnaCompenso colonna, Decimal risulta, const std::string& cosa) {
    if (!riga_.ha(colonna) || riga_.dato(colonna) == risulta) return;
    corso_.segnala(Codice::R14, colonna,
                   cosa + " della riga è " + euro(riga_.dato(colonna)) + ", ma risulta " + euro(risulta));
  }

  RigaInCorso& corso_;
  ColonneCompenso riga_;
  std::string_view causale_;
  const Importi& importi_;
  const Importi* prima_;
};

}  // namespace

ImportiDati importiDati(RigaInCorso& corso, std::string_view causale) {
  return ImportiDellaRiga(corso, causale).calcola();
}

void controllaImporti(RigaInCorso& corso, std::string_view causale, const schede::Importi& importi,
                      const schede::Importi* prima) {
  ControlloImporti(corso, causale, importi, prima).esegui();
}

}  // namespace cu::intake
