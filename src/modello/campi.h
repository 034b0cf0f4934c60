#pragma once

#include <array>

#include "modello/campo.h"

namespace cu::modello {

// The form, box by box, by part and number. A box whose number or definition changes with the year has one
// row per variant.
inline constexpr auto kCampi = [] {
  using enum Quadro;
  using enum Forma;
  using enum Condizione;
  using enum Riscrittura;
  constexpr Moduli Primo = Moduli::Primo;
  constexpr Moduli Altri = Moduli::Altri;
  constexpr Moduli Ogni = Moduli::Ogni;
  // clang-format off
  return std::to_array<Campo>({
    // Company and payee. From 2016 the form contains the merger of the municipality of residence, from 2017
    // also that of the previous year; each shifts the following boxes by one.
    {Azienda,       1, "CodiceFiscaleAz",                      Maiuscolo,         Sempre,        kTutti,       Primo},
    {Azienda,       2, "AnagraficaAz",                         Maiuscolo,         Sempre,        kTutti,       Primo},
    {Azienda,       3, "NomeAz",                               Maiuscolo,         Sempre,        kTutti,       Primo},
    {Azienda,       4, "ComuneAz",                             Testo,             Sempre,        kTutti,       Primo},
    {Azienda,       5, "SiglaProvinciaAz",                     Testo,             Sempre,        kTutti,       Primo},
    {Azienda,       6, "CapAz",                                Testo,             Sempre,        kTutti,       Primo},
    {Azienda,       7, "IndirizzoAz",                          Testo,             Sempre,        kTutti,       Primo},
    {Azienda,       8, "TelefonoAz",                           Telefono,          Sempre,        kTutti,       Primo, No,
          "", {"FaxAz"}},
    {Azienda,       9, "EMailInternetAz",                      Testo,             Sempre,        kTutti,       Primo},
    {Azienda,      10, "CodiceAttivita",                       Testo,             Sempre,        kTutti,       Primo},
    {Percipiente,   1, "CodiceFiscale",                        Maiuscolo,         Sempre,        kTutti,       Primo},
    {Percipiente,   2, "Anagrafica",                           Maiuscolo,         Sempre,        kTutti,       Primo},
    {Percipiente,   3, "Nome",                                 Maiuscolo,         PersonaFisica, kTutti,       Primo},
    {Percipiente,   4, "Sesso",                                Maiuscolo,         Sempre,        kTutti,       Primo},
    {Percipiente,   5, "DataNascita",                          Data,              Sempre,        kTutti,       Primo},
    {Percipiente,   6, "ComuneNascita",                        Testo,             Sempre,        kTutti,       Primo},
    {Percipiente,   7, "ProvinciaNascita",                     Testo,             Sempre,        kTutti,       Primo},
    {Percipiente,   8, "CodiceCategoriaParticolare",           Testo,             Sempre,        kTutti,       Primo},
    {Percipiente,   9, "CodiceEventoEccezionale",              Destra,            Sempre,        kTutti,       Primo},
    {Percipiente,  20, "ComuneResidenzaAnnoPrec",              Testo,             Sempre,        kTutti,       Primo, Dati,
          "IDComuneResidenzaAnnoPrec"},
    {Percipiente,  21, "SiglaProvResidenzaAnnoPrec",           Testo,             Sempre,        kTutti,       Primo, Riga},
    {Percipiente,  22, "CodiceComuneDiNascitaPrec",            Testo,             Sempre,        kTutti,       Primo, Riga},
    {Percipiente,  23, "FusioneComuniAnnoPrec",                Testo,             Sempre,        dal(2017),    Primo, Dati},
    {Percipiente,  23, "ComuneResidenzaAnnoCorr",              Testo,             Sempre,        finoAl(2016), Primo, Dati,
          "IDComuneResidenzaAnnoCorr"},
    {Percipiente,  24, "ComuneResidenzaAnnoCorr",              Testo,             Sempre,        dal(2017),    Primo, Dati,
          "IDComuneResidenzaAnnoCorr"},
    {Percipiente,  24, "SiglaProvResidenzaAnnoCorr",           Testo,             Sempre,        finoAl(2016), Primo, Riga},
    {Percipiente,  25, "SiglaProvResidenzaAnnoCorr",           Testo,             Sempre,        dal(2017),    Primo, Riga},
    {Percipiente,  25, "CodiceComuneDiNascitaCorr",            Testo,             Sempre,        finoAl(2016), Primo, Riga},
    {Percipiente,  26, "CodiceComuneDiNascitaCorr",            Testo,             Sempre,        dal(2017),    Primo, Riga},
    {Percipiente,  26, "FusioneComuni",                        Testo,             Sempre,        nel(2016),    Primo, Dati},
    {Percipiente,  27, "FusioneComuni",                        Testo,             Sempre,        dal(2017),    Primo, Dati},
    {Percipiente,  30, "CodiceFiscaleRappresentante",          Maiuscolo,         Sempre,        kTutti,       Primo},
    {Percipiente,  40, "CodiceIdentificazioneFiscaleEstero",   Testo,             NonResidente,  kTutti,       Primo},
    {Percipiente,  41, "ComuneRes",                            Testo,             NonResidente,  kTutti,       Primo},
    // In 2024 a box comes before the foreign address and shifts it. What stands in 42 and 44 since then is not
    // attested: a payee who needs them is rejected.
    {Percipiente,  42, "Indirizzo",                            Testo,             NonResidente,  finoAl(2023), Primo},
    {Percipiente,  43, "PrefissoInternazionaleRes",            RifilatoADestra,   NonResidente,  nel(2014),    Primo},
    {Percipiente,  43, "NonResidenteSchumacker",               Uno,               Schumacker,    {2015, 2023}, Primo},
    {Percipiente,  43, "Indirizzo",                            Testo,             NonResidente,  dal(2024),    Primo},
    {Percipiente,  44, "PrefissoInternazionaleRes",            RifilatoADestra,   NonResidente,  {2015, 2023}, Primo},
    {Percipiente,  45, "PrefissoInternazionaleRes",            RifilatoADestra,   NonResidente,  dal(2024),    Primo},
    {Firma,         1, "",                                     DataFirma,         Sempre,        kTutti,       Primo},
    {Firma,         2, "",                                     Uno,               Sempre,        kTutti,       Primo},

    // The amounts. The form of 2014 has the contributions in 20 and 21; from 2015 they are block C in 29 to
    // 39, and the sections follow from 41. A box of the later forms ends with the last year for which it is
    // attested.
    {Autonomo,   0, "NumeroModulo",                         Intero,            NonNelFile,    kTutti,       Altri, Dati},
    {Autonomo,   1, "Codice",                               Maiuscolo,         Sempre,        kTutti,       Primo},
    {Autonomo,   2, "Anno",                                 Intero,            AnnoDovuto,    kTutti,       Primo},
    {Autonomo,   2, "AnnoModulo",                           Intero,            Sempre,        kTutti,       Altri, Dati},
    {Autonomo,   3, "Anticipazione",                        Flag,              Sempre,        kTutti,       Ogni, Dati},
    {Autonomo,   4, "AmmontareLordo",                       Importo,           Sempre,        kTutti,       Primo, Riga},
    {Autonomo,   5, "SommeRegimeConvenzionale",             Importo,           Sempre,        kTutti,       Primo, Riga},
    {Autonomo,   6, "CodicePerNonSoggetti",                 CodiceNonSoggetti, Sempre,        kTutti,       Primo, Dati,
          "IDCodicePerNonSoggetti", {"SommeNonSoggetteARitenuta", "QuotaProvvigioniNonSoggette", "Anno"}},
    {Autonomo,   6, "CodicePerNonSoggetti",                 Destra,            Sempre,        kTutti,       Altri, Dati,
          "IDCodicePerNonSoggetti"},
    {Autonomo,   7, "SommeNonSoggetteARitenuta",            Somma,             Sempre,        kTutti,       Primo, Riga,
          "", {"QuotaProvvigioniNonSoggette"}},
    {Autonomo,   7, "SommeNonSoggette",                     Importo,           Sempre,        kTutti,       Altri, Dati},
    {Autonomo,   8, "Imponibile",                           Importo,           Sempre,        kTutti,       Primo, Riga},
    {Autonomo,   9, "RitenuteAcconto",                      Importo,           Sempre,        kTutti,       Primo, Riga},
    {Autonomo,  10, "RitenuteImposta",                      Importo,           Sempre,        kTutti,       Primo, Riga},
    {Autonomo,  11, "RitenuteSospese",                      Importo,           Sempre,        kTutti,       Primo, Dati},
    {Autonomo,  12, "AddRegionAcconto",                     Importo,           CausaleN,      kTutti,       Primo, Dati},
    {Autonomo,  13, "AddRegionImposta",                     Importo,           CausaleN,      kTutti,       Primo, Dati},
    {Autonomo,  14, "AddRegionSospesa",                     Importo,           CausaleN,      kTutti,       Primo, Dati},
    {Autonomo,  15, "AddComunAcconto",                      Importo,           CausaleN,      kTutti,       Primo, Dati},
    {Autonomo,  16, "AddComunImposta",                      Importo,           CausaleN,      kTutti,       Primo, Dati},
    {Autonomo,  17, "AddComunSospesa",                      Importo,           CausaleN,      kTutti,       Primo, Dati},
    {Autonomo,  18, "ImponibileAnniPrecedenti",             Importo,           Sempre,        kTutti,       Primo, Dati},
    {Autonomo,  18, "ImponibileAnniPrec",                   Importo,           Sempre,        kTutti,       Altri, Dati},
    {Autonomo,  19, "RitenuteAnniPrecedenti",               Importo,           Sempre,        kTutti,       Primo, Dati},
    {Autonomo,  19, "RitenuteAnniPrec",                     Importo,           Sempre,        kTutti,       Altri, Dati},
    {Autonomo,  20, "ContributiCaricoAzienda",              Importo,           Sempre,        nel(2014),    Primo, Riga},
    {Autonomo,  20, "SpeseRimborsate",                      Importo,           Sempre,        dal(2015),    Primo, Riga},
    {Autonomo,  21, "ContributiCaricoPercipiente",          Importo,           Sempre,        nel(2014),    Primo, Riga},
    {Autonomo,  21, "RitenuteRimborsate",                   Importo,           Sempre,        {2015, 2023}, Primo, Dati},
    {Autonomo,  22, "SpeseRimborsate",                      Importo,           Sempre,        nel(2014),    Primo, Riga},
    {Autonomo,  22, "SommeRestituite",                      Importo,           Sempre,        dal(2022),    Primo, Propria},
    {Autonomo,  23, "RitenuteRimborsate",                   Importo,           Sempre,        nel(2014),    Primo, Dati},
    {Autonomo,  29, "CUCodiceFiscale",                      Maiuscolo,         BloccoC,       dal(2015),    Ogni},
    {Autonomo,  30, "CUDenominazioneEntePrevidenziale",     Testo,             BloccoC,       dal(2015),    Ogni},
    {Autonomo,  31, "CUCodiceEntePrevidenziale",            Testo,             BloccoC,       nel(2015),    Ogni},
    {Autonomo,  32, "IDCUEntePrevidenziale",                CodicePressoEnte,  BloccoC,       nel(2015),    Primo, No,
          "", {"CUCodiceEntePrevidenziale", "CodiceAzPressoENPAM", "CodiceAzPressoENPAPI"}},
    {Autonomo,  32, "IDCUEntePrevidenziale",                CodicePressoEnte,  BloccoC,       dal(2016),    Primo, No,
          "", {"CUDenominazioneEntePrevidenziale", "CodiceAzPressoENPAM", "CodiceAzPressoENPAPI"}},
    {Autonomo,  32, "CUDenominazioneEntePrevidenziale",     Testo,             BloccoC,       dal(2015),    Altri},
    {Autonomo,  33, "CUCodiceCategoriaEntePrevidenziale",   Testo,             BloccoC,       dal(2015),    Ogni},
    {Autonomo,  34, "ContributiCaricoAzienda",              Importo,           BloccoC,       dal(2015),    Ogni, Riga},
    {Autonomo,  35, "ContributiCaricoPercipiente",          Importo,           BloccoC,       dal(2015),    Ogni, Riga},
    {Autonomo,  36, "AltriContributi",                      Flag,              BloccoC,       dal(2015),    Ogni, Dati},
    {Autonomo,  37, "ImportoAltriContributi",               ImportoConSegno,   BloccoC,       dal(2015),    Ogni, Dati},
    {Autonomo,  38, "ContributiDovuti",                     ImportoConSegno,   BloccoC,       dal(2015),    Ogni, Dati},
    {Autonomo,  39, "ContributiVersati",                    ImportoConSegno,   BloccoC,       dal(2015),    Ogni, Dati},
    {Autonomo,  41, "SommeCorrispostePreFallimento",        Importo,           Sempre,        {2015, 2023}, Primo, Dati},
    {Autonomo,  42, "SommeCorrisposteDalCuratore",          Importo,           Sempre,        {2015, 2023}, Primo, Dati},
    {Autonomo,  52, "AltriSoggettiCodiceFiscale",           Maiuscolo,         Sempre,        dal(2015),    Ogni, Dati},
    {Autonomo,  53, "AltriSoggettiImponibile",              Importo,           Sempre,        dal(2015),    Ogni, Dati},
    {Autonomo,  54, "AltriSoggettiRitenuteAcconto",         Importo,           Sempre,        dal(2015),    Ogni, Dati},
    {Autonomo,  55, "AltriSoggettiRitenuteImposta",         Importo,           Sempre,        dal(2015),    Ogni, Dati},
    {Autonomo,  56, "AltriSoggettiRitenuteSospese",         Importo,           Sempre,        dal(2015),    Ogni, Dati},
    {Autonomo,  57, "AltriSoggettiAddRegionAcconto",        Importo,           Sempre,        dal(2015),    Ogni, Dati},
    {Autonomo,  58, "AltriSoggettiAddRegionImposta",        Importo,           Sempre,        dal(2015),    Ogni, Dati},
    {Autonomo,  59, "AltriSoggettiAddRegionSospesa",        Importo,           Sempre,        dal(2015),    Ogni, Dati},
    {Autonomo,  60, "AltriSoggettiAddComunAcconto",         Importo,           Sempre,        dal(2015),    Ogni, Dati},
    {Autonomo,  61, "AltriSoggettiAddComunImposta",         Importo,           Sempre,        dal(2015),    Ogni, Dati},
    {Autonomo,  62, "AltriSoggettiAddComunSospesa",         Importo,           Sempre,        dal(2015),    Ogni, Dati},
    {Autonomo,  71, "CodiceFiscaleLavoroAutonomo",          Maiuscolo,         Sempre,        {2015, 2023}, Primo, Dati},
    {Autonomo,  71, "CodiceFiscaleLavoroAutonomo",          Maiuscolo,         NonNelFile,    dal(2015),    Altri, Dati},
    {Autonomo,  72, "CodiceFiscalePignoramentoTerzi",       Maiuscolo,         Sempre,        {2015, 2023}, Primo, Dati},
    {Autonomo,  72, "CodiceFiscalePignoramentoTerzi",       Maiuscolo,         NonNelFile,    dal(2015),    Altri, Dati},
    {Autonomo,  73, "CodiceFiscaleIndennitaEsproprio",      Maiuscolo,         Sempre,        {2015, 2021}, Primo, Dati},
    {Autonomo,  73, "CodiceFiscaleIndennitaEsproprio",      Maiuscolo,         NonNelFile,    dal(2015),    Altri, Dati},
    {Autonomo, 101, "PignoramentoTerziCodiceFiscale1",      Maiuscolo,         Sempre,        dal(2015),    Ogni, Dati},
    {Autonomo, 102, "PignoramentoTerziSommeErogate1",       Importo,           Sempre,        dal(2015),    Ogni, Dati},
    {Autonomo, 103, "PignoramentoTerziRitenuteOperate1",    Importo,           Sempre,        dal(2015),    Ogni, Dati},
    {Autonomo, 104, "PignoramentoTerziRitenuteNonOperate1", Flag,              Sempre,        nel(2015),    Ogni, Dati},
    {Autonomo, 104, "PignoramentoTerziSommeNonTassate1",    Importo,           Sempre,        dal(2016),    Ogni, Dati},
    {Autonomo, 105, "PignoramentoTerziCodiceFiscale2",      Maiuscolo,         Sempre,        dal(2015),    Ogni, Dati},
    {Autonomo, 106, "PignoramentoTerziSommeErogate2",       Importo,           Sempre,        dal(2015),    Ogni, Dati},
    {Autonomo, 107, "PignoramentoTerziRitenuteOperate2",    Importo,           Sempre,        dal(2015),    Ogni, Dati},
    {Autonomo, 108, "PignoramentoTerziRitenuteNonOperate2", Flag,              Sempre,        nel(2015),    Ogni, Dati},
    {Autonomo, 108, "PignoramentoTerziSommeNonTassate2",    Importo,           Sempre,        dal(2016),    Ogni, Dati},
    {Autonomo, 131, "IndennitaEsproprioSommeCorrisposte1",  Importo,           Sempre,        {2015, 2021}, Ogni, Dati},
    {Autonomo, 132, "IndennitaEsproprioRitenuteOperate1",   Importo,           Sempre,        {2015, 2021}, Ogni, Dati},
    {Autonomo, 133, "AltreIndennitaSommeCorrisposte1",      Importo,           Sempre,        {2015, 2021}, Ogni, Dati},
    {Autonomo, 134, "AltreIndennitaRitenuteOperate1",       Importo,           Sempre,        {2015, 2021}, Ogni, Dati},
    {Autonomo, 135, "IndennitaEsproprioSommeCorrisposte2",  Importo,           Sempre,        {2015, 2021}, Ogni, Dati},
    {Autonomo, 136, "IndennitaEsproprioRitenuteOperate2",   Importo,           Sempre,        {2015, 2021}, Ogni, Dati},
    {Autonomo, 137, "AltreIndennitaSommeCorrisposte2",      Importo,           Sempre,        {2015, 2021}, Ogni, Dati},
    {Autonomo, 138, "AltreIndennitaRitenuteOperate2",       Importo,           Sempre,        {2015, 2021}, Ogni, Dati},
  });
  // clang-format on
}();

}  // namespace cu::modello
