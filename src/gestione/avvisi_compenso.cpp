#include "gestione/avvisi_compenso.h"

#include "base/ascii.h"
#include "base/text.h"
#include "schede/importi.h"

namespace cu {
namespace {

using schede::euro;
using schede::Importi;
using schede::Importo;
using schede::percento;
using schede::RegolaCausale;

constexpr Decimal kCentesimo = Decimal::fromScaled(100);

Decimal di(const Importi& importi, Importo quale) { return importi[posto(quale)]; }
Decimal imponibileDi(const Importi& importi) {
  return di(importi, Importo::Onorario) - di(importi, Importo::QuotaNonSoggetta);
}

std::string percentuale(int quale) { return fromInteger(quale) + " %"; }

// "la ritenuta non è il 20 % dell'imponibile: 199,99 invece di 200,00"
void controllaRitenuta(const Importi& importi, const RegolaCausale& regola,
                       std::vector<AvvisoCompenso>& avvisi) {
  const Decimal ritenuta = di(importi, regola.imposta ? Importo::RitenutaImposta : Importo::RitenutaAcconto);
  const Decimal altra = di(importi, regola.imposta ? Importo::RitenutaAcconto : Importo::RitenutaImposta);
  const Decimal attesa = percento(imponibileDi(importi), regola.aliquota);
  const char* const nome = regola.imposta ? "La ritenuta a titolo d'imposta" : "La ritenuta d'acconto";
  if (!altra.isZero()) {
    avvisi.push_back(
        {std::string(regola.imposta ? "La ritenuta d'acconto" : "La ritenuta a titolo d'imposta") +
             " non è abituale per questa causale: di solito la ritenuta è " +
             (regola.imposta ? "a titolo d'imposta." : "d'acconto."),
         false});
  }
  if (ritenuta == attesa || (ritenuta.isZero() && !altra.isZero())) return;
  avvisi.push_back({std::string(nome) + " non è il " + percentuale(regola.aliquota) +
                        " dell'imponibile: " + euro(ritenuta) + " invece di " + euro(attesa) + ".",
                    (ritenuta - attesa).abs() <= kCentesimo});
}

void controllaQuota(const Importi& importi, const RegolaCausale& regola,
                    std::vector<AvvisoCompenso>& avvisi) {
  const Decimal onorario = di(importi, Importo::Onorario);
  const Decimal imponibile = imponibileDi(importi);
  const auto vicino = [&](int parte) {
    return parte > 0 && (imponibile - percento(onorario, parte)).abs() <= kCentesimo;
  };
  if (vicino(regola.imponibile) || vicino(regola.altroImponibile)) return;
  std::string testo = "L'imponibile non è il " + percentuale(regola.imponibile);
  if (regola.altroImponibile > 0) testo += " né il " + percentuale(regola.altroImponibile);
  avvisi.push_back({testo + " del compenso: " + euro(imponibile) + " su " + euro(onorario) + ".", false});
}

}  // namespace

std::vector<AvvisoCompenso> avvisiCompenso(const Importi& importi,
                                           const std::optional<RegolaCausale>& regola) {
  std::vector<AvvisoCompenso> avvisi;
  if (regola && !di(importi, Importo::Onorario).isZero()) {
    controllaQuota(importi, *regola, avvisi);
    controllaRitenuta(importi, *regola, avvisi);
  }
  if (di(importi, Importo::ContributoPercipiente).abs() >
      di(importi, Importo::ContributoPrevidenziale).abs()) {
    avvisi.push_back(
        {"La parte del percipiente supera il contributo previdenziale, che è il totale.", false});
  }
  return avvisi;
}

std::string erroreCompenso(const Importi& importi) {
  std::string errore = schede::oltreIlCompenso(importi);
  if (errore.empty()) return errore;
  errore.front() = upperAscii(errore.front());
  return errore + ".";
}

}  // namespace cu
