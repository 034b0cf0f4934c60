#include "gestione/regole_causale.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace cu {
namespace {

using schede::Importi;
using schede::Importo;

constexpr auto kRegole = std::to_array<RegolaCausale>({
    {.causale = "A", .aliquota = 20},
    {.causale = "B", .aliquota = 20, .imponibile = 100, .altroImponibile = 75},
    {.causale = "E", .aliquota = 20, .imponibile = 100, .altroImponibile = 85},
    {.causale = "L", .aliquota = 20},
    {.causale = "L1", .aliquota = 20},
    {.causale = "M", .aliquota = 20},
    {.causale = "M1", .aliquota = 20},
    {.causale = "O", .aliquota = 20},
    {.causale = "O1", .aliquota = 20},
    {.causale = "Q", .aliquota = 23, .imponibile = 50, .altroImponibile = 20},
    {.causale = "R", .aliquota = 23, .imponibile = 50, .altroImponibile = 20},
    {.causale = "S", .aliquota = 23, .imponibile = 50, .altroImponibile = 20},
    {.causale = "T", .aliquota = 23, .imponibile = 50, .altroImponibile = 20},
    {.causale = "U", .aliquota = 23, .imponibile = 50, .altroImponibile = 20},
    {.causale = "V", .aliquota = 23, .imposta = true, .imponibile = 78},
    {.causale = "W", .aliquota = 4},
});

constexpr Decimal kCentesimo = Decimal::fromScaled(100);

Decimal di(const Importi& importi, Importo quale) { return importi[posto(quale)]; }
Decimal imponibileDi(const Importi& importi) {
  return di(importi, Importo::Onorario) - di(importi, Importo::QuotaNonSoggetta);
}

std::string percentuale(int percento) { return fromInteger(percento) + " %"; }

// "la ritenuta non è il 20 % dell'imponibile: 199,99 invece di 200,00"
void controllaRitenuta(const Importi& importi, const RegolaCausale& regola,
                       std::vector<AvvisoCompenso>& avvisi) {
  const Decimal ritenuta = di(importi, regola.imposta ? Importo::RitenutaImposta : Importo::RitenutaAcconto);
  const Decimal altra = di(importi, regola.imposta ? Importo::RitenutaAcconto : Importo::RitenutaImposta);
  const Decimal attesa = percentoDi(imponibileDi(importi), regola.aliquota);
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
  const auto vicino = [&](int percento) {
    return percento > 0 && (imponibile - percentoDi(onorario, percento)).abs() <= kCentesimo;
  };
  if (vicino(regola.imponibile) || vicino(regola.altroImponibile)) return;
  std::string testo = "L'imponibile non è il " + percentuale(regola.imponibile);
  if (regola.altroImponibile > 0) testo += " né il " + percentuale(regola.altroImponibile);
  avvisi.push_back({testo + " del compenso: " + euro(imponibile) + " su " + euro(onorario) + ".", false});
}

}  // namespace

std::optional<RegolaCausale> regolaDi(std::string_view causale, bool nonResidente) {
  if (causale.empty()) return std::nullopt;
  if (nonResidente) {
    constexpr int kAliquotaEstero = 30;
    return RegolaCausale{.causale = {}, .aliquota = kAliquotaEstero, .imposta = true};
  }
  const auto sua = std::find_if(kRegole.begin(), kRegole.end(),
                                [&](const RegolaCausale& una) { return una.causale == causale; });
  if (sua == kRegole.end()) return std::nullopt;
  return *sua;
}

Decimal percentoDi(Decimal importo, int percento) {
  const std::int64_t centesimi = importo.rounded(2).scaled() / 100;
  const std::int64_t prodotto = centesimi * percento;
  const std::int64_t mezzo = prodotto < 0 ? -50 : 50;
  return Decimal::fromScaled((prodotto + mezzo) / 100 * 100);
}

std::string euro(Decimal importo) {
  std::string cifre = importo.toFixed(2, ',');
  const std::size_t prima = cifre.front() == '-' ? 1 : 0;
  for (std::size_t posto = cifre.find(','); posto > prima + 3;) {
    posto -= 3;
    cifre.insert(posto, 1, '.');
  }
  return cifre;
}

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
  const Decimal onorario = di(importi, Importo::Onorario);
  const Decimal quota = di(importi, Importo::QuotaNonSoggetta);
  const Decimal ritenute = di(importi, Importo::RitenutaAcconto) + di(importi, Importo::RitenutaImposta);
  if (quota.abs() > onorario.abs()) {
    return "La quota non soggetta " + euro(quota) + " supera il compenso " + euro(onorario) + ".";
  }
  if (ritenute.abs() > imponibileDi(importi).abs()) {
    return "Le ritenute " + euro(ritenute) + " superano l'imponibile " + euro(imponibileDi(importi)) + ".";
  }
  return {};
}

}  // namespace cu
