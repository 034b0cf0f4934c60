#include "telematic/scrittore_celle.h"

#include <algorithm>
#include <cmath>

#include "base/error.h"
#include "base/text.h"
#include "base/windows1252.h"
#include "modello/regole.h"
#include "telematic/formatta.h"

namespace cu::telematico {

using modello::Condizione;
using modello::Forma;

namespace {

constexpr std::uint8_t bit(Condizione condizione) {
  return static_cast<std::uint8_t>(1U << static_cast<unsigned>(condizione));
}

bool vero(const CellView& cella) {
  return cella.type() == ValueType::Decimal ? !cella.decimal().isZero() : cella.flag();
}

bool nonZero(const CellView& cella) { return !cella.isNull() && !cella.decimal().isZero(); }

// Returns false when the sum exceeds an amount's range.
bool somma(const CellView& a, const CellView& b, Decimal& risultato) {
  const Decimal x = a.decimal();
  const Decimal y = b.decimal();
  constexpr double kLimite = 9.2e18;
  if (std::fabs(static_cast<double>(x.scaled()) + static_cast<double>(y.scaled())) > kLimite) return false;
  risultato = x + y;
  return true;
}

std::uint16_t trova(const Columns& colonne, std::string_view nome) {
  const std::size_t ordinale = colonne.find(nome);
  if (ordinale == Columns::kNone) {
    throw Error(kErrorItemNotFound, "Il campo \"" + std::string(nome) + "\" non esiste nel risultato.");
  }
  return static_cast<std::uint16_t>(ordinale);
}

}  // namespace

ScrittoreCelle::ScrittoreCelle(const modello::Modello& modello, modello::Record record, std::int32_t gAnno,
                               bool primoModulo)
    : modello_(modello) {
  const std::int32_t anno = modello::annoTracciato(gAnno, modello);
  for (const modello::Campo& campo : modello.campi) {
    if (!haCella(campo, record) || !vale(campo, anno, primoModulo)) continue;
    Passo passo;
    passo.codice = codice(campo);
    passo.forma = campo.forma;
    passo.condizione = bit(campo.condizione);
    passo.campo = &campo;
    condizioniUsate_ |= passo.condizione;
    passi_.push_back(passo);
  }
}

bool ScrittoreCelle::stesse(const Columns& colonne) const {
  if (!legato_ || colonne.size() != nomiLegati_.size()) return false;
  for (std::size_t i = 0; i < nomiLegati_.size(); ++i) {
    if (colonne[i].name != nomiLegati_[i]) return false;
  }
  return true;
}

bool ScrittoreCelle::serve(Condizione condizione) const { return (condizioniUsate_ & bit(condizione)) != 0; }

void ScrittoreCelle::lega(const Columns& colonne) {
  if (stesse(colonne)) return;
  legato_ = false;
  for (Passo& passo : passi_) {
    if (!fonte(*passo.campo).empty()) passo.colonne[0] = trova(colonne, passo.campo->colonna);
    for (std::size_t i = 0; i < passo.campo->altre.size(); ++i) {
      if (!passo.campo->altre[i].empty()) passo.colonne[i + 1] = trova(colonne, passo.campo->altre[i]);
    }
  }
  using enum Condizione;
  if (serve(PersonaFisica)) colonne_.personaFisica = trova(colonne, "PersonaFisica");
  if (serve(NonResidente) || serve(Schumacker)) {
    colonne_.nonResidente = trova(colonne, "NonResidente");
  }
  if (serve(Schumacker)) colonne_.schumacker = trova(colonne, "NonResidenteSchumacker");
  if (serve(AnnoDovuto)) colonne_.anticipazione = trova(colonne, "Anticipazione");
  if (serve(AnnoDovuto) || serve(CausaleN)) colonne_.codice = trova(colonne, "Codice");
  if (serve(BloccoC)) {
    colonne_.contributi.clear();
    for (const Passo& passo : passi_) {
      const bool importo = genere(passo.forma) == modello::Genere::Importo;
      if (importo && passo.condizione == bit(BloccoC)) colonne_.contributi.push_back(passo.colonne[0]);
    }
  }
  nomiLegati_.clear();
  for (std::size_t i = 0; i < colonne.size(); ++i) nomiLegati_.push_back(colonne[i].name);
  legato_ = true;
}

std::uint8_t ScrittoreCelle::condizioni(const CellView* riga) const {
  using enum Condizione;
  unsigned veri = bit(Sempre);
  if (serve(PersonaFisica) && vero(riga[colonne_.personaFisica])) veri |= bit(PersonaFisica);
  if (serve(NonResidente) && vero(riga[colonne_.nonResidente])) {
    veri |= bit(NonResidente);
    if (serve(Schumacker) && vero(riga[colonne_.schumacker])) veri |= bit(Schumacker);
  }
  if (serve(AnnoDovuto)) {
    if (modello::chiedeAnno(riga[colonne_.codice].text()) || vero(riga[colonne_.anticipazione])) {
      veri |= bit(AnnoDovuto);
    }
  }
  if (serve(CausaleN) && modello::haAddizionali(riga[colonne_.codice].text())) veri |= bit(CausaleN);
  if (serve(BloccoC)) {
    const bool qualcuno = std::any_of(colonne_.contributi.begin(), colonne_.contributi.end(),
                                      [riga](Ordinale colonna) { return nonZero(riga[colonna]); });
    if (qualcuno) veri |= bit(BloccoC);
  }
  return static_cast<std::uint8_t>(veri);
}

std::string_view ScrittoreCelle::testo(const CellView& cella) {
  if (cella.type() != ValueType::Text) {
    if (cella.isNull()) return {};
    appoggio_ = cella.toText();
    return appoggio_;
  }
  const std::string_view utf8 = cella.text();
  if (soloAscii(utf8)) return utf8;
  if (appoggio_.size() < utf8.size()) appoggio_.resize(utf8.size());
  return {appoggio_.data(), a1252(utf8, appoggio_.data())};
}

std::string_view ScrittoreCelle::maiuscolo(const CellView& cella) {
  const std::string_view valore = testo(cella);
  if (appoggio_.size() < valore.size()) appoggio_.resize(valore.size());
  std::transform(valore.begin(), valore.end(), appoggio_.begin(), maiuscola1252);
  return {appoggio_.data(), valore.size()};
}

std::string_view ScrittoreCelle::pulito(const CellView& cella) {
  const std::string_view valore = testo(cella);
  if (appoggio_.size() < valore.size()) appoggio_.resize(valore.size());
  return {appoggio_.data(), togliSeparatori(valore, appoggio_.data())};
}

Guasto::Motivo ScrittoreCelle::sinistra(const Passo& passo, std::string_view valore, Celle& celle) {
  const bool scritto = celle.fnScriviCampo(passo.codice.data(), valore.data(), valore.size());
  return scritto ? Motivo::Nessuno : Motivo::CelleEsaurite;
}

Guasto::Motivo ScrittoreCelle::destra(const Passo& passo, std::string_view valore, Celle& celle) {
  if (valore.empty()) return Motivo::Nessuno;
  if (valore.size() > kLunghezzaValore) return Motivo::TroppoLungo;
  const bool scritto = celle.scriviADestra(passo.codice.data(), valore.data(), valore.size());
  return scritto ? Motivo::Nessuno : Motivo::CelleEsaurite;
}

Guasto::Motivo ScrittoreCelle::importo(const Passo& passo, Decimal valore, Celle& celle) {
  if (valore.isZero()) return Motivo::Nessuno;
  std::array<char, 24> cifre;
  return destra(passo, {cifre.data(), valore.toFixed(2, ',', cifre.data())}, celle);
}

Guasto::Motivo ScrittoreCelle::data(const Passo& passo, const CellView& cella, Celle& celle) {
  if (cella.isNull()) return Motivo::Nessuno;
  if (cella.type() == ValueType::Text && !Date::parseIso(cella.text()) && !Date::parseItalian(cella.text())) {
    return destra(passo, testo(cella), celle);
  }
  std::array<char, 8> cifre;
  giornoMeseAnno(cella.date(), cifre.data());
  return destra(passo, {cifre.data(), cifre.size()}, celle);
}

Guasto::Motivo ScrittoreCelle::telefono(const Passo& passo, const CellView* riga, Celle& celle) {
  const std::string_view numero = pulito(riga[passo.colonne[0]]);
  return sinistra(passo, numerico(numero) ? numero : pulito(riga[passo.colonne[1]]), celle);
}

Guasto::Motivo ScrittoreCelle::codiceNonSoggetti(const Passo& passo, const CellView* riga, Celle& celle) {
  const std::string_view scelto = testo(riga[passo.colonne[0]]);
  if (!scelto.empty()) return destra(passo, scelto, celle);
  Decimal nonSoggette;
  if (!somma(riga[passo.colonne[1]], riga[passo.colonne[2]], nonSoggette)) return Motivo::TroppoLungo;
  if (nonSoggette.isZero()) return Motivo::Nessuno;
  return destra(passo, modello::codiceNonSoggetti(riga[passo.colonne[3]].integer(), modello_), celle);
}

Guasto::Motivo ScrittoreCelle::esegui(const Passo& passo, const CellView* riga, std::string_view dataFirma,
                                      Celle& celle) {
  const CellView& cella = riga[passo.colonne[0]];
  switch (passo.forma) {
    case Forma::Testo:
      return sinistra(passo, testo(cella), celle);
    case Forma::Maiuscolo:
      return sinistra(passo, maiuscolo(cella), celle);
    case Forma::Destra:
    case Forma::Intero:
      return destra(passo, testo(cella), celle);
    case Forma::RifilatoADestra:
      return destra(passo, trim(testo(cella)), celle);
    case Forma::Data:
      return data(passo, cella, celle);
    case Forma::DataFirma:
      return destra(passo, dataFirma, celle);
    case Forma::Telefono:
      return telefono(passo, riga, celle);
    case Forma::Uno:
      return destra(passo, "1", celle);
    case Forma::Flag:
      return vero(cella) ? destra(passo, "1", celle) : Motivo::Nessuno;
    case Forma::Importo:
    case Forma::ImportoConSegno:
      return cella.isNull() ? Motivo::Nessuno : importo(passo, cella.decimal(), celle);
    case Forma::Somma: {
      Decimal totale;
      return somma(cella, riga[passo.colonne[1]], totale) ? importo(passo, totale, celle)
                                                          : Motivo::TroppoLungo;
    }
    case Forma::CodiceNonSoggetti:
      return codiceNonSoggetti(passo, riga, celle);
    case Forma::CodicePressoEnte:
      break;
  }
  const std::size_t scelta = modello::fontePressoEnte(cella.integer());
  return sinistra(passo, testo(riga[passo.colonne[1 + scelta]]), celle);
}

Guasto ScrittoreCelle::scrivi(const CellView* riga, std::string_view dataFirma, Celle& celle) {
  if (!legato_) throw Error(kErrorObjectNotSet, "Le colonne della query non sono note.");
  celle.vuota();
  const std::uint8_t veri = condizioni(riga);
  for (const Passo& passo : passi_) {
    if ((veri & passo.condizione) == 0) continue;
    const Motivo motivo = esegui(passo, riga, dataFirma, celle);
    if (motivo != Motivo::Nessuno) return {motivo, passo.campo};
  }
  return {};
}

}  // namespace cu::telematico
