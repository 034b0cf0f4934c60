#include "intake/importi_compenso.h"

#include <algorithm>
#include <optional>
#include <string>

#include "schede/importi.h"
#include "schede/regole_causale.h"

namespace cu::intake {
namespace {

using schede::euro;
using schede::Importi;
using schede::percento;
using I = schede::Importo;

// The usual rate of the tax on account of a reason; others are not compared.
std::optional<Decimal> aliquotaUsuale(std::string_view causale) {
  const std::optional<schede::RegolaCausale> regola = schede::regolaDi(causale, false);
  if (!regola || regola->imposta) return std::nullopt;
  return Decimal::fromInteger(regola->aliquota);
}

class ImportiCompenso {
 public:
  ImportiCompenso(RigaInCorso& corso, std::string_view causale) : corso_(corso), causale_(causale) {}

  Importi calcola() {
    using enum ColonnaCompenso;
    di(I::SommeNonSoggette) = dato(SommeNonSoggette);
    di(I::RegimeConvenzionale) = dato(SommeRegimeConvenzionale);
    di(I::RitenutaImposta) = dato(RitenutaImposta);
    onorario();
    quota();
    ritenuta();
    contributi();
    controlla();
    return importi_;
  }

 private:
  Decimal& di(I importo) { return importi_[posto(importo)]; }
  bool ha(ColonnaCompenso colonna) const { return corso_.letta().ha(colonna); }
  Decimal dato(ColonnaCompenso colonna) const { return corso_.letta().valore(colonna).decimal(); }
  Decimal base() { return di(I::Onorario) - di(I::QuotaNonSoggetta); }
  Decimal lordo() { return di(I::Onorario) + di(I::SommeNonSoggette) + di(I::RegimeConvenzionale); }

  void onorario() {
    using enum ColonnaCompenso;
    if (ha(Onorario)) {
      di(I::Onorario) = dato(Onorario);
    } else if (ha(Lordo)) {
      di(I::Onorario) = dato(Lordo) - di(I::SommeNonSoggette) - di(I::RegimeConvenzionale);
      daLordo_ = true;
      corso_.derivato(Onorario);
    }
  }

  void quota() {
    using enum ColonnaCompenso;
    if (ha(QuotaNonSoggetta)) {
      di(I::QuotaNonSoggetta) = dato(QuotaNonSoggetta);
    } else if (ha(PercentualeImponibile)) {
      di(I::QuotaNonSoggetta) = di(I::Onorario) - percento(di(I::Onorario), dato(PercentualeImponibile));
      corso_.derivato(QuotaNonSoggetta);
    } else if (daLordo_ && ha(Imponibile)) {
      di(I::QuotaNonSoggetta) = di(I::Onorario) - dato(Imponibile);
      corso_.derivato(QuotaNonSoggetta);
    }
  }

  void ritenuta() {
    using enum ColonnaCompenso;
    std::optional<Decimal> aliquota;
    if (ha(AliquotaRitenuta)) aliquota = dato(AliquotaRitenuta);
    if (!ha(RitenutaAcconto)) {
      if (!aliquota || ha(RitenutaImposta)) return;
      di(I::RitenutaAcconto) = percento(base(), *aliquota);
      return corso_.derivato(RitenutaAcconto);
    }
    di(I::RitenutaAcconto) = dato(RitenutaAcconto);
    if (!aliquota && !dato(RitenutaAcconto).isZero()) aliquota = aliquotaUsuale(causale_);
    if (!aliquota) return;
    const Decimal attesa = percento(base(), *aliquota);
    const Decimal scarto = (attesa - di(I::RitenutaAcconto)).abs();
    if (scarto.isZero()) return;
    const std::string testo = "la ritenuta non è il " + aliquota->toText() +
                              " % dell'imponibile: " + euro(di(I::RitenutaAcconto)) + " invece di " +
                              euro(attesa);
    if (scarto <= Decimal::fromScaled(100)) {
      corso_.segnala(Codice::R09, RitenutaAcconto, testo);
    } else if (daLordo_ && !ha(Imponibile) && !ha(QuotaNonSoggetta) && !ha(PercentualeImponibile)) {
      corso_.segnala(Codice::R02, Lordo, "l'imponibile non si ricava dal lordo: " + testo);
    } else {
      corso_.segnala(Codice::R01, RitenutaAcconto, testo);
    }
  }

  void contributi() {
    using enum ColonnaCompenso;
    di(I::ContributoPercipiente) = dato(ContributoPercipiente);
    if (ha(ContributoPrevidenziale)) {
      di(I::ContributoPrevidenziale) = dato(ContributoPrevidenziale);
      if (ha(ContributoDitta) && !ha(ContributoPercipiente)) {
        di(I::ContributoPercipiente) = dato(ContributoPrevidenziale) - dato(ContributoDitta);
        corso_.derivato(ContributoPercipiente);
      } else if (ha(ContributoDitta) &&
                 dato(ContributoDitta) + dato(ContributoPercipiente) != dato(ContributoPrevidenziale)) {
        corso_.segnala(Codice::R14, ContributoPrevidenziale,
                       "le due parti del contributo danno " +
                           euro(dato(ContributoDitta) + dato(ContributoPercipiente)) + ", non " +
                           euro(dato(ContributoPrevidenziale)));
      }
    } else if (ha(ContributoDitta) || ha(ContributoPercipiente)) {
      di(I::ContributoPrevidenziale) = dato(ContributoDitta) + dato(ContributoPercipiente);
      corso_.derivato(ContributoPrevidenziale);
    }
  }

  void controlla() {
    using enum ColonnaCompenso;
    confronta(Lordo, lordo(), "il lordo");
    confronta(Imponibile, base(), "l'imponibile");
    confronta(Netto, lordo() - di(I::RitenutaAcconto) - di(I::RitenutaImposta) - di(I::ContributoPercipiente),
              "il netto");
    if (const std::string oltre = schede::oltreIlCompenso(importi_); !oltre.empty())
      corso_.segnala(Codice::R13, oltre);
    const bool gia = std::any_of(corso_.riga().messaggi.begin(), corso_.riga().messaggi.end(),
                                 [](const Messaggio& uno) { return uno.codice == Codice::R06; });
    if (!gia && lordo() < Decimal()) {
      corso_.segnala(Codice::R06, "importi negativi: riducono i compensi del percipiente");
    }
  }

  void confronta(ColonnaCompenso colonna, Decimal risulta, const std::string& cosa) {
    if (!ha(colonna) || dato(colonna) == risulta) return;
    corso_.segnala(Codice::R14, colonna,
                   cosa + " della riga è " + euro(dato(colonna)) + ", ma risulta " + euro(risulta));
  }

  RigaInCorso& corso_;
  std::string_view causale_;
  Importi importi_{};
  bool daLordo_ = false;
};

}  // namespace

Importi importiDelCompenso(RigaInCorso& corso, std::string_view causale) {
  return ImportiCompenso(corso, causale).calcola();
}

}  // namespace cu::intake
