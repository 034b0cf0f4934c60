#include "fatture/basi.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/text.h"
#include "base/thousands.h"

namespace cu::fatture {
namespace {

constexpr std::int64_t kCento = 1'000'000;  // 100 % in ten-thousandths

// Words by which an expense is known where its nature does not say it.
constexpr auto kParoleSpesa =
    std::to_array<std::string_view>({"bollo", "spese", "rimbors", "anticipaz", "anticipat"});

bool diSpesa(const Linea& linea) {
  if (linea.natura == "N1") return true;
  // What VAT is due on is a service of the payee, whatever it is called.
  if (linea.natura.empty() && !linea.aliquotaIva.value_or(Decimal()).isZero()) return false;
  const std::string testo = lowerAscii(linea.descrizione);
  return std::any_of(kParoleSpesa.begin(), kParoleSpesa.end(),
                     [&](std::string_view parola) { return testo.find(parola) != std::string::npos; });
}

std::string percentuale(Decimal valore) {
  std::string testo = valore.toText();
  std::replace(testo.begin(), testo.end(), '.', ',');
  return testo + " %";
}

Decimal sommaLinee(const Fattura& fattura, const std::vector<std::size_t>& linee) {
  ImportoEsatto somma;
  for (const std::size_t i : linee) somma = somma + fattura.linee[i].prezzoTotale.value_or(ImportoEsatto());
  return somma.arrotondato();
}

// The discounts of the whole document, negative; of a percentage, of the given amount.
Decimal scontoDi(const Fattura& fattura, Decimal importo) {
  Decimal somma;
  for (const Sconto& uno : fattura.sconti) {
    const Decimal suo = uno.importo ? uno.importo->arrotondato().abs()
                                    : quotaPercentuale(importo.abs(), uno.percentuale.value_or(Decimal()));
    somma = uno.tipo == "MG" ? somma + suo : somma - suo;
  }
  return importo < Decimal() ? -somma : somma;
}

std::vector<Riscontro> quoteDi(std::string_view causale, Decimal aliquota) {
  const auto conQuote = [&](std::initializer_list<int> quote) {
    std::vector<Riscontro> esito;
    for (const int quota : quote) esito.push_back({quota, aliquota, {}, {}});
    return esito;
  };
  if (causale.size() == 1 && causale.front() >= 'Q' && causale.front() <= 'U') {
    // Agents' documents have the rate of the share, or the share in the rate.
    const Decimal intera = Decimal::fromInteger(23);
    for (const int quota : {50, 20}) {
      if (quotaPercentuale(intera, Decimal::fromInteger(quota)) == aliquota) return {{quota, intera, {}, {}}};
    }
    return conQuote({100, 50, 20});
  }
  if (causale == "V") return conQuote({100, 78});
  if (causale == "B") return conQuote({100, 75, 60});
  return conQuote({100});
}

using Ranghi = std::vector<std::size_t>;

template <class T, class Vale>
Ranghi ranghi(const std::vector<T>& voci, Vale vale) {
  Ranghi esito;
  for (std::size_t i = 0; i < voci.size(); ++i) {
    if (vale(voci[i])) esito.push_back(i);
  }
  return esito;
}

Ranghi unite(Ranghi a, const Ranghi& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

}  // namespace

Decimal quotaPercentuale(Decimal importo, Decimal percentuale) {
  const std::int64_t centesimi = importo.rounded(2).scaled() / 100;
  const std::int64_t fattore = percentuale.scaled();
  const std::int64_t prodotto = (centesimi % kCento) * fattore;
  std::int64_t parte = prodotto / kCento;
  const std::int64_t resto = prodotto % kCento;
  if (resto >= kCento / 2) ++parte;
  if (resto <= -kCento / 2) --parte;
  return Decimal::fromScaled(((centesimi / kCento) * fattore + parte) * 100);
}

std::string inEuro(Decimal importo) { return groupThousands(importo.toFixed(2, ',')); }

GenereLinea genereLinea(const Linea& linea) {
  if (!linea.prezzoTotale || linea.prezzoTotale->zero()) return GenereLinea::Vuota;
  if (linea.ritenuta) return GenereLinea::Soggetta;
  if (diSpesa(linea)) return GenereLinea::Spesa;
  return linea.natura.empty() ? GenereLinea::Altra : GenereLinea::NonImponibile;
}

bool Base::ha(std::size_t linea) const { return std::find(linee.begin(), linee.end(), linea) != linee.end(); }
bool Base::haCassa(std::size_t cassa) const {
  return std::find(casse.begin(), casse.end(), cassa) != casse.end();
}

Base baseDi(const Fattura& fattura, std::vector<std::size_t> linee, std::vector<std::size_t> casse,
            bool sconto) {
  Base base{std::move(linee), std::move(casse), sconto, {}};
  base.importo = sommaLinee(fattura, base.linee);
  const bool negativo = base.importo < Decimal();
  if (sconto) base.importo = base.importo + scontoDi(fattura, base.importo);
  for (const std::size_t i : base.casse) {
    // In a credit note the lines may have another sign than the funds.
    const Decimal suo = fattura.casse[i].importo.value_or(Decimal()).abs();
    base.importo = negativo ? base.importo - suo : base.importo + suo;
  }
  return base;
}

std::vector<Base> basiPossibili(const Fattura& fattura) {
  const Ranghi tutte =
      ranghi(fattura.linee, [](const Linea& l) { return genereLinea(l) != GenereLinea::Vuota; });
  const Ranghi soggette =
      ranghi(fattura.linee, [](const Linea& l) { return genereLinea(l) == GenereLinea::Soggetta; });
  const Ranghi senzaSpese = ranghi(fattura.linee, [](const Linea& l) {
    const GenereLinea genere = genereLinea(l);
    return genere != GenereLinea::Vuota && genere != GenereLinea::Spesa;
  });
  const Ranghi senzaN1 = ranghi(
      fattura.linee, [](const Linea& l) { return genereLinea(l) != GenereLinea::Vuota && l.natura != "N1"; });
  const Ranghi casse = ranghi(fattura.casse, [](const Cassa& c) { return c.ritenuta && !diEnasarco(c); });
  const Ranghi rivalse = ranghi(fattura.casse, [](const Cassa& c) { return !c.ritenuta && rivalsaInps(c); });

  std::vector<Base> esito;
  const auto aggiungi = [&](const Ranghi& linee, const Ranghi& conCasse) {
    if (linee.empty()) return;
    for (const bool sconto : {true, false}) {
      if (sconto && fattura.sconti.empty()) continue;
      const bool gia = std::any_of(esito.begin(), esito.end(), [&](const Base& una) {
        return una.linee == linee && una.casse == conCasse && una.sconto == sconto;
      });
      if (!gia) esito.push_back(baseDi(fattura, linee, conCasse, sconto));
    }
  };
  aggiungi(soggette, casse);
  aggiungi(senzaSpese, casse);
  aggiungi(senzaN1, casse);
  aggiungi(tutte, casse);
  aggiungi(soggette, unite(casse, rivalse));
  aggiungi(senzaSpese, unite(casse, rivalse));
  aggiungi(senzaN1, unite(casse, rivalse));
  aggiungi(soggette.empty() ? senzaSpese : soggette, {});
  // Beyond some lines one of them alone fits by chance.
  constexpr std::size_t kSingole = 50;
  for (std::size_t i = 0; i < tutte.size() && i < kSingole; ++i) {
    if (tutte.size() > 1) esito.push_back(baseDi(fattura, {tutte[i]}));
  }
  return esito;
}

std::optional<Riscontro> riscontra(const Base& base, const Ritenuta& ritenuta) {
  constexpr std::int64_t kCentesimo = 100;
  if (!ritenuta.importo || !ritenuta.aliquota || base.importo.isZero()) return std::nullopt;
  // Of no tax everything is the base.
  if (ritenuta.importo->isZero() || ritenuta.aliquota->isZero()) return std::nullopt;
  for (Riscontro& uno : quoteDi(ritenuta.causale, *ritenuta.aliquota)) {
    const Decimal imponibile = quotaPercentuale(base.importo.abs(), Decimal::fromInteger(uno.imponibile));
    uno.ritenuta = quotaPercentuale(imponibile, uno.aliquota);
    uno.scarto = (uno.ritenuta - ritenuta.importo->abs()).abs();
    if (uno.scarto <= Decimal::fromScaled(kCentesimo)) return uno;
  }
  return std::nullopt;
}

std::string spiega(const Fattura& fattura, const Base& base, const Riscontro& riscontro) {
  const Decimal linee = sommaLinee(fattura, base.linee);
  std::string testo = "compenso " + inEuro(linee.abs());
  if (base.sconto) {
    const Decimal sconto = scontoDi(fattura, linee.abs());
    testo += (sconto < Decimal() ? " - sconto " : " + maggiorazione ") + inEuro(sconto.abs());
  }
  for (const std::size_t i : base.casse) {
    const Cassa& cassa = fattura.casse[i];
    testo += (rivalsaInps(cassa) ? " + rivalsa INPS " : " + contributo cassa " + cassa.tipo + " ") +
             inEuro(cassa.importo.value_or(Decimal()).abs());
  }
  const Decimal quota = Decimal::fromInteger(riscontro.imponibile);
  const Decimal imponibile = quotaPercentuale(base.importo.abs(), quota);
  if (riscontro.imponibile == 100) {
    testo += " = imponibile ";
  } else {
    if (!base.casse.empty() || base.sconto) testo += " = " + inEuro(base.importo.abs());
    testo += ", imponibile al " + percentuale(quota) + " = ";
  }
  return testo + inEuro(imponibile) + "; " + percentuale(riscontro.aliquota) + " = " +
         inEuro(quotaPercentuale(imponibile, riscontro.aliquota));
}

}  // namespace cu::fatture
