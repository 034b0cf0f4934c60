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

// As the file's code page keeps it.
std::string testo(const CellView& cella) { return da1252(trimRight(a1252(cella.toText()))); }
std::string maiuscolo(const CellView& cella) {
  return da1252(trimRight(maiuscolo1252(a1252(cella.toText()))));
}

bool vero(const CellView& cella) {
  return cella.type() == ValueType::Decimal ? !cella.decimal().isZero() : cella.flag();
}

std::string importo(Decimal valore) { return valore.isZero() ? std::string() : valore.toFixed(2, ','); }

std::string telefono(const CellView& numero, const CellView& fax) {
  const auto pulito = [](const CellView& cella) {
    std::string cifre = testo(cella);
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

Decimal somma(const RigaConto& riga, const Campo& campo) {
  return riga[campo.colonna].decimal() + riga[campo.altre[0]].decimal();
}

std::string codiceNonSoggetti(const RigaConto& riga, const Campo& campo) {
  std::string scelto = testo(riga[campo.colonna]);
  if (!scelto.empty()) return scelto;
  const Decimal somme = riga[campo.altre[0]].decimal() + riga[campo.altre[1]].decimal();
  return somme.isZero() ? std::string()
                        : std::string(modello::codiceNonSoggetti(riga[campo.altre[2]].integer()));
}

std::string valore(const RigaConto& riga, const Campo& campo) {
  const CellView cella = riga[campo.colonna];
  switch (campo.forma) {
    case Forma::Testo:
      return testo(cella);
    case Forma::Maiuscolo:
      return maiuscolo(cella);
    case Forma::Destra:
    case Forma::RifilatoADestra:
    case Forma::Intero:
      return std::string(trim(testo(cella)));
    case Forma::Data:
      return cella.isNull() ? std::string() : cella.date().toDdmmyyyy();
    case Forma::DataFirma:
      return {};  // not in the accounts
    case Forma::Telefono:
      return telefono(cella, riga[campo.altre[0]]);
    case Forma::Uno:
      return "1";
    case Forma::Flag:
      return vero(cella) ? "1" : "";
    case Forma::Importo:
    case Forma::ImportoConSegno:
      return importo(cella.decimal());
    case Forma::Somma:
      return importo(somma(riga, campo));
    case Forma::CodiceNonSoggetti:
      return codiceNonSoggetti(riga, campo);
    case Forma::CodicePressoEnte:
      return testo(riga[campo.altre.at(modello::fontePressoEnte(cella.integer()))]);
  }
  return {};
}

}  // namespace

CellView RigaConto::operator[](std::string_view colonna) const {
  if (colonna.empty()) return {};
  const std::size_t ordinale = colonne_.find(colonna);
  return ordinale == Columns::kNone ? CellView() : celle_[ordinale];
}

CelleAttese::CelleAttese(modello::Record record, std::int32_t anno, bool primoModulo) {
  const std::int32_t tracciato = modello::annoTracciato(anno);
  for (const Campo& campo : modello::kModello.campi) {
    if (haCella(campo, record) && modello::vale(campo, tracciato, primoModulo)) campi_.push_back(&campo);
  }
}

bool CelleAttese::vale(Condizione condizione, const RigaConto& riga) const {
  switch (condizione) {
    case Condizione::Sempre:
      return true;
    case Condizione::PersonaFisica:
      return vero(riga["PersonaFisica"]);
    case Condizione::NonResidente:
      return vero(riga["NonResidente"]);
    case Condizione::Schumacker:
      return vero(riga["NonResidente"]) && vero(riga["NonResidenteSchumacker"]);
    case Condizione::AnnoDovuto:
      return vero(riga["Anticipazione"]) || modello::chiedeAnno(riga["Codice"].toText());
    case Condizione::CausaleN:
      return modello::haAddizionali(riga["Codice"].toText());
    case Condizione::BloccoC:
      return std::any_of(campi_.begin(), campi_.end(), [&](const Campo* campo) {
        const bool importo =
            campo->condizione == condizione && genere(campo->forma) == modello::Genere::Importo;
        return importo && !riga[campo->colonna].decimal().isZero();
      });
    case Condizione::NonNelFile:
      break;
  }
  return false;
}

std::vector<lettura::Valore> CelleAttese::di(const RigaConto& riga) const {
  std::vector<lettura::Valore> celle;
  for (const Campo* const campo : campi_) {
    if (!vale(campo->condizione, riga)) continue;
    std::string suo = valore(riga, *campo);
    if (suo.empty()) continue;
    const modello::Codice codice = modello::codice(*campo);
    celle.push_back({std::string(codice.data(), codice.size()), std::move(suo)});
  }
  return celle;
}

}  // namespace cu::riscontro
