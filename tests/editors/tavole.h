#pragma once

#include <algorithm>
#include <cctype>
#include <ostream>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace cu::test {

enum class Tipo { Importo, Testo, Flag, Elenco, Numero };

// Layouts by their first year; 2016 is valid for every later year.
inline constexpr int kAnni[] = {2014, 2015, 2016};
inline constexpr int kTutti = 7;
inline constexpr int kDal2015 = 6;
inline constexpr int kNel2015 = 2;
inline constexpr int kDal2016 = 4;

// A field of the editor: the control, its column, its number in the ministerial form.
struct Campo {
  const char* controllo;
  const char* colonna;
  Tipo tipo = Tipo::Importo;
  const char* campo = "";
  int anni = kTutti;

  bool nel(int anno) const { return (anni & (anno == 2014 ? 1 : anno == 2015 ? 2 : 4)) != 0; }
};

// clang-format off
inline const std::vector<Campo>& tavolaModulo1() {
  using enum Tipo;
  static const std::vector<Campo> tavola = {
      {"chkAnticipazione",        "Anticipazione",                        Flag,    "3"},
      {"curField(10)",            "AmmontareLordo",                       Importo, "4"},
      {"curField(11)",            "SommeRegimeConvenzionale",             Importo, "5"},
      {"cboCodicePerNonSoggetti", "IDCodicePerNonSoggetti",               Elenco,  "6"},
      {"curField(12)",            "SommeNonSoggetteARitenuta",            Importo, "7.a"},
      {"curField(22)",            "QuotaProvvigioniNonSoggette",          Importo, "7.b"},
      {"curField(19)",            "Imponibile",                           Importo, "8"},
      {"curField(20)",            "RitenuteAcconto",                      Importo, "9"},
      {"curField(0)",             "RitenuteImposta",                      Importo, "10"},
      {"curField(1)",             "RitenuteSospese",                      Importo, "11"},
      {"curField(2)",             "AddRegionAcconto",                     Importo, "12"},
      {"curField(3)",             "AddRegionImposta",                     Importo, "13"},
      {"curField(4)",             "AddRegionSospesa",                     Importo, "14"},
      {"curField(5)",             "AddComunAcconto",                      Importo, "15"},
      {"curField(6)",             "AddComunImposta",                      Importo, "16"},
      {"curField(7)",             "AddComunSospesa",                      Importo, "17"},
      {"curField(8)",             "ImponibileAnniPrecedenti",             Importo, "18"},
      {"curField(9)",             "RitenuteAnniPrecedenti",               Importo, "19"},
      {"curField(15)",            "SpeseRimborsate",                      Importo, "20"},
      {"curField(16)",            "RitenuteRimborsate",                   Importo, "21"},
      {"curField(13)",            "ContributiCaricoAzienda",              Importo, "34"},
      {"curField(14)",            "ContributiCaricoPercipiente",          Importo, "35"},
      {"chkAltriContributi",      "AltriContributi",                      Flag,    "36",  kDal2015},
      {"curField(23)",            "ImportoAltriContributi",               Importo, "37",  kDal2015},
      {"curField(24)",            "ContributiDovuti",                     Importo, "38",  kDal2015},
      {"curField(25)",            "ContributiVersati",                    Importo, "39",  kDal2015},
      {"curField(26)",            "SommeCorrispostePreFallimento",        Importo, "41",  kDal2015},
      {"curField(27)",            "SommeCorrisposteDalCuratore",          Importo, "42",  kDal2015},
      {"txtField(5)",             "AltriSoggettiCodiceFiscale",           Testo,   "52",  kDal2015},
      {"curField(28)",            "AltriSoggettiImponibile",              Importo, "53",  kDal2015},
      {"curField(31)",            "AltriSoggettiRitenuteAcconto",         Importo, "54",  kDal2015},
      {"curField(30)",            "AltriSoggettiRitenuteImposta",         Importo, "55",  kDal2015},
      {"curField(29)",            "AltriSoggettiRitenuteSospese",         Importo, "56",  kDal2015},
      {"curField(32)",            "AltriSoggettiAddRegionAcconto",        Importo, "57",  kDal2015},
      {"curField(34)",            "AltriSoggettiAddRegionImposta",        Importo, "58",  kDal2015},
      {"curField(35)",            "AltriSoggettiAddRegionSospesa",        Importo, "59",  kDal2015},
      {"curField(33)",            "AltriSoggettiAddComunAcconto",         Importo, "60",  kDal2015},
      {"curField(36)",            "AltriSoggettiAddComunImposta",         Importo, "61",  kDal2015},
      {"curField(37)",            "AltriSoggettiAddComunSospesa",         Importo, "62",  kDal2015},
      {"txtField(6)",             "CodiceFiscaleLavoroAutonomo",          Testo,   "71",  kDal2015},
      {"txtField(7)",             "CodiceFiscalePignoramentoTerzi",       Testo,   "72",  kDal2015},
      {"txtField(8)",             "CodiceFiscaleIndennitaEsproprio",      Testo,   "73",  kDal2015},
      {"txtField(9)",             "PignoramentoTerziCodiceFiscale1",      Testo,   "101", kDal2015},
      {"curField(38)",            "PignoramentoTerziSommeErogate1",       Importo, "102", kDal2015},
      {"curField(39)",            "PignoramentoTerziRitenuteOperate1",    Importo, "103", kDal2015},
      {"chkRitenuteNonOperate1",  "PignoramentoTerziRitenuteNonOperate1", Flag,    "104", kNel2015},
      {"curField(50)",            "PignoramentoTerziSommeNonTassate1",    Importo, "104", kDal2016},
      {"txtField(10)",            "PignoramentoTerziCodiceFiscale2",      Testo,   "105", kDal2015},
      {"curField(40)",            "PignoramentoTerziSommeErogate2",       Importo, "106", kDal2015},
      {"curField(41)",            "PignoramentoTerziRitenuteOperate2",    Importo, "107", kDal2015},
      {"chkRitenuteNonOperate2",  "PignoramentoTerziRitenuteNonOperate2", Flag,    "108", kNel2015},
      {"curField(51)",            "PignoramentoTerziSommeNonTassate2",    Importo, "108", kDal2016},
      {"curField(46)",            "IndennitaEsproprioSommeCorrisposte1",  Importo, "131", kDal2015},
      {"curField(47)",            "IndennitaEsproprioRitenuteOperate1",   Importo, "132", kDal2015},
      {"curField(42)",            "AltreIndennitaSommeCorrisposte1",      Importo, "133", kDal2015},
      {"curField(43)",            "AltreIndennitaRitenuteOperate1",       Importo, "134", kDal2015},
      {"curField(48)",            "IndennitaEsproprioSommeCorrisposte2",  Importo, "135", kDal2015},
      {"curField(49)",            "IndennitaEsproprioRitenuteOperate2",   Importo, "136", kDal2015},
      {"curField(45)",            "AltreIndennitaSommeCorrisposte2",      Importo, "137", kDal2015},
      {"curField(44)",            "AltreIndennitaRitenuteOperate2",       Importo, "138", kDal2015},
  };
  return tavola;
}

// In the order of the statements.
inline const std::vector<Campo>& tavolaModuli() {
  using enum Tipo;
  static const std::vector<Campo> tavola = {
      {"numModulo",                         "NumeroModulo",                         Numero,  ""},
      {"cboCodicePerNonSoggettiAltri",      "IDCodicePerNonSoggetti",               Elenco,  "6"},
      {"numAnno",                           "AnnoModulo",                           Numero,  "2"},
      {"curField(17)",                      "SommeNonSoggette",                     Importo, "7"},
      {"curField(18)",                      "ImponibileAnniPrec",                   Importo, "18"},
      {"curField(21)",                      "RitenuteAnniPrec",                     Importo, "19"},
      {"chkAnticipazioneAltri",             "Anticipazione",                        Flag,    "3"},
      {"curField(66)",                      "ContributiCaricoAzienda",              Importo, "34",  kDal2015},
      {"curField(67)",                      "ContributiCaricoPercipiente",          Importo, "35",  kDal2015},
      {"chkAltriContributiAltriModuli",     "AltriContributi",                      Flag,    "36",  kDal2015},
      {"curField(69)",                      "ImportoAltriContributi",               Importo, "37",  kDal2015},
      {"curField(70)",                      "ContributiDovuti",                     Importo, "38",  kDal2015},
      {"curField(71)",                      "ContributiVersati",                    Importo, "39",  kDal2015},
      {"txtField(18)",                      "AltriSoggettiCodiceFiscale",           Testo,   "52",  kDal2015},
      {"curField(74)",                      "AltriSoggettiImponibile",              Importo, "53",  kDal2015},
      {"curField(77)",                      "AltriSoggettiRitenuteAcconto",         Importo, "54",  kDal2015},
      {"curField(76)",                      "AltriSoggettiRitenuteImposta",         Importo, "55",  kDal2015},
      {"curField(75)",                      "AltriSoggettiRitenuteSospese",         Importo, "56",  kDal2015},
      {"curField(78)",                      "AltriSoggettiAddRegionAcconto",        Importo, "57",  kDal2015},
      {"curField(80)",                      "AltriSoggettiAddRegionImposta",        Importo, "58",  kDal2015},
      {"curField(81)",                      "AltriSoggettiAddRegionSospesa",        Importo, "59",  kDal2015},
      {"curField(79)",                      "AltriSoggettiAddComunAcconto",         Importo, "60",  kDal2015},
      {"curField(82)",                      "AltriSoggettiAddComunImposta",         Importo, "61",  kDal2015},
      {"curField(83)",                      "AltriSoggettiAddComunSospesa",         Importo, "62",  kDal2015},
      {"txtField(14)",                      "PignoramentoTerziCodiceFiscale1",      Testo,   "101", kDal2015},
      {"curField(84)",                      "PignoramentoTerziSommeErogate1",       Importo, "102", kDal2015},
      {"curField(85)",                      "PignoramentoTerziRitenuteOperate1",    Importo, "103", kDal2015},
      {"chkRitenuteNonOperate1AltriModuli", "PignoramentoTerziRitenuteNonOperate1", Flag,    "104", kNel2015},
      {"curField(52)",                      "PignoramentoTerziSommeNonTassate1",    Importo, "104", kDal2016},
      {"txtField(13)",                      "PignoramentoTerziCodiceFiscale2",      Testo,   "105", kDal2015},
      {"curField(86)",                      "PignoramentoTerziSommeErogate2",       Importo, "106", kDal2015},
      {"curField(87)",                      "PignoramentoTerziRitenuteOperate2",    Importo, "107", kDal2015},
      {"chkRitenuteNonOperate2AltriModuli", "PignoramentoTerziRitenuteNonOperate2", Flag,    "108", kNel2015},
      {"curField(53)",                      "PignoramentoTerziSommeNonTassate2",    Importo, "108", kDal2016},
      {"curField(92)",                      "IndennitaEsproprioSommeCorrisposte1",  Importo, "131", kDal2015},
      {"curField(93)",                      "IndennitaEsproprioRitenuteOperate1",   Importo, "132", kDal2015},
      {"curField(88)",                      "AltreIndennitaSommeCorrisposte1",      Importo, "133", kDal2015},
      {"curField(89)",                      "AltreIndennitaRitenuteOperate1",       Importo, "134", kDal2015},
      {"curField(94)",                      "IndennitaEsproprioSommeCorrisposte2",  Importo, "135", kDal2015},
      {"curField(95)",                      "IndennitaEsproprioRitenuteOperate2",   Importo, "136", kDal2015},
      {"curField(91)",                      "AltreIndennitaSommeCorrisposte2",      Importo, "137", kDal2015},
      {"curField(90)",                      "AltreIndennitaRitenuteOperate2",       Importo, "138", kDal2015},
  };
  return tavola;
}

// The heading of both pages: read-only boxes and their values.
inline const std::vector<Campo>& tavolaIntestazione() {
  using enum Tipo;
  static const std::vector<Campo> tavola = {
      {"txtField(11)", "CodiceFiscale",                      Testo, "",   kDal2015},
      {"txtField(12)", "CodiceFiscale",                      Testo, "",   kDal2015},
      {"txtField(0)",  "CUCodiceFiscale",                    Testo, "29", kDal2015},
      {"txtField(19)", "CUCodiceFiscale",                    Testo, "29", kDal2015},
      {"txtField(1)",  "CUDenominazioneEntePrevidenziale",   Testo, "30", kDal2015},
      {"txtField(20)", "CUDenominazioneEntePrevidenziale",   Testo, "30", kDal2015},
      {"txtField(2)",  "CUCodiceEntePrevidenziale",          Testo, "31", kNel2015},
      {"txtField(21)", "CUCodiceEntePrevidenziale",          Testo, "31", kNel2015},
      {"txtField(3)",  "",                                   Testo, "32", kDal2015},
      {"txtField(22)", "",                                   Testo, "32", kDal2015},
      {"txtField(4)",  "CUCodiceCategoriaEntePrevidenziale", Testo, "33", kDal2015},
      {"txtField(23)", "CUCodiceCategoriaEntePrevidenziale", Testo, "33", kDal2015},
  };
  return tavola;
}
// clang-format on

// A field in the editor of a year.
struct Caso {
  int anno;
  Campo campo;
  friend std::ostream& operator<<(std::ostream& out, const Caso& caso) {
    return out << caso.anno << " " << caso.campo.controllo << " " << caso.campo.colonna;
  }
};

// The fields that each layout has (or lacks), one by one.
inline std::vector<Caso> casi(const std::vector<Campo>& tavola, bool presenti = true) {
  std::vector<Caso> tutti;
  for (const int anno : kAnni) {
    for (const Campo& campo : tavola) {
      if (campo.nel(anno) == presenti) tutti.push_back({anno, campo});
    }
  }
  return tutti;
}
inline std::vector<Caso> insieme(std::vector<Caso> casi, const std::vector<Caso>& altri) {
  casi.insert(casi.end(), altri.begin(), altri.end());
  return casi;
}
inline std::vector<Caso> solo(Tipo tipo, std::vector<Caso> casi) {
  std::erase_if(casi, [&](const Caso& caso) { return caso.campo.tipo != tipo; });
  return casi;
}

// The index in its array, "curField(10)" is 10; -1 without one.
inline int indice(std::string_view controllo) {
  const std::size_t aperta = controllo.find('(');
  return aperta == std::string_view::npos ? -1 : std::stoi(std::string(controllo.substr(aperta + 1)));
}

// Names of tests: letters and digits only.
inline std::string nomeDi(std::string testo) {
  std::replace_if(
      testo.begin(), testo.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
  while (!testo.empty() && testo.back() == '_') testo.pop_back();
  return testo;
}
struct NomeCaso {
  template <class Info>
  std::string operator()(const Info& info) const {
    const Caso& caso = info.param;
    return std::to_string(caso.anno) + "_" +
           nomeDi(std::string(caso.campo.controllo) + "_" + caso.campo.colonna);
  }
};

}  // namespace cu::test
