#pragma once

#include <string_view>

namespace cu {

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

// The editor's additions to a column of the form: the control that shows it and its texts. Number, kind and
// years come from the form (campi_editor.h).
struct ControlloCampo {
  std::string_view controllo;  // name or, with an index, the array; empty where the column has no control
  int indice = -1;
  std::string_view colonna;
  Sezione sezione = Sezione::Somme;
  std::string_view dicitura;             // next to the number, in the layouts that show it
  std::string_view didascalia2014 = {};  // the whole caption in the layout of 2014
};

// clang-format off
namespace campi {
using enum Sezione;

// Module 1: columns of the work table.
inline constexpr ControlloCampo kControlliModulo1[] = {
    {"chkAnticipazione",                  -1, "Anticipazione",                        Somme,           "Anticipazione", "Anticipazione"},
    {"curField",                          10, "AmmontareLordo",                       Somme,           "Ammontare lordo corrisposto", "Ammontare lordo"},
    {"curField",                          11, "SommeRegimeConvenzionale",             Somme,           "Somme non soggette a ritenuta per regime convenzionale", "Somme regime convenzionale"},
    {"cboCodicePerNonSoggetti",           -1, "IDCodicePerNonSoggetti",               Somme,           "Codice", "Codice per non soggetti"},
    {"curField",                          12, "SommeNonSoggetteARitenuta",            Somme,           "Altre somme non soggette a ritenuta", "Somme non soggette a ritenuta"},
    {"curField",                          22, "QuotaProvvigioniNonSoggette",          Somme,           "Quote provvigioni non soggette", "Imponibile non soggetto"},
    {"curField",                          19, "Imponibile",                           Somme,           "Imponibile", "Imponibile"},
    {"curField",                          20, "RitenuteAcconto",                      Somme,           "Ritenute a titolo d'acconto", "Ritenute d'acconto"},
    {"curField",                           0, "RitenuteImposta",                      Somme,           "Ritenute a titolo d'imposta", "Ritenute d'imposta"},
    {"curField",                           1, "RitenuteSospese",                      Somme,           "Ritenute sospese", "Ritenute sospese"},
    {"curField",                           2, "AddRegionAcconto",                     Somme,           "Addizionale regionale a titolo d'acconto", "Add. Region. d'acconto"},
    {"curField",                           3, "AddRegionImposta",                     Somme,           "Addizionale regionale a titolo d'imposta", "Add. Region. d'imposta"},
    {"curField",                           4, "AddRegionSospesa",                     Somme,           "Addizionale regionale sospesa", "Add. Region. sospesa"},
    {"curField",                           5, "AddComunAcconto",                      Somme,           "Addizionale comunale a titolo d'acconto", "Add. Comun. d'acconto"},
    {"curField",                           6, "AddComunImposta",                      Somme,           "Addizionale comunale a titolo d'imposta", "Add. Comun. d'imposta"},
    {"curField",                           7, "AddComunSospesa",                      Somme,           "Addizionale comunale sospesa", "Add. Comun. sospesa"},
    {"curField",                           8, "ImponibileAnniPrecedenti",             Somme,           "Imponibile anni precedenti", "Imponibile anni precedenti"},
    {"curField",                           9, "RitenuteAnniPrecedenti",               Somme,           "Ritenute operate anni precedenti", "Ritenute anni precedenti"},
    {"curField",                          15, "SpeseRimborsate",                      Somme,           "Spese rimborsate", "Spese rimborsate"},
    {"curField",                          16, "RitenuteRimborsate",                   Somme,           "Ritenute rimborsate", "Ritenute rimborsate"},
    {"curSommeRestituite",                -1, "SommeRestituite",                      Somme,           "Somme restituite al netto della ritenuta subita"},
    {"curField",                          13, "ContributiCaricoAzienda",              Previdenza,      "Contributi previdenziali a carico del soggetto erogante", "Contributi carico azienda"},
    {"curField",                          14, "ContributiCaricoPercipiente",          Previdenza,      "Contributi previdenziali a carico del percipiente", "Contributi carico percipiente"},
    {"chkAltriContributi",                -1, "AltriContributi",                      Previdenza,      "Altri contributi"},
    {"curField",                          23, "ImportoAltriContributi",               Previdenza,      "Importo altri contributi"},
    {"curField",                          24, "ContributiDovuti",                     Previdenza,      "Contributi dovuti"},
    {"curField",                          25, "ContributiVersati",                    Previdenza,      "Contributi versati"},
    {"curField",                          26, "SommeCorrispostePreFallimento",        Fallimento,      "Somme corrisposte prima della data di fallimento"},
    {"curField",                          27, "SommeCorrisposteDalCuratore",          Fallimento,      "Somme corrisposte dal curatore/commissario"},
    {"txtField",                           5, "AltriSoggettiCodiceFiscale",           AltriSoggetti,   "Codice fiscale"},
    {"curField",                          28, "AltriSoggettiImponibile",              AltriSoggetti,   "Imponibile"},
    {"curField",                          31, "AltriSoggettiRitenuteAcconto",         AltriSoggetti,   "Ritenute a titolo d'acconto"},
    {"curField",                          30, "AltriSoggettiRitenuteImposta",         AltriSoggetti,   "Ritenute a titolo d'imposta"},
    {"curField",                          29, "AltriSoggettiRitenuteSospese",         AltriSoggetti,   "Ritenute sospese"},
    {"curField",                          32, "AltriSoggettiAddRegionAcconto",        AltriSoggetti,   "Addizionale Regionale a titolo d'acconto"},
    {"curField",                          34, "AltriSoggettiAddRegionImposta",        AltriSoggetti,   "Addizionale Regionale a titolo d'imposta"},
    {"curField",                          35, "AltriSoggettiAddRegionSospesa",        AltriSoggetti,   "Addizionale Regionale sospesa"},
    {"curField",                          33, "AltriSoggettiAddComunAcconto",         AltriSoggetti,   "Addizionale comunale a titolo d'acconto"},
    {"curField",                          36, "AltriSoggettiAddComunImposta",         AltriSoggetti,   "Addizionale comunale a titolo d'imposta"},
    {"curField",                          37, "AltriSoggettiAddComunSospesa",         AltriSoggetti,   "Addizionale comunale sospesa"},
    {"txtField",                           6, "CodiceFiscaleLavoroAutonomo",          CasiParticolari, "Codice fiscale (sezione lavoro autonomo e redditi diversi)"},
    {"txtField",                           7, "CodiceFiscalePignoramentoTerzi",       CasiParticolari, "Codice fiscale (sezione pignoramento presso terzi)"},
    {"txtField",                           8, "CodiceFiscaleIndennitaEsproprio",      CasiParticolari, "Codice fiscale (sezione indennità di esproprio)"},
    {"txtField",                           9, "PignoramentoTerziCodiceFiscale1",      Pignoramento,    "Codice fiscale debitore principale"},
    {"curField",                          38, "PignoramentoTerziSommeErogate1",       Pignoramento,    "Somme erogate"},
    {"curField",                          39, "PignoramentoTerziRitenuteOperate1",    Pignoramento,    "Ritenute operate"},
    {"chkRitenuteNonOperate1",            -1, "PignoramentoTerziRitenuteNonOperate1", Pignoramento,    "Ritenute non operate"},
    {"curField",                          50, "PignoramentoTerziSommeNonTassate1",    Pignoramento,    "Somme non tassate"},
    {"txtField",                          10, "PignoramentoTerziCodiceFiscale2",      Pignoramento,    "Codice fiscale debitore principale"},
    {"curField",                          40, "PignoramentoTerziSommeErogate2",       Pignoramento,    "Somme erogate"},
    {"curField",                          41, "PignoramentoTerziRitenuteOperate2",    Pignoramento,    "Ritenute operate"},
    {"chkRitenuteNonOperate2",            -1, "PignoramentoTerziRitenuteNonOperate2", Pignoramento,    "Ritenute non operate"},
    {"curField",                          51, "PignoramentoTerziSommeNonTassate2",    Pignoramento,    "Somme non tassate"},
    {"curField",                          46, "IndennitaEsproprioSommeCorrisposte1",  Esproprio,       "Indennità di esproprio: somme corrisposte"},
    {"curField",                          47, "IndennitaEsproprioRitenuteOperate1",   Esproprio,       "Indennità di esproprio: ritenute operate"},
    {"curField",                          42, "AltreIndennitaSommeCorrisposte1",      Esproprio,       "Altre indennità e interessi: somme corrisposte"},
    {"curField",                          43, "AltreIndennitaRitenuteOperate1",       Esproprio,       "Altre indennità e interessi: ritenute operate"},
    {"curField",                          48, "IndennitaEsproprioSommeCorrisposte2",  Esproprio,       "Indennità di esproprio: somme corrisposte"},
    {"curField",                          49, "IndennitaEsproprioRitenuteOperate2",   Esproprio,       "Indennità di esproprio: ritenute operate"},
    {"curField",                          45, "AltreIndennitaSommeCorrisposte2",      Esproprio,       "Altre indennità e interessi: somme corrisposte"},
    {"curField",                          44, "AltreIndennitaRitenuteOperate2",       Esproprio,       "Altre indennità e interessi: ritenute operate"},
};

// The modules from number 2: the columns of ModuloXContoIndividuale after its key, in the order of its
// INSERT.
inline constexpr ControlloCampo kControlliAltriModuli[] = {
    {"numModulo",                         -1, "NumeroModulo",                         Modulo,          "Numero modulo", "Numero modulo"},
    {"cboCodicePerNonSoggettiAltri",      -1, "IDCodicePerNonSoggetti",               Somme,           "Codice", "Codice per non soggetti"},
    {"numAnno",                           -1, "AnnoModulo",                           Somme,           "Anno", "Anno"},
    {"curField",                          17, "SommeNonSoggette",                     Somme,           "Somme non soggette a ritenuta", "Somme non soggette a ritenuta"},
    {"curField",                          18, "ImponibileAnniPrec",                   Somme,           "Imponibile anni precedenti", "Imponibile anni precedenti"},
    {"curField",                          21, "RitenuteAnniPrec",                     Somme,           "Ritenute operate anni precedenti", "Ritenute anni precedenti"},
    {"chkAnticipazioneAltri",             -1, "Anticipazione",                        Somme,           "Anticipazione", "Anticipazione"},
    {"curField",                          66, "ContributiCaricoAzienda",              Previdenza,      "Contributi previdenziali a carico del soggetto erogante"},
    {"curField",                          67, "ContributiCaricoPercipiente",          Previdenza,      "Contributi previdenziali a carico del percipiente"},
    {"chkAltriContributiAltriModuli",     -1, "AltriContributi",                      Previdenza,      "Altri contributi"},
    {"curField",                          69, "ImportoAltriContributi",               Previdenza,      "Importo altri contributi"},
    {"curField",                          70, "ContributiDovuti",                     Previdenza,      "Contributi dovuti"},
    {"curField",                          71, "ContributiVersati",                    Previdenza,      "Contributi versati"},
    {"txtField",                          18, "AltriSoggettiCodiceFiscale",           AltriSoggetti,   "Codice fiscale"},
    {"curField",                          74, "AltriSoggettiImponibile",              AltriSoggetti,   "Imponibile"},
    {"curField",                          77, "AltriSoggettiRitenuteAcconto",         AltriSoggetti,   "Ritenute a titolo d'acconto"},
    {"curField",                          76, "AltriSoggettiRitenuteImposta",         AltriSoggetti,   "Ritenute a titolo d'imposta"},
    {"curField",                          75, "AltriSoggettiRitenuteSospese",         AltriSoggetti,   "Ritenute sospese"},
    {"curField",                          78, "AltriSoggettiAddRegionAcconto",        AltriSoggetti,   "Addizionale Regionale a titolo d'acconto"},
    {"curField",                          80, "AltriSoggettiAddRegionImposta",        AltriSoggetti,   "Addizionale Regionale a titolo d'imposta"},
    {"curField",                          81, "AltriSoggettiAddRegionSospesa",        AltriSoggetti,   "Addizionale Regionale sospesa"},
    {"curField",                          79, "AltriSoggettiAddComunAcconto",         AltriSoggetti,   "Addizionale comunale a titolo d'acconto"},
    {"curField",                          82, "AltriSoggettiAddComunImposta",         AltriSoggetti,   "Addizionale comunale a titolo d'imposta"},
    {"curField",                          83, "AltriSoggettiAddComunSospesa",         AltriSoggetti,   "Addizionale comunale sospesa"},
    {"",                                  -1, "CodiceFiscaleLavoroAutonomo",          CasiParticolari, "Codice fiscale (sezione lavoro autonomo e redditi diversi)"},
    {"",                                  -1, "CodiceFiscalePignoramentoTerzi",       CasiParticolari, "Codice fiscale (sezione pignoramento presso terzi)"},
    {"",                                  -1, "CodiceFiscaleIndennitaEsproprio",      CasiParticolari, "Codice fiscale (sezione indennità di esproprio)"},
    {"txtField",                          14, "PignoramentoTerziCodiceFiscale1",      Pignoramento,    "Codice fiscale debitore principale"},
    {"curField",                          84, "PignoramentoTerziSommeErogate1",       Pignoramento,    "Somme erogate"},
    {"curField",                          85, "PignoramentoTerziRitenuteOperate1",    Pignoramento,    "Ritenute operate"},
    {"chkRitenuteNonOperate1AltriModuli", -1, "PignoramentoTerziRitenuteNonOperate1", Pignoramento,    "Ritenute non operate"},
    {"curField",                          52, "PignoramentoTerziSommeNonTassate1",    Pignoramento,    "Somme non tassate"},
    {"txtField",                          13, "PignoramentoTerziCodiceFiscale2",      Pignoramento,    "Codice fiscale debitore principale"},
    {"curField",                          86, "PignoramentoTerziSommeErogate2",       Pignoramento,    "Somme erogate"},
    {"curField",                          87, "PignoramentoTerziRitenuteOperate2",    Pignoramento,    "Ritenute operate"},
    {"chkRitenuteNonOperate2AltriModuli", -1, "PignoramentoTerziRitenuteNonOperate2", Pignoramento,    "Ritenute non operate"},
    {"curField",                          53, "PignoramentoTerziSommeNonTassate2",    Pignoramento,    "Somme non tassate"},
    {"curField",                          92, "IndennitaEsproprioSommeCorrisposte1",  Esproprio,       "Indennità di esproprio: somme corrisposte"},
    {"curField",                          93, "IndennitaEsproprioRitenuteOperate1",   Esproprio,       "Indennità di esproprio: ritenute operate"},
    {"curField",                          88, "AltreIndennitaSommeCorrisposte1",      Esproprio,       "Altre indennità e interessi: somme corrisposte"},
    {"curField",                          89, "AltreIndennitaRitenuteOperate1",       Esproprio,       "Altre indennità e interessi: ritenute operate"},
    {"curField",                          94, "IndennitaEsproprioSommeCorrisposte2",  Esproprio,       "Indennità di esproprio: somme corrisposte"},
    {"curField",                          95, "IndennitaEsproprioRitenuteOperate2",   Esproprio,       "Indennità di esproprio: ritenute operate"},
    {"curField",                          91, "AltreIndennitaSommeCorrisposte2",      Esproprio,       "Altre indennità e interessi: somme corrisposte"},
    {"curField",                          90, "AltreIndennitaRitenuteOperate2",       Esproprio,       "Altre indennità e interessi: ritenute operate"},
};

}  // namespace campi
// clang-format on
using campi::kControlliAltriModuli;
using campi::kControlliModulo1;

// The amounts of module 1 whose change counts as a change of the other modules.
inline constexpr int kImportiFuoriPosto[] = {50, 51};

// The boxes that the user cannot change: the same source on both pages. Only the layouts with the form's
// picture show them.
struct ControlloIntestazione {
  int modulo1;  // index in txtField
  int altriModuli;
  std::string_view colonna;
  std::string_view didascalia;
  bool lungoCodiceFiscale = false;
  bool previdenza = true;  // shown, with its number, in the section of social security
};
inline constexpr ControlloIntestazione kIntestazione[] = {
    {11, 12, "CodiceFiscale", "Codice fiscale", true, false},
    {0, 19, "CUCodiceFiscale", "Codice fiscale ente previdenziale", true},
    {1, 20, "CUDenominazioneEntePrevidenziale", "Denominazione ente previdenziale"},
    {2, 21, "CUCodiceEntePrevidenziale", "Codice ente"},
    {3, 22, "IDCUEntePrevidenziale", "Codice azienda"},
    {4, 23, "CUCodiceCategoriaEntePrevidenziale", "Categoria"},
};

// The form's title of each section.
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
