#include "schede/importi.h"

#include "base/thousands.h"

namespace cu::schede {

Decimal percento(Decimal importo, Decimal percentuale) {
  // Hundredths of a percent of a percent: parts of a million, with four places.
  constexpr std::int64_t kParti = 1000000;
  const std::int64_t centesimi = importo.rounded(2).scaled() / 100;
  const std::int64_t intere = centesimi / kParti * percentuale.scaled();
  const std::int64_t resto = centesimi % kParti * percentuale.scaled();
  const std::int64_t meta = resto < 0 ? -kParti / 2 : kParti / 2;
  return Decimal::fromScaled((intere + (resto + meta) / kParti) * 100);
}

Decimal percento(Decimal importo, int percentuale) {
  return percento(importo, Decimal::fromInteger(percentuale));
}

std::string euro(Decimal importo) { return groupThousands(importo.toFixed(2, ',')); }

std::string oltreIlCompenso(const Importi& importi) {
  const auto di = [&](Importo importo) { return importi[posto(importo)]; };
  const Decimal base = di(Importo::Onorario) - di(Importo::QuotaNonSoggetta);
  const Decimal ritenute = di(Importo::RitenutaAcconto) + di(Importo::RitenutaImposta);
  if (di(Importo::QuotaNonSoggetta).abs() > di(Importo::Onorario).abs()) {
    return "la quota non soggetta " + euro(di(Importo::QuotaNonSoggetta)) + " supera il compenso " +
           euro(di(Importo::Onorario));
  }
  if (ritenute.abs() > base.abs()) {
    return "le ritenute " + euro(ritenute) + " superano l'imponibile " + euro(base);
  }
  return {};
}

}  // namespace cu::schede
