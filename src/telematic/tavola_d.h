#pragma once

#include <array>

#include "telematic/tavola_celle.h"

namespace cu::telematico {

// Record D, the cells of one certificate. From 2016 the form asks for the merger of the municipality of
// residence, from 2017 for that of the year before as well, and what follows moves on by one.
inline constexpr auto kCelleD = [] {
  using enum Forma;
  using enum Condizione;
  // clang-format off
  return std::to_array<RigaCella>({
    {"DA001001", "CodiceFiscaleAz",                    Maiuscolo,       Sempre,                 kTutti},
    {"DA001002", "AnagraficaAz",                       Maiuscolo,       Sempre,                 kTutti},
    {"DA001003", "NomeAz",                             Maiuscolo,       Sempre,                 kTutti},
    {"DA001004", "ComuneAz",                           Testo,           Sempre,                 kTutti},
    {"DA001005", "SiglaProvinciaAz",                   Testo,           Sempre,                 kTutti},
    {"DA001006", "CapAz",                              Testo,           Sempre,                 kTutti},
    {"DA001007", "IndirizzoAz",                        Testo,           Sempre,                 kTutti},
    {"DA001008", "TelefonoAz",                         Telefono,        Sempre,                 kTutti,
                 Moduli::Primo, {"FaxAz"}},
    {"DA001009", "EMailInternetAz",                    Testo,           Sempre,                 kTutti},
    {"DA001010", "CodiceAttivita",                     Testo,           Sempre,                 kTutti},
    {"DA002001", "CodiceFiscale",                      Maiuscolo,       Sempre,                 kTutti},
    {"DA002002", "Anagrafica",                         Maiuscolo,       Sempre,                 kTutti},
    {"DA002003", "Nome",                               Maiuscolo,       PersonaFisica,          kTutti},
    {"DA002004", "Sesso",                              Maiuscolo,       Sempre,                 kTutti},
    {"DA002005", "DataNascita",                        Data,            Sempre,                 kTutti},
    {"DA002006", "ComuneNascita",                      Testo,           Sempre,                 kTutti},
    {"DA002007", "ProvinciaNascita",                   Testo,           Sempre,                 kTutti},
    {"DA002008", "CodiceCategoriaParticolare",         Testo,           Sempre,                 kTutti},
    {"DA002009", "CodiceEventoEccezionale",            Destra,          Sempre,                 kTutti},
    {"DA002020", "ComuneResidenzaAnnoPrec",            Testo,           Sempre,                 kTutti},
    {"DA002021", "SiglaProvResidenzaAnnoPrec",         Testo,           Sempre,                 kTutti},
    {"DA002022", "CodiceComuneDiNascitaPrec",          Testo,           Sempre,                 kTutti},
    {"DA002023", "FusioneComuniAnnoPrec",              Testo,           Sempre,                 dal(2017)},
    {"DA002023", "ComuneResidenzaAnnoCorr",            Testo,           Sempre,                 finoAl(2016)},
    {"DA002024", "ComuneResidenzaAnnoCorr",            Testo,           Sempre,                 dal(2017)},
    {"DA002024", "SiglaProvResidenzaAnnoCorr",         Testo,           Sempre,                 finoAl(2016)},
    {"DA002025", "SiglaProvResidenzaAnnoCorr",         Testo,           Sempre,                 dal(2017)},
    {"DA002025", "CodiceComuneDiNascitaCorr",          Testo,           Sempre,                 finoAl(2016)},
    {"DA002026", "CodiceComuneDiNascitaCorr",          Testo,           Sempre,                 dal(2017)},
    {"DA002026", "FusioneComuni",                      Testo,           Sempre,                 nel(2016)},
    {"DA002027", "FusioneComuni",                      Testo,           Sempre,                 dal(2017)},
    {"DA002030", "CodiceFiscaleRappresentante",        Maiuscolo,       Sempre,                 kTutti},
    {"DA002040", "CodiceIdentificazioneFiscaleEstero", Testo,           NonResidente,           kTutti},
    {"DA002041", "ComuneRes",                          Testo,           NonResidente,           kTutti},
    {"DA002042", "Indirizzo",                          Testo,           NonResidente,           kTutti},
    {"DA002043", "PrefissoInternazionaleRes",          RifilatoADestra, NonResidente,           nel(2014)},
    {"DA002043", "",                                   Uno,             NonResidenteSchumacker, dal(2015)},
    {"DA002044", "PrefissoInternazionaleRes",          RifilatoADestra, NonResidente,           dal(2015)},
    {"DA003001", "",                                   DataFirma,       Sempre,                 kTutti},
    {"DA003002", "",                                   Uno,             Sempre,                 kTutti},
  });
  // clang-format on
}();

static_assert(inOrdine(kCelleD));

}  // namespace cu::telematico
