#include "intake/mancanti.h"

#include <functional>
#include <span>
#include <string_view>

#include "base/text.h"

namespace cu::intake {
namespace {

// Of the column that the check looks at: whether it would be blank.
using Vuota = std::function<bool(std::string_view colonna)>;

std::vector<Mancanza> nonPassati(std::span<const Requisito> requisiti, const Vuota& vuota,
                                 const std::function<bool(SoggettoRequisito)>& riguarda) {
  std::vector<Mancanza> trovate;
  for (const Requisito& requisito : requisiti) {
    if (vuota(requisito.colonna) && riguarda(requisito.soggetto)) trovate.push_back(&requisito);
  }
  return trovate;
}

}  // namespace

std::vector<Mancanza> mancanze(const schede::SchedaAzienda& azienda, const schede::Luoghi& luoghi) {
  const schede::Luogo* const comune = luoghi.comuneDiId(azienda.sede.idComune);
  const auto vuota = [&](std::string_view colonna) {
    if (colonna == "CodFisc") return azienda.sede.codiceFiscale.empty() && azienda.sede.partitaIva.empty();
    if (colonna == "ComuneAz") return comune == nullptr || comune->nome.empty();
    if (colonna == "SiglaProvinciaAz") return comune == nullptr || comune->provincia.empty();
    if (colonna == "NomeAz") return azienda.sede.nome.empty();
    if (colonna == "CodiceFiscaleRapp") return azienda.rappresentante.codiceFiscale.empty();
    if (colonna == "CodiceCarica") return azienda.idCarica == 0;
    if (colonna == "AnagraficaRapp") return azienda.rappresentante.anagrafica.empty();
    return azienda.rappresentante.nome.empty();
  };
  return nonPassati(kRequisitiAzienda, vuota, [&](SoggettoRequisito soggetto) {
    if (soggetto == SoggettoRequisito::Ogni) return true;
    return (soggetto == SoggettoRequisito::PersonaFisica) == azienda.sede.personaFisica;
  });
}

std::vector<Mancanza> mancanze(const schede::SchedaPercipiente& percipiente, const schede::Luoghi& luoghi) {
  const schede::SchedaAnagrafica& a = percipiente.anagrafica;
  const auto vuota = [&](std::string_view colonna) {
    if (colonna == "CodiceFiscale") return a.codiceFiscale.empty() && a.partitaIva.empty();
    if (colonna == "Anagrafica") return a.anagrafica.empty();
    if (colonna == "Nome") return a.nome.empty();
    if (colonna == "Sesso") return a.sesso.empty();
    if (colonna == "DataNascita") return a.nascita == Date();
    if (colonna == "ComuneNascita") return a.idComuneNascita == 0;
    return a.idNazione == 0;
  };
  const schede::Luogo* const nazione = luoghi.nazioneDiId(a.idNazionalita);
  const bool natoInItalia = nazione == nullptr || equalsNoCase(nazione->nome, "ITALIA");
  return nonPassati(kRequisitiPercipiente, vuota, [&](SoggettoRequisito soggetto) {
    switch (soggetto) {
      case SoggettoRequisito::Ogni:
        return true;
      case SoggettoRequisito::PersonaFisica:
        return a.personaFisica;
      case SoggettoRequisito::NonPersonaFisica:
        return !a.personaFisica;
      case SoggettoRequisito::NatoInItalia:
        return a.personaFisica && natoInItalia;
      case SoggettoRequisito::NonResidente:
        break;
    }
    return percipiente.nonResidente;
  });
}

}  // namespace cu::intake
