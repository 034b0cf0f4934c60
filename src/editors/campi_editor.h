#pragma once

#include <array>
#include <string_view>

namespace cu {

enum class Genere { Importo, Testo, Flag, Elenco, Numero };
enum class Pagina { Modulo1, AltriModuli };

// The sections of the ministerial form, and of the heading above them.
enum class Sezione {
  Modulo,
  Somme,
  Previdenza,
  Fallimento,
  AltriSoggetti,
  CasiParticolari,
  Pignoramento,
  Esproprio
};

// The layouts a field is in, one bit each, by the year in which the form was issued.
using Disposizioni = unsigned;
inline constexpr Disposizioni kSolo2015 = 1;
inline constexpr Disposizioni kSolo2016 = 2;
inline constexpr Disposizioni kSolo2017 = 4;
inline constexpr Disposizioni kDal2015 = kSolo2016 | kSolo2017;
inline constexpr Disposizioni kTutte = kSolo2015 | kDal2015;

// One place of the form: the control that shows it and the column that keeps it.
struct CampoEditor {
  std::string_view controllo;  // name or, with an index, the array; empty: the column has no control
  int indice = -1;
  std::string_view colonna;
  Genere genere = Genere::Importo;
  Sezione sezione = Sezione::Somme;
  std::string_view campo;  // its number in the ministerial form
  Disposizioni disposizioni = kTutte;
  std::string_view dicitura;             // beside the number, from the form of 2016 on
  std::string_view didascalia2015 = {};  // the whole caption in the oldest layout

  constexpr bool nella(Disposizioni quale) const { return (disposizioni & quale) != 0; }
};

// clang-format off
namespace campi {
using enum Genere;
using enum Sezione;

// The module 1: the columns of the work table, in the order in which they are written back.
inline constexpr CampoEditor kCampiModulo1[] = {
    {"chkAnticipazione",        -1, "Anticipazione",                        Flag,    Somme,           "3",   kTutte,    "Anticipazione", "Anticipazione"},
    {"curField",                10, "AmmontareLordo",                       Importo, Somme,           "4",   kTutte,    "Ammontare lordo corrisposto", "Ammontare lordo"},
    {"curField",                11, "SommeRegimeConvenzionale",             Importo, Somme,           "5",   kTutte,    "Somme non soggette a ritenuta per regime convenzionale", "Somme regime convenzionale"},
    {"cboCodicePerNonSoggetti", -1, "IDCodicePerNonSoggetti",               Elenco,  Somme,           "6",   kTutte,    "Codice", "Codice per non soggetti"},
    {"curField",                12, "SommeNonSoggetteARitenuta",            Importo, Somme,           "7.a", kTutte,    "Altre somme non soggette a ritenuta", "Somme non soggette a ritenuta"},
    {"curField",                22, "QuotaProvvigioniNonSoggette",          Importo, Somme,           "7.b", kTutte,    "Quote provvigioni non soggette", "Imponibile non soggetto"},
    {"curField",                19, "Imponibile",                           Importo, Somme,           "8",   kTutte,    "Imponibile", "Imponibile"},
    {"curField",                20, "RitenuteAcconto",                      Importo, Somme,           "9",   kTutte,    "Ritenute a titolo d'acconto", "Ritenute d'acconto"},
    {"curField",                 0, "RitenuteImposta",                      Importo, Somme,           "10",  kTutte,    "Ritenute a titolo d'imposta", "Ritenute d'imposta"},
    {"curField",                 1, "RitenuteSospese",                      Importo, Somme,           "11",  kTutte,    "Ritenute sospese", "Ritenute sospese"},
    {"curField",                 2, "AddRegionAcconto",                     Importo, Somme,           "12",  kTutte,    "Addizionale regionale a titolo d'acconto", "Add. Region. d'acconto"},
    {"curField",                 3, "AddRegionImposta",                     Importo, Somme,           "13",  kTutte,    "Addizionale regionale a titolo d'imposta", "Add. Region. d'imposta"},
    {"curField",                 4, "AddRegionSospesa",                     Importo, Somme,           "14",  kTutte,    "Addizionale regionale sospesa", "Add. Region. sospesa"},
    {"curField",                 5, "AddComunAcconto",                      Importo, Somme,           "15",  kTutte,    "Addizionale comunale a titolo d'acconto", "Add. Comun. d'acconto"},
    {"curField",                 6, "AddComunImposta",                      Importo, Somme,           "16",  kTutte,    "Addizionale comunale a titolo d'imposta", "Add. Comun. d'imposta"},
    {"curField",                 7, "AddComunSospesa",                      Importo, Somme,           "17",  kTutte,    "Addizionale comunale sospesa", "Add. Comun. sospesa"},
    {"curField",                 8, "ImponibileAnniPrecedenti",             Importo, Somme,           "18",  kTutte,    "Imponibile anni precedenti", "Imponibile anni precedenti"},
    {"curField",                 9, "RitenuteAnniPrecedenti",               Importo, Somme,           "19",  kTutte,    "Ritenute operate anni precedenti", "Ritenute anni precedenti"},
    {"curField",                15, "SpeseRimborsate",                      Importo, Somme,           "20",  kTutte,    "Spese rimborsate", "Spese rimborsate"},
    {"curField",                16, "RitenuteRimborsate",                   Importo, Somme,           "21",  kTutte,    "Ritenute rimborsate", "Ritenute rimborsate"},
    {"curField",                13, "ContributiCaricoAzienda",              Importo, Previdenza,      "34",  kTutte,    "Contributi previdenziali a carico del soggetto erogante", "Contributi carico azienda"},
    {"curField",                14, "ContributiCaricoPercipiente",          Importo, Previdenza,      "35",  kTutte,    "Contributi previdenziali a carico del percipiente", "Contributi carico percipiente"},
    {"chkAltriContributi",      -1, "AltriContributi",                      Flag,    Previdenza,      "36",  kDal2015,  "Altri contributi"},
    {"curField",                23, "ImportoAltriContributi",               Importo, Previdenza,      "37",  kDal2015,  "Importo altri contributi"},
    {"curField",                24, "ContributiDovuti",                     Importo, Previdenza,      "38",  kDal2015,  "Contributi dovuti"},
    {"curField",                25, "ContributiVersati",                    Importo, Previdenza,      "39",  kDal2015,  "Contributi versati"},
    {"curField",                26, "SommeCorrispostePreFallimento",        Importo, Fallimento,      "41",  kDal2015,  "Somme corrisposte prima della data di fallimento"},
    {"curField",                27, "SommeCorrisposteDalCuratore",          Importo, Fallimento,      "42",  kDal2015,  "Somme corrisposte dal curatore/commissario"},
    {"txtField",                 5, "AltriSoggettiCodiceFiscale",           Testo,   AltriSoggetti,   "52",  kDal2015,  "Codice fiscale"},
    {"curField",                28, "AltriSoggettiImponibile",              Importo, AltriSoggetti,   "53",  kDal2015,  "Imponibile"},
    {"curField",                31, "AltriSoggettiRitenuteAcconto",         Importo, AltriSoggetti,   "54",  kDal2015,  "Ritenute a titolo d'acconto"},
    {"curField",                30, "AltriSoggettiRitenuteImposta",         Importo, AltriSoggetti,   "55",  kDal2015,  "Ritenute a titolo d'imposta"},
    {"curField",                29, "AltriSoggettiRitenuteSospese",         Importo, AltriSoggetti,   "56",  kDal2015,  "Ritenute sospese"},
    {"curField",                32, "AltriSoggettiAddRegionAcconto",        Importo, AltriSoggetti,   "57",  kDal2015,  "Addizionale Regionale a titolo d'acconto"},
    {"curField",                34, "AltriSoggettiAddRegionImposta",        Importo, AltriSoggetti,   "58",  kDal2015,  "Addizionale Regionale a titolo d'imposta"},
    {"curField",                35, "AltriSoggettiAddRegionSospesa",        Importo, AltriSoggetti,   "59",  kDal2015,  "Addizionale Regionale sospesa"},
    {"curField",                33, "AltriSoggettiAddComunAcconto",         Importo, AltriSoggetti,   "60",  kDal2015,  "Addizionale comunale a titolo d'acconto"},
    {"curField",                36, "AltriSoggettiAddComunImposta",         Importo, AltriSoggetti,   "61",  kDal2015,  "Addizionale comunale a titolo d'imposta"},
    {"curField",                37, "AltriSoggettiAddComunSospesa",         Importo, AltriSoggetti,   "62",  kDal2015,  "Addizionale comunale sospesa"},
    {"txtField",                 6, "CodiceFiscaleLavoroAutonomo",          Testo,   CasiParticolari, "71",  kDal2015,  "Codice fiscale (sezione lavoro autonomo e redditi diversi)"},
    {"txtField",                 7, "CodiceFiscalePignoramentoTerzi",       Testo,   CasiParticolari, "72",  kDal2015,  "Codice fiscale (sezione pignoramento presso terzi)"},
    {"txtField",                 8, "CodiceFiscaleIndennitaEsproprio",      Testo,   CasiParticolari, "73",  kDal2015,  "Codice fiscale (sezione indennità di esproprio)"},
    {"txtField",                 9, "PignoramentoTerziCodiceFiscale1",      Testo,   Pignoramento,    "101", kDal2015,  "Codice fiscale debitore principale"},
    {"curField",                38, "PignoramentoTerziSommeErogate1",       Importo, Pignoramento,    "102", kDal2015,  "Somme erogate"},
    {"curField",                39, "PignoramentoTerziRitenuteOperate1",    Importo, Pignoramento,    "103", kDal2015,  "Ritenute operate"},
    {"chkRitenuteNonOperate1",  -1, "PignoramentoTerziRitenuteNonOperate1", Flag,    Pignoramento,    "104", kSolo2016, "Ritenute non operate"},
    {"curField",                50, "PignoramentoTerziSommeNonTassate1",    Importo, Pignoramento,    "104", kSolo2017, "Somme non tassate"},
    {"txtField",                10, "PignoramentoTerziCodiceFiscale2",      Testo,   Pignoramento,    "105", kDal2015,  "Codice fiscale debitore principale"},
    {"curField",                40, "PignoramentoTerziSommeErogate2",       Importo, Pignoramento,    "106", kDal2015,  "Somme erogate"},
    {"curField",                41, "PignoramentoTerziRitenuteOperate2",    Importo, Pignoramento,    "107", kDal2015,  "Ritenute operate"},
    {"chkRitenuteNonOperate2",  -1, "PignoramentoTerziRitenuteNonOperate2", Flag,    Pignoramento,    "108", kSolo2016, "Ritenute non operate"},
    {"curField",                51, "PignoramentoTerziSommeNonTassate2",    Importo, Pignoramento,    "108", kSolo2017, "Somme non tassate"},
    {"curField",                46, "IndennitaEsproprioSommeCorrisposte1",  Importo, Esproprio,       "131", kDal2015,  "Indennità di esproprio: somme corrisposte"},
    {"curField",                47, "IndennitaEsproprioRitenuteOperate1",   Importo, Esproprio,       "132", kDal2015,  "Indennità di esproprio: ritenute operate"},
    {"curField",                42, "AltreIndennitaSommeCorrisposte1",      Importo, Esproprio,       "133", kDal2015,  "Altre indennità e interessi: somme corrisposte"},
    {"curField",                43, "AltreIndennitaRitenuteOperate1",       Importo, Esproprio,       "134", kDal2015,  "Altre indennità e interessi: ritenute operate"},
    {"curField",                48, "IndennitaEsproprioSommeCorrisposte2",  Importo, Esproprio,       "135", kDal2015,  "Indennità di esproprio: somme corrisposte"},
    {"curField",                49, "IndennitaEsproprioRitenuteOperate2",   Importo, Esproprio,       "136", kDal2015,  "Indennità di esproprio: ritenute operate"},
    {"curField",                45, "AltreIndennitaSommeCorrisposte2",      Importo, Esproprio,       "137", kDal2015,  "Altre indennità e interessi: somme corrisposte"},
    {"curField",                44, "AltreIndennitaRitenuteOperate2",       Importo, Esproprio,       "138", kDal2015,  "Altre indennità e interessi: ritenute operate"},
};

// The modules from number 2: the columns of ModuloXContoIndividuale behind its key, in the order of its INSERT.
inline constexpr CampoEditor kCampiAltriModuli[] = {
    {"numModulo",                         -1, "NumeroModulo",                         Numero,  Modulo,          "",    kTutte,    "Numero modulo", "Numero modulo"},
    {"cboCodicePerNonSoggettiAltri",      -1, "IDCodicePerNonSoggetti",               Elenco,  Somme,           "6",   kTutte,    "Codice", "Codice per non soggetti"},
    {"numAnno",                           -1, "AnnoModulo",                           Numero,  Somme,           "2",   kTutte,    "Anno", "Anno"},
    {"curField",                          17, "SommeNonSoggette",                     Importo, Somme,           "7",   kTutte,    "Somme non soggette a ritenuta", "Somme non soggette a ritenuta"},
    {"curField",                          18, "ImponibileAnniPrec",                   Importo, Somme,           "18",  kTutte,    "Imponibile anni precedenti", "Imponibile anni precedenti"},
    {"curField",                          21, "RitenuteAnniPrec",                     Importo, Somme,           "19",  kTutte,    "Ritenute operate anni precedenti", "Ritenute anni precedenti"},
    {"chkAnticipazioneAltri",             -1, "Anticipazione",                        Flag,    Somme,           "3",   kTutte,    "Anticipazione", "Anticipazione"},
    {"curField",                          66, "ContributiCaricoAzienda",              Importo, Previdenza,      "34",  kDal2015,  "Contributi previdenziali a carico del soggetto erogante"},
    {"curField",                          67, "ContributiCaricoPercipiente",          Importo, Previdenza,      "35",  kDal2015,  "Contributi previdenziali a carico del percipiente"},
    {"chkAltriContributiAltriModuli",     -1, "AltriContributi",                      Flag,    Previdenza,      "36",  kDal2015,  "Altri contributi"},
    {"curField",                          69, "ImportoAltriContributi",               Importo, Previdenza,      "37",  kDal2015,  "Importo altri contributi"},
    {"curField",                          70, "ContributiDovuti",                     Importo, Previdenza,      "38",  kDal2015,  "Contributi dovuti"},
    {"curField",                          71, "ContributiVersati",                    Importo, Previdenza,      "39",  kDal2015,  "Contributi versati"},
    {"txtField",                          18, "AltriSoggettiCodiceFiscale",           Testo,   AltriSoggetti,   "52",  kDal2015,  "Codice fiscale"},
    {"curField",                          74, "AltriSoggettiImponibile",              Importo, AltriSoggetti,   "53",  kDal2015,  "Imponibile"},
    {"curField",                          77, "AltriSoggettiRitenuteAcconto",         Importo, AltriSoggetti,   "54",  kDal2015,  "Ritenute a titolo d'acconto"},
    {"curField",                          76, "AltriSoggettiRitenuteImposta",         Importo, AltriSoggetti,   "55",  kDal2015,  "Ritenute a titolo d'imposta"},
    {"curField",                          75, "AltriSoggettiRitenuteSospese",         Importo, AltriSoggetti,   "56",  kDal2015,  "Ritenute sospese"},
    {"curField",                          78, "AltriSoggettiAddRegionAcconto",        Importo, AltriSoggetti,   "57",  kDal2015,  "Addizionale Regionale a titolo d'acconto"},
    {"curField",                          80, "AltriSoggettiAddRegionImposta",        Importo, AltriSoggetti,   "58",  kDal2015,  "Addizionale Regionale a titolo d'imposta"},
    {"curField",                          81, "AltriSoggettiAddRegionSospesa",        Importo, AltriSoggetti,   "59",  kDal2015,  "Addizionale Regionale sospesa"},
    {"curField",                          79, "AltriSoggettiAddComunAcconto",         Importo, AltriSoggetti,   "60",  kDal2015,  "Addizionale comunale a titolo d'acconto"},
    {"curField",                          82, "AltriSoggettiAddComunImposta",         Importo, AltriSoggetti,   "61",  kDal2015,  "Addizionale comunale a titolo d'imposta"},
    {"curField",                          83, "AltriSoggettiAddComunSospesa",         Importo, AltriSoggetti,   "62",  kDal2015,  "Addizionale comunale sospesa"},
    {"",                                  -1, "CodiceFiscaleLavoroAutonomo",          Testo,   CasiParticolari, "71",  kDal2015,  "Codice fiscale (sezione lavoro autonomo e redditi diversi)"},
    {"",                                  -1, "CodiceFiscalePignoramentoTerzi",       Testo,   CasiParticolari, "72",  kDal2015,  "Codice fiscale (sezione pignoramento presso terzi)"},
    {"",                                  -1, "CodiceFiscaleIndennitaEsproprio",      Testo,   CasiParticolari, "73",  kDal2015,  "Codice fiscale (sezione indennità di esproprio)"},
    {"txtField",                          14, "PignoramentoTerziCodiceFiscale1",      Testo,   Pignoramento,    "101", kDal2015,  "Codice fiscale debitore principale"},
    {"curField",                          84, "PignoramentoTerziSommeErogate1",       Importo, Pignoramento,    "102", kDal2015,  "Somme erogate"},
    {"curField",                          85, "PignoramentoTerziRitenuteOperate1",    Importo, Pignoramento,    "103", kDal2015,  "Ritenute operate"},
    {"chkRitenuteNonOperate1AltriModuli", -1, "PignoramentoTerziRitenuteNonOperate1", Flag,    Pignoramento,    "104", kSolo2016, "Ritenute non operate"},
    {"curField",                          52, "PignoramentoTerziSommeNonTassate1",    Importo, Pignoramento,    "104", kSolo2017, "Somme non tassate"},
    {"txtField",                          13, "PignoramentoTerziCodiceFiscale2",      Testo,   Pignoramento,    "105", kDal2015,  "Codice fiscale debitore principale"},
    {"curField",                          86, "PignoramentoTerziSommeErogate2",       Importo, Pignoramento,    "106", kDal2015,  "Somme erogate"},
    {"curField",                          87, "PignoramentoTerziRitenuteOperate2",    Importo, Pignoramento,    "107", kDal2015,  "Ritenute operate"},
    {"chkRitenuteNonOperate2AltriModuli", -1, "PignoramentoTerziRitenuteNonOperate2", Flag,    Pignoramento,    "108", kSolo2016, "Ritenute non operate"},
    {"curField",                          53, "PignoramentoTerziSommeNonTassate2",    Importo, Pignoramento,    "108", kSolo2017, "Somme non tassate"},
    {"curField",                          92, "IndennitaEsproprioSommeCorrisposte1",  Importo, Esproprio,       "131", kDal2015,  "Indennità di esproprio: somme corrisposte"},
    {"curField",                          93, "IndennitaEsproprioRitenuteOperate1",   Importo, Esproprio,       "132", kDal2015,  "Indennità di esproprio: ritenute operate"},
    {"curField",                          88, "AltreIndennitaSommeCorrisposte1",      Importo, Esproprio,       "133", kDal2015,  "Altre indennità e interessi: somme corrisposte"},
    {"curField",                          89, "AltreIndennitaRitenuteOperate1",       Importo, Esproprio,       "134", kDal2015,  "Altre indennità e interessi: ritenute operate"},
    {"curField",                          94, "IndennitaEsproprioSommeCorrisposte2",  Importo, Esproprio,       "135", kDal2015,  "Indennità di esproprio: somme corrisposte"},
    {"curField",                          95, "IndennitaEsproprioRitenuteOperate2",   Importo, Esproprio,       "136", kDal2015,  "Indennità di esproprio: ritenute operate"},
    {"curField",                          91, "AltreIndennitaSommeCorrisposte2",      Importo, Esproprio,       "137", kDal2015,  "Altre indennità e interessi: somme corrisposte"},
    {"curField",                          90, "AltreIndennitaRitenuteOperate2",       Importo, Esproprio,       "138", kDal2015,  "Altre indennità e interessi: ritenute operate"},
};

}  // namespace campi
// clang-format on
using campi::kCampiAltriModuli;
using campi::kCampiModulo1;

// The amounts that may be negative: other contributions, contributions due and paid, on both pages.
inline constexpr int kImportiNegativi[] = {23, 24, 25, 69, 70, 71};
// The amounts of the module 1 whose change counts as one of the other modules.
inline constexpr int kImportiFuoriPosto[] = {50, 51};

// The surcharges, which only the payment reason "N" opens.
inline constexpr int kPrimaAddizionale = 2;
inline constexpr int kUltimaAddizionale = 7;

// The boxes that a person cannot change: the same source on both pages.
struct CampoIntestazione {
  int modulo1;  // of txtField
  int altriModuli;
  std::string_view colonna;  // empty: the code at the body, which depends on the body
  std::string_view didascalia;
  bool lungoCodiceFiscale = false;
  bool previdenza = true;  // stands in the section of social security
  Disposizioni disposizioni = kDal2015;
};
inline constexpr CampoIntestazione kIntestazione[] = {
    {11, 12, "CodiceFiscale", "Codice fiscale", true, false},
    {0, 19, "CUCodiceFiscale", "29 Codice fiscale ente previdenziale", true},
    {1, 20, "CUDenominazioneEntePrevidenziale", "30 Denominazione ente previdenziale"},
    {2, 21, "CUCodiceEntePrevidenziale", "31 Codice ente", false, true, kSolo2016},
    {3, 22, "", "32 Codice azienda"},
    {4, 23, "CUCodiceCategoriaEntePrevidenziale", "33 Categoria"},
};

// What the wording of the form calls each section.
constexpr std::string_view titolo(Sezione sezione) {
  switch (sezione) {
    case Sezione::Modulo:
      break;
    case Sezione::Somme:
      return "Dati relativi alle somme erogate";
    case Sezione::Previdenza:
      return "Sezione previdenziale";
    case Sezione::Fallimento:
      return "Fallimento e liquidazione coatta amministrativa";
    case Sezione::AltriSoggetti:
      return "Redditi erogati da altri soggetti";
    case Sezione::CasiParticolari:
      return "Casi particolari - Operazioni straordinarie";
    case Sezione::Pignoramento:
      return "Somme liquidate a seguito di pignoramento presso terzi";
    case Sezione::Esproprio:
      return "Somme corrisposte a titolo di indennità di esproprio, altre indennità e interessi";
  }
  return "Modulo";
}

}  // namespace cu
