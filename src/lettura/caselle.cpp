#include "lettura/caselle.h"

#include <algorithm>

#include "base/ascii.h"
#include "liste/codici_per_anno.h"
#include "modello/modello.h"

namespace cu::lettura {

using modello::Forma;
using modello::Quadro;
using modello::Record;

namespace {

// Boxes of the form that this system never fills.
inline constexpr auto kSoloDiAltri = [] {
  using enum Quadro;
  using enum modello::Forma;
  constexpr auto Sempre = modello::Condizione::Sempre;
  constexpr auto Ogni = modello::Moduli::Ogni;
  // clang-format off
  return std::to_array<modello::Campo>({
    {Azienda,     11, "CodiceSede",                           Testo,     Sempre, modello::kTutti},
    {Azienda,     12, "CodiceFiscaleCasiParticolari",         Maiuscolo, Sempre, modello::dal(2021)},
    {Percipiente, 10, "CasiEsclusionePrecompilata",           Destra,    Sempre, modello::dal(2019)},
    {Percipiente, 11, "StatoEstero",                          Destra,    Sempre, modello::dal(2022)},
    // Of the forms whose boxes are known by name or number alone.
    {Percipiente, 42, "LuogoDiAttinenza",                     Testo,     Sempre, modello::dal(2024)},
    {Percipiente, 44, "NonResidenteSchumacker",               Testo,     Sempre, modello::dal(2024)},
    {Autonomo,    21, "RitenuteRimborsate",                   Importo,   Sempre, modello::dal(2024)},
    {Autonomo,    31, "TipoDiRapporto",                       Testo,     Sempre, modello::dal(2024), Ogni},
    {Autonomo,    40, "FranchigiaUtilizzata",                 Testo,     Sempre, modello::dal(2024), Ogni},
    {Autonomo,    41, "SommeCorrispostePreFallimento",        Importo,   Sempre, modello::dal(2024)},
    {Autonomo,    42, "SommeCorrisposteDalCuratore",          Importo,   Sempre, modello::dal(2024)},
    {Autonomo,    71, "CodiceFiscaleLavoroAutonomo",          Maiuscolo, Sempre, modello::dal(2024)},
    {Autonomo,    72, "CodiceFiscalePignoramentoTerzi",       Maiuscolo, Sempre, modello::dal(2024)},
    {Autonomo,    73, "CodiceFiscaleIndennitaEsproprio",      Maiuscolo, Sempre, modello::dal(2022)},
    {Autonomo,   131, "IndennitaEsproprioSommeCorrisposte1",  Importo,   Sempre, modello::dal(2022), Ogni},
    {Autonomo,   132, "IndennitaEsproprioRitenuteOperate1",   Importo,   Sempre, modello::dal(2022), Ogni},
    {Autonomo,   133, "AltreIndennitaSommeCorrisposte1",      Importo,   Sempre, modello::dal(2022), Ogni},
    {Autonomo,   134, "AltreIndennitaRitenuteOperate1",       Importo,   Sempre, modello::dal(2022), Ogni},
    {Autonomo,   135, "IndennitaEsproprioSommeCorrisposte2",  Importo,   Sempre, modello::dal(2022), Ogni},
    {Autonomo,   136, "IndennitaEsproprioRitenuteOperate2",   Importo,   Sempre, modello::dal(2022), Ogni},
    {Autonomo,   137, "AltreIndennitaSommeCorrisposte2",      Importo,   Sempre, modello::dal(2022), Ogni},
    {Autonomo,   138, "AltreIndennitaRitenuteOperate2",       Importo,   Sempre, modello::dal(2022), Ogni},
  });
  // clang-format on
}();

// Each with a blank behind it. The last ones no longer exist: of Sardinia until 2016, the older signs of
// Forlì and Pesaro, and Fiume, Pola and Zara, where people were born.
constexpr std::string_view kProvince =
    "AG AL AN AO AP AQ AR AT AV BA BG BI BL BN BO BR BS BT BZ CA CB CE CH CL CN CO CR CS CT CZ "
    "EN FC FE FG FI FM FR GE GO GR IM IS KR LC LE LI LO LT LU MB MC ME MI MN MO MS MT NA NO NU "
    "OR PA PC PD PE PG PI PN PO PR PT PU PV PZ RA RC RE RG RI RM RN RO SA SI SO SP SR SS SU SV "
    "TA TE TN TO TP TR TS TV UD VA VB VC VE VI VR VT VV "
    "CI OG OT VS FO PS FU PL ZA ";

constexpr std::size_t kLettere = 26;
constexpr bool isUpper(char c) { return c >= 'A' && c <= 'Z'; }
constexpr std::size_t postoDi(std::string_view sigla) {
  return static_cast<std::size_t>(sigla[0] - 'A') * kLettere + static_cast<std::size_t>(sigla[1] - 'A');
}
constexpr auto kProvincia = [] {
  std::array<bool, kLettere * kLettere> note{};
  for (std::size_t i = 0; i + 2 < kProvince.size(); i += 3) note.at(postoDi(kProvince.substr(i, 2))) = true;
  return note;
}();

std::size_t indice(Quadro quadro) { return static_cast<std::size_t>(quadro); }

}  // namespace

Natura natura(const modello::Campo& campo) {
  switch (campo.forma) {
    case Forma::Maiuscolo:
      if (campo.colonna.find("CodiceFiscale") != std::string_view::npos) return Natura::CodiceFiscale;
      break;
    case Forma::Testo:
      if (campo.colonna.starts_with("SiglaProv")) return Natura::Provincia;
      if (campo.colonna == "ProvinciaNascita") return Natura::ProvinciaNascita;
      break;
    case Forma::Destra:
    case Forma::RifilatoADestra:
    case Forma::CodiceNonSoggetti:
      return Natura::Numero;
    case Forma::Intero:
      return Natura::Anno;
    case Forma::Data:
    case Forma::DataFirma:
      return Natura::Data;
    case Forma::Uno:
    case Forma::Flag:
      return Natura::Flag;
    case Forma::Importo:
    case Forma::Somma:
      return Natura::Importo;
    case Forma::ImportoConSegno:
      return Natura::ImportoConSegno;
    case Forma::Telefono:
    case Forma::CodicePressoEnte:
      break;
  }
  return Natura::Testo;
}

bool aDestra(Natura natura) {
  switch (natura) {
    case Natura::Numero:
    case Natura::Anno:
    case Natura::Flag:
    case Natura::Data:
    case Natura::Importo:
    case Natura::ImportoConSegno:
      return true;
    case Natura::Testo:
    case Natura::CodiceFiscale:
    case Natura::Provincia:
    case Natura::ProvinciaNascita:
      break;
  }
  return false;
}

Caselle::Caselle(std::optional<std::int32_t> anno, const modello::Modello& modello) {
  const auto delAnno = [&](const modello::Campo& campo) {
    return campo.anni.comprende(modello::annoTracciato(anno.value_or(modello.noti.ultimo), modello)) ||
           (!anno && campo.anni.primo <= modello.noti.ultimo);
  };
  for (const modello::Campo& campo : modello.campi) {
    if (campo.numero > 0 && haCella(campo, record(campo.quadro)) && delAnno(campo)) aggiungi(campo);
  }
  for (const modello::Campo& campo : kSoloDiAltri) {
    if (delAnno(campo)) aggiungi(campo);
  }
}

void Caselle::aggiungi(const modello::Campo& campo) {
  std::int16_t& posto = posto_.at(indice(campo.quadro)).at(static_cast<std::size_t>(campo.numero));
  const Natura sua = natura(campo);
  if (posto == 0) {
    caselle_.push_back({campo.quadro, campo.numero, sua, false, false});
    posto = static_cast<std::int16_t>(caselle_.size());
  }
  Casella& casella = caselle_[static_cast<std::size_t>(posto) - 1];
  if (casella.natura != sua) casella.natura = Natura::Testo;
  casella.primoModulo = casella.primoModulo || inModulo(campo, true);
  casella.altriModuli = casella.altriModuli || inModulo(campo, false);
}

const Casella* Caselle::trova(Record record, std::string_view codice) const {
  if (codice.size() != modello::kLunghezzaCodice) return nullptr;
  if (!isDigit(codice[5]) || !isDigit(codice[6]) || !isDigit(codice[7])) return nullptr;
  for (const Quadro quadro : {Quadro::Azienda, Quadro::Percipiente, Quadro::Firma, Quadro::Autonomo}) {
    if (modello::record(quadro) != record || !codice.starts_with(modello::prefisso(quadro))) continue;
    const int numero = (codice[5] - '0') * 100 + (codice[6] - '0') * 10 + (codice[7] - '0');
    if (static_cast<std::size_t>(numero) >= kNumeri) return nullptr;
    const std::int16_t posto = posto_.at(indice(quadro)).at(static_cast<std::size_t>(numero));
    return posto == 0 ? nullptr : &caselle_[static_cast<std::size_t>(posto) - 1];
  }
  return nullptr;
}

bool provincia(std::string_view sigla) {
  return sigla.size() == 2 && isUpper(sigla[0]) && isUpper(sigla[1]) && kProvincia[postoDi(sigla)];
}

bool causaleDellAnno(std::string_view causale, std::int32_t anno) {
  const Validita sua = causaliPerAnno().di(causale, anno);
  return sua == Validita::Nota || sua == Validita::Dubbia;
}

}  // namespace cu::lettura
