#pragma once

#include <array>

#include "telematic/tavola_celle.h"

namespace cu::telematico {

// Record H, the amounts of a certificate: module 1 from its row of the main query, the others from theirs of
// the module query. The form of 2014 has the contributions at 20 and 21; from 2015 they are the block C at 29
// to 39, and the sections from 41 on follow.
inline constexpr auto kCelleH = [] {
  using enum Forma;
  using enum Condizione;
  constexpr Moduli Primo = Moduli::Primo;
  constexpr Moduli Altri = Moduli::Altri;
  constexpr Moduli Ogni = Moduli::Tutti;
  // clang-format off
  return std::to_array<RigaCella>({
    {"AU001001", "Codice",                              Maiuscolo,         Sempre,     kTutti,    Primo},
    {"AU001002", "Anno",                                Destra,            AnnoDovuto, kTutti,    Primo},
    {"AU001002", "AnnoModulo",                          Destra,            Sempre,     kTutti,    Altri},
    {"AU001003", "Anticipazione",                       Flag,              Sempre,     kTutti,    Ogni},
    {"AU001004", "AmmontareLordo",                      Importo,           Sempre,     kTutti,    Primo},
    {"AU001005", "SommeRegimeConvenzionale",            Importo,           Sempre,     kTutti,    Primo},
    {"AU001006", "CodicePerNonSoggetti",                CodiceNonSoggetti, Sempre,     kTutti,    Primo,
                 {"SommeNonSoggetteARitenuta", "QuotaProvvigioniNonSoggette", "Anno"}},
    {"AU001006", "CodicePerNonSoggetti",                Destra,            Sempre,     kTutti,    Altri},
    {"AU001007", "SommeNonSoggetteARitenuta",           Somma,             Sempre,     kTutti,    Primo,
                 {"QuotaProvvigioniNonSoggette"}},
    {"AU001007", "SommeNonSoggette",                    Importo,           Sempre,     kTutti,    Altri},
    {"AU001008", "Imponibile",                          Importo,           Sempre,     kTutti,    Primo},
    {"AU001009", "RitenuteAcconto",                     Importo,           Sempre,     kTutti,    Primo},
    {"AU001010", "RitenuteImposta",                     Importo,           Sempre,     kTutti,    Primo},
    {"AU001011", "RitenuteSospese",                     Importo,           Sempre,     kTutti,    Primo},
    {"AU001012", "AddRegionAcconto",                    Importo,           CausaleN,   kTutti,    Primo},
    {"AU001013", "AddRegionImposta",                    Importo,           CausaleN,   kTutti,    Primo},
    {"AU001014", "AddRegionSospesa",                    Importo,           CausaleN,   kTutti,    Primo},
    {"AU001015", "AddComunAcconto",                     Importo,           CausaleN,   kTutti,    Primo},
    {"AU001016", "AddComunImposta",                     Importo,           CausaleN,   kTutti,    Primo},
    {"AU001017", "AddComunSospesa",                     Importo,           CausaleN,   kTutti,    Primo},
    {"AU001018", "ImponibileAnniPrecedenti",            Importo,           Sempre,     kTutti,    Primo},
    {"AU001018", "ImponibileAnniPrec",                  Importo,           Sempre,     kTutti,    Altri},
    {"AU001019", "RitenuteAnniPrecedenti",              Importo,           Sempre,     kTutti,    Primo},
    {"AU001019", "RitenuteAnniPrec",                    Importo,           Sempre,     kTutti,    Altri},
    {"AU001020", "ContributiCaricoAzienda",             Importo,           Sempre,     nel(2014), Primo},
    {"AU001020", "SpeseRimborsate",                     Importo,           Sempre,     dal(2015), Primo},
    {"AU001021", "ContributiCaricoPercipiente",         Importo,           Sempre,     nel(2014), Primo},
    {"AU001021", "RitenuteRimborsate",                  Importo,           Sempre,     dal(2015), Primo},
    {"AU001022", "SpeseRimborsate",                     Importo,           Sempre,     nel(2014), Primo},
    {"AU001023", "RitenuteRimborsate",                  Importo,           Sempre,     nel(2014), Primo},
    {"AU001029", "CUCodiceFiscale",                     Maiuscolo,         BloccoC,    dal(2015), Ogni},
    {"AU001030", "CUDenominazioneEntePrevidenziale",    Testo,             BloccoC,    dal(2015), Ogni},
    {"AU001031", "CUCodiceEntePrevidenziale",           Testo,             BloccoC,    nel(2015), Ogni},
    // Without a code at the fund the field repeats the text of the field before it.
    {"AU001032", "CUCodiceEntePrevidenziale",           CodicePressoEnte,  BloccoC,    nel(2015), Primo,
                 {"IDCUEntePrevidenziale", "CodiceAzPressoENPAM", "CodiceAzPressoENPAPI"}},
    {"AU001032", "CUDenominazioneEntePrevidenziale",    CodicePressoEnte,  BloccoC,    dal(2016), Primo,
                 {"IDCUEntePrevidenziale", "CodiceAzPressoENPAM", "CodiceAzPressoENPAPI"}},
    {"AU001032", "CUDenominazioneEntePrevidenziale",    Testo,             BloccoC,    dal(2015), Altri},
    {"AU001033", "CUCodiceCategoriaEntePrevidenziale",  Testo,             BloccoC,    dal(2015), Ogni},
    {"AU001034", "ContributiCaricoAzienda",             Importo,           BloccoC,    dal(2015), Ogni},
    {"AU001035", "ContributiCaricoPercipiente",         Importo,           BloccoC,    dal(2015), Ogni},
    {"AU001036", "AltriContributi",                     Flag,              BloccoC,    dal(2015), Ogni},
    {"AU001037", "ImportoAltriContributi",              Importo,           BloccoC,    dal(2015), Ogni},
    {"AU001038", "ContributiDovuti",                    Importo,           BloccoC,    dal(2015), Ogni},
    {"AU001039", "ContributiVersati",                   Importo,           BloccoC,    dal(2015), Ogni},
    {"AU001041", "SommeCorrispostePreFallimento",       Importo,           Sempre,     dal(2015), Primo},
    {"AU001042", "SommeCorrisposteDalCuratore",         Importo,           Sempre,     dal(2015), Primo},
    {"AU001052", "AltriSoggettiCodiceFiscale",          Maiuscolo,         Sempre,     dal(2015), Ogni},
    {"AU001053", "AltriSoggettiImponibile",             Importo,           Sempre,     dal(2015), Ogni},
    {"AU001054", "AltriSoggettiRitenuteAcconto",        Importo,           Sempre,     dal(2015), Ogni},
    {"AU001055", "AltriSoggettiRitenuteImposta",        Importo,           Sempre,     dal(2015), Ogni},
    {"AU001056", "AltriSoggettiRitenuteSospese",        Importo,           Sempre,     dal(2015), Ogni},
    {"AU001057", "AltriSoggettiAddRegionAcconto",       Importo,           Sempre,     dal(2015), Ogni},
    {"AU001058", "AltriSoggettiAddRegionImposta",       Importo,           Sempre,     dal(2015), Ogni},
    {"AU001059", "AltriSoggettiAddRegionSospesa",       Importo,           Sempre,     dal(2015), Ogni},
    {"AU001060", "AltriSoggettiAddComunAcconto",        Importo,           Sempre,     dal(2015), Ogni},
    {"AU001061", "AltriSoggettiAddComunImposta",        Importo,           Sempre,     dal(2015), Ogni},
    {"AU001062", "AltriSoggettiAddComunSospesa",        Importo,           Sempre,     dal(2015), Ogni},
    {"AU001071", "CodiceFiscaleLavoroAutonomo",         Maiuscolo,         Sempre,     dal(2015), Primo},
    {"AU001072", "CodiceFiscalePignoramentoTerzi",      Maiuscolo,         Sempre,     dal(2015), Primo},
    {"AU001073", "CodiceFiscaleIndennitaEsproprio",     Maiuscolo,         Sempre,     dal(2015), Primo},
    {"AU001101", "PignoramentoTerziCodiceFiscale1",     Maiuscolo,         Sempre,     dal(2015), Ogni},
    {"AU001102", "PignoramentoTerziSommeErogate1",      Importo,           Sempre,     dal(2015), Ogni},
    {"AU001103", "PignoramentoTerziRitenuteOperate1",   Importo,           Sempre,     dal(2015), Ogni},
    {"AU001104", "PignoramentoTerziRitenuteNonOperate1", Flag,             Sempre,     nel(2015), Ogni},
    {"AU001104", "PignoramentoTerziSommeNonTassate1",   Importo,           Sempre,     dal(2016), Ogni},
    {"AU001105", "PignoramentoTerziCodiceFiscale2",     Maiuscolo,         Sempre,     dal(2015), Ogni},
    {"AU001106", "PignoramentoTerziSommeErogate2",      Importo,           Sempre,     dal(2015), Ogni},
    {"AU001107", "PignoramentoTerziRitenuteOperate2",   Importo,           Sempre,     dal(2015), Ogni},
    {"AU001108", "PignoramentoTerziRitenuteNonOperate2", Flag,             Sempre,     nel(2015), Ogni},
    {"AU001108", "PignoramentoTerziSommeNonTassate2",   Importo,           Sempre,     dal(2016), Ogni},
    {"AU001131", "IndennitaEsproprioSommeCorrisposte1", Importo,           Sempre,     dal(2015), Ogni},
    {"AU001132", "IndennitaEsproprioRitenuteOperate1",  Importo,           Sempre,     dal(2015), Ogni},
    {"AU001133", "AltreIndennitaSommeCorrisposte1",     Importo,           Sempre,     dal(2015), Ogni},
    {"AU001134", "AltreIndennitaRitenuteOperate1",      Importo,           Sempre,     dal(2015), Ogni},
    {"AU001135", "IndennitaEsproprioSommeCorrisposte2", Importo,           Sempre,     dal(2015), Ogni},
    {"AU001136", "IndennitaEsproprioRitenuteOperate2",  Importo,           Sempre,     dal(2015), Ogni},
    {"AU001137", "AltreIndennitaSommeCorrisposte2",     Importo,           Sempre,     dal(2015), Ogni},
    {"AU001138", "AltreIndennitaRitenuteOperate2",      Importo,           Sempre,     dal(2015), Ogni},
  });
  // clang-format on
}();

static_assert(inOrdine(kCelleH));

}  // namespace cu::telematico
