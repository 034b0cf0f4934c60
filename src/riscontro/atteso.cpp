#include "riscontro/atteso.h"

#include <algorithm>

#include "base/ascii.h"
#include "base/text.h"
#include "base/windows1252.h"
#include "modello/regole.h"

namespace cu::riscontro {

using modello::Campo;
using modello::Condizione;
using modello::Forma;

namespace {

std::string maiuscolo(const CellView& cella) {
  return da1252(trimRight(maiuscolo1252(a1252(cella.toText()))));
}

bool vero(const CellView& cella) {
  return cella.type() == ValueType::Decimal ? !cella.decimal().isZero() : cella.flag();
}

std::string importo(Decimal valore) { return valore.isZero() ? std::string() : valore.toFixed(2, ','); }

std::string telefono(const CellView& numero, const CellView& fax) {
  const auto pulito = [](const CellView& cella) {
    std::string cifre = testoNelFile(cella);
    std::erase_if(cifre,
                  [](char c) { return std::string_view(" -/\\().+").find(c) != std::string_view::npos; });
    return cifre;
  };
  const std::string suo = pulito(numero);
  const bool numerico = !suo.empty() && std::all_of(suo.begin(), suo.end(), isDigit);
  // A comma or an exponent may be part of a number.
  const bool altro =
      !suo.empty() && isDigit(suo.front()) && suo.find_first_not_of("0123456789,eE") == std::string::npos;
  return numerico || (altro && isDigit(suo.back())) ? suo : pulito(fax);
}

}  // namespace

std::string testoNelFile(const CellView& cella) {
  std::string testo = cella.toText();
  if (soloAscii(testo)) {
    testo.resize(trimRight(testo).size());
    return testo;
  }
  return da1252(trimRight(a1252(testo)));
}

std::string CelleAttese::codiceNonSoggetti(const RigaConto& riga, const Casella& casella) const {
  std::string scelto = testoNelFile(riga.a(casella.colonna));
  if (!scelto.empty()) return scelto;
  const Decimal somme = riga.a(casella.altre[0]).decimal() + riga.a(casella.altre[1]).decimal();
  return somme.isZero()
             ? std::string()
             : std::string(modello::codiceNonSoggetti(riga.a(casella.altre[2]).integer(), modello_));
}

std::string CelleAttese::valore(const RigaConto& riga, const Casella& casella) const {
  const CellView cella = riga.a(casella.colonna);
  switch (casella.campo->forma) {
    case Forma::Testo:
      return testoNelFile(cella);
    case Forma::Maiuscolo:
      return maiuscolo(cella);
    case Forma::Destra:
    case Forma::RifilatoADestra:
    case Forma::Intero:
      return std::string(trim(testoNelFile(cella)));
    case Forma::Data:
      return cella.isNull() ? std::string() : cella.date().toDdmmyyyy();
    case Forma::DataFirma:
      return {};  // not in the accounts
    case Forma::Telefono:
      return telefono(cella, riga.a(casella.altre[0]));
    case Forma::Uno:
      return "1";
    case Forma::Flag:
      return vero(cella) ? "1" : "";
    case Forma::Importo:
    case Forma::ImportoConSegno:
      return importo(cella.decimal());
    case Forma::Somma:
      return importo(cella.decimal() + riga.a(casella.altre[0]).decimal());
    case Forma::CodiceNonSoggetti:
      return codiceNonSoggetti(riga, casella);
    case Forma::CodicePressoEnte:
      return testoNelFile(riga.a(casella.altre.at(modello::fontePressoEnte(cella.integer()))));
  }
  return {};
}

CelleAttese::CelleAttese(modello::Record record, std::int32_t anno, bool primoModulo,
                         const modello::Modello& modello)
    : modello_(modello) {
  const std::int32_t tracciato = modello::annoTracciato(anno, modello);
  for (const Campo& campo : modello.campi) {
    if (!haCella(campo, record) || !modello::vale(campo, tracciato, primoModulo)) continue;
    const modello::Codice codice = modello::codice(campo);
    caselle_.push_back({&campo, std::string(codice.data(), codice.size()), Columns::kNone, {}});
  }
}

void CelleAttese::lega(const Columns& colonne) {
  const auto trova = [&](std::string_view nome) {
    return nome.empty() ? Columns::kNone : colonne.find(nome);
  };
  condizioni_ = {trova("PersonaFisica"), trova("NonResidente"), trova("NonResidenteSchumacker"),
                 trova("Anticipazione"), trova("Codice")};
  contributi_.clear();
  for (Casella& casella : caselle_) {
    const Campo& campo = *casella.campo;
    casella.colonna = trova(campo.colonna);
    std::transform(campo.altre.begin(), campo.altre.end(), casella.altre.begin(), trova);
    if (campo.condizione == Condizione::BloccoC && genere(campo.forma) == modello::Genere::Importo) {
      contributi_.push_back(casella.colonna);
    }
  }
}

bool CelleAttese::vale(Condizione condizione, const RigaConto& riga) const {
  switch (condizione) {
    case Condizione::Sempre:
      return true;
    case Condizione::PersonaFisica:
      return vero(riga.a(condizioni_.personaFisica));
    case Condizione::NonResidente:
      return vero(riga.a(condizioni_.nonResidente));
    case Condizione::Schumacker:
      return vero(riga.a(condizioni_.nonResidente)) && vero(riga.a(condizioni_.schumacker));
    case Condizione::AnnoDovuto:
      return vero(riga.a(condizioni_.anticipazione)) ||
             modello::chiedeAnno(riga.a(condizioni_.causale).toText());
    case Condizione::CausaleN:
      return modello::haAddizionali(riga.a(condizioni_.causale).toText());
    case Condizione::BloccoC:
      return std::any_of(contributi_.begin(), contributi_.end(),
                         [&](std::size_t colonna) { return !riga.a(colonna).decimal().isZero(); });
    case Condizione::NonNelFile:
      break;
  }
  return false;
}

std::vector<lettura::Valore> CelleAttese::di(const RigaConto& riga) const {
  std::vector<lettura::Valore> celle;
  for (const Casella& casella : caselle_) {
    if (!vale(casella.campo->condizione, riga)) continue;
    std::string suo = valore(riga, casella);
    if (!suo.empty()) celle.push_back({casella.codice, std::move(suo)});
  }
  return celle;
}

}  // namespace cu::riscontro
