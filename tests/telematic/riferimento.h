#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/table.h"
#include "telematic/tracciati.h"

namespace cu::test {

// The expected content of a record, computed independently: the rows of the form with their codes year by
// year, text and amounts formed with plain string operations. It shares no code with the writers.

using Contenuti = std::map<std::string, Value>;  // column name to value; an absent column is null

inline constexpr int kPrimoAnno = 2013;
inline constexpr int kUltimoAnno = 2018;

enum class Come {
  Testo,
  Maiuscolo,
  Destra,
  DestraRifilato,
  Data,
  Telefono,
  Firma,
  Uno,
  Importo,
  Flag,
  Altro
};
enum class Se { Sempre, PersonaFisica, NonResidente, Schumacker, AnnoDovuto, CausaleN, BloccoC };

struct RigaForma {
  std::string fonte;
  Come come;
  Se se;
  std::array<int, 6> codici;  // in 2013 to 2018; 0 where that year's form lacks the row
};

// clang-format off
inline const std::vector<RigaForma> kFormaD = {
    {"CodiceFiscaleAz",                    Come::Maiuscolo,      Se::Sempre,        {1001, 1001, 1001, 1001, 1001, 1001}},
    {"AnagraficaAz",                       Come::Maiuscolo,      Se::Sempre,        {1002, 1002, 1002, 1002, 1002, 1002}},
    {"NomeAz",                             Come::Maiuscolo,      Se::Sempre,        {1003, 1003, 1003, 1003, 1003, 1003}},
    {"ComuneAz",                           Come::Testo,          Se::Sempre,        {1004, 1004, 1004, 1004, 1004, 1004}},
    {"SiglaProvinciaAz",                   Come::Testo,          Se::Sempre,        {1005, 1005, 1005, 1005, 1005, 1005}},
    {"CapAz",                              Come::Testo,          Se::Sempre,        {1006, 1006, 1006, 1006, 1006, 1006}},
    {"IndirizzoAz",                        Come::Testo,          Se::Sempre,        {1007, 1007, 1007, 1007, 1007, 1007}},
    {"TelefonoAz",                         Come::Telefono,       Se::Sempre,        {1008, 1008, 1008, 1008, 1008, 1008}},
    {"EMailInternetAz",                    Come::Testo,          Se::Sempre,        {1009, 1009, 1009, 1009, 1009, 1009}},
    {"CodiceAttivita",                     Come::Testo,          Se::Sempre,        {1010, 1010, 1010, 1010, 1010, 1010}},
    {"CodiceFiscale",                      Come::Maiuscolo,      Se::Sempre,        {2001, 2001, 2001, 2001, 2001, 2001}},
    {"Anagrafica",                         Come::Maiuscolo,      Se::Sempre,        {2002, 2002, 2002, 2002, 2002, 2002}},
    {"Nome",                               Come::Maiuscolo,      Se::PersonaFisica, {2003, 2003, 2003, 2003, 2003, 2003}},
    {"Sesso",                              Come::Maiuscolo,      Se::Sempre,        {2004, 2004, 2004, 2004, 2004, 2004}},
    {"DataNascita",                        Come::Data,           Se::Sempre,        {2005, 2005, 2005, 2005, 2005, 2005}},
    {"ComuneNascita",                      Come::Testo,          Se::Sempre,        {2006, 2006, 2006, 2006, 2006, 2006}},
    {"ProvinciaNascita",                   Come::Testo,          Se::Sempre,        {2007, 2007, 2007, 2007, 2007, 2007}},
    {"CodiceCategoriaParticolare",         Come::Testo,          Se::Sempre,        {2008, 2008, 2008, 2008, 2008, 2008}},
    {"CodiceEventoEccezionale",            Come::Destra,         Se::Sempre,        {2009, 2009, 2009, 2009, 2009, 2009}},
    {"ComuneResidenzaAnnoPrec",            Come::Testo,          Se::Sempre,        {2020, 2020, 2020, 2020, 2020, 2020}},
    {"SiglaProvResidenzaAnnoPrec",         Come::Testo,          Se::Sempre,        {2021, 2021, 2021, 2021, 2021, 2021}},
    {"CodiceComuneDiNascitaPrec",          Come::Testo,          Se::Sempre,        {2022, 2022, 2022, 2022, 2022, 2022}},
    {"FusioneComuniAnnoPrec",              Come::Testo,          Se::Sempre,        {   0,    0,    0,    0, 2023, 2023}},
    {"ComuneResidenzaAnnoCorr",            Come::Testo,          Se::Sempre,        {2023, 2023, 2023, 2023, 2024, 2024}},
    {"SiglaProvResidenzaAnnoCorr",         Come::Testo,          Se::Sempre,        {2024, 2024, 2024, 2024, 2025, 2025}},
    {"CodiceComuneDiNascitaCorr",          Come::Testo,          Se::Sempre,        {2025, 2025, 2025, 2025, 2026, 2026}},
    {"FusioneComuni",                      Come::Testo,          Se::Sempre,        {   0,    0,    0, 2026, 2027, 2027}},
    {"CodiceFiscaleRappresentante",        Come::Maiuscolo,      Se::Sempre,        {2030, 2030, 2030, 2030, 2030, 2030}},
    {"CodiceIdentificazioneFiscaleEstero", Come::Testo,          Se::NonResidente,  {2040, 2040, 2040, 2040, 2040, 2040}},
    {"ComuneRes",                          Come::Testo,          Se::NonResidente,  {2041, 2041, 2041, 2041, 2041, 2041}},
    {"Indirizzo",                          Come::Testo,          Se::NonResidente,  {2042, 2042, 2042, 2042, 2042, 2042}},
    {"PrefissoInternazionaleRes",          Come::DestraRifilato, Se::NonResidente,  {   0, 2043,    0,    0,    0,    0}},
    {"",                                   Come::Uno,            Se::Schumacker,    {   0,    0, 2043, 2043, 2043, 2043}},
    {"PrefissoInternazionaleRes",          Come::DestraRifilato, Se::NonResidente,  {   0,    0, 2044, 2044, 2044, 2044}},
    {"",                                   Come::Firma,          Se::Sempre,        {3001, 3001, 3001, 3001, 3001, 3001}},
    {"",                                   Come::Uno,            Se::Sempre,        {3002, 3002, 3002, 3002, 3002, 3002}},
};

inline const std::vector<RigaForma> kFormaH1 = {
    {"Codice",                              Come::Maiuscolo, Se::Sempre,     {1001, 1001, 1001, 1001, 1001, 1001}},
    {"Anno",                                Come::Destra,    Se::AnnoDovuto, {1002, 1002, 1002, 1002, 1002, 1002}},
    {"Anticipazione",                       Come::Flag,      Se::Sempre,     {1003, 1003, 1003, 1003, 1003, 1003}},
    {"AmmontareLordo",                      Come::Importo,   Se::Sempre,     {1004, 1004, 1004, 1004, 1004, 1004}},
    {"SommeRegimeConvenzionale",            Come::Importo,   Se::Sempre,     {1005, 1005, 1005, 1005, 1005, 1005}},
    {"#codice non soggetti",                Come::Altro,     Se::Sempre,     {1006, 1006, 1006, 1006, 1006, 1006}},
    {"#somma non soggette",                 Come::Altro,     Se::Sempre,     {1007, 1007, 1007, 1007, 1007, 1007}},
    {"Imponibile",                          Come::Importo,   Se::Sempre,     {1008, 1008, 1008, 1008, 1008, 1008}},
    {"RitenuteAcconto",                     Come::Importo,   Se::Sempre,     {1009, 1009, 1009, 1009, 1009, 1009}},
    {"RitenuteImposta",                     Come::Importo,   Se::Sempre,     {1010, 1010, 1010, 1010, 1010, 1010}},
    {"RitenuteSospese",                     Come::Importo,   Se::Sempre,     {1011, 1011, 1011, 1011, 1011, 1011}},
    {"AddRegionAcconto",                    Come::Importo,   Se::CausaleN,   {1012, 1012, 1012, 1012, 1012, 1012}},
    {"AddRegionImposta",                    Come::Importo,   Se::CausaleN,   {1013, 1013, 1013, 1013, 1013, 1013}},
    {"AddRegionSospesa",                    Come::Importo,   Se::CausaleN,   {1014, 1014, 1014, 1014, 1014, 1014}},
    {"AddComunAcconto",                     Come::Importo,   Se::CausaleN,   {1015, 1015, 1015, 1015, 1015, 1015}},
    {"AddComunImposta",                     Come::Importo,   Se::CausaleN,   {1016, 1016, 1016, 1016, 1016, 1016}},
    {"AddComunSospesa",                     Come::Importo,   Se::CausaleN,   {1017, 1017, 1017, 1017, 1017, 1017}},
    {"ImponibileAnniPrecedenti",            Come::Importo,   Se::Sempre,     {1018, 1018, 1018, 1018, 1018, 1018}},
    {"RitenuteAnniPrecedenti",              Come::Importo,   Se::Sempre,     {1019, 1019, 1019, 1019, 1019, 1019}},
    {"ContributiCaricoAzienda",             Come::Importo,   Se::Sempre,     {   0, 1020,    0,    0,    0,    0}},
    {"ContributiCaricoPercipiente",         Come::Importo,   Se::Sempre,     {   0, 1021,    0,    0,    0,    0}},
    {"SpeseRimborsate",                     Come::Importo,   Se::Sempre,     {   0, 1022, 1020, 1020, 1020, 1020}},
    {"RitenuteRimborsate",                  Come::Importo,   Se::Sempre,     {   0, 1023, 1021, 1021, 1021, 1021}},
};

// From 2015, in both kinds of module; the rows of module 1 only are separate, below.
inline const std::vector<RigaForma> kFormaHDal2015 = {
    {"CUCodiceFiscale",                     Come::Maiuscolo, Se::BloccoC,    {   0,    0, 1029, 1029, 1029, 1029}},
    {"CUDenominazioneEntePrevidenziale",    Come::Testo,     Se::BloccoC,    {   0,    0, 1030, 1030, 1030, 1030}},
    {"CUCodiceEntePrevidenziale",           Come::Testo,     Se::BloccoC,    {   0,    0, 1031,    0,    0,    0}},
    {"#codice presso l'ente",               Come::Altro,     Se::BloccoC,    {   0,    0, 1032, 1032, 1032, 1032}},
    {"CUCodiceCategoriaEntePrevidenziale",  Come::Testo,     Se::BloccoC,    {   0,    0, 1033, 1033, 1033, 1033}},
    {"ContributiCaricoAzienda",             Come::Importo,   Se::BloccoC,    {   0,    0, 1034, 1034, 1034, 1034}},
    {"ContributiCaricoPercipiente",         Come::Importo,   Se::BloccoC,    {   0,    0, 1035, 1035, 1035, 1035}},
    {"AltriContributi",                     Come::Flag,      Se::BloccoC,    {   0,    0, 1036, 1036, 1036, 1036}},
    {"ImportoAltriContributi",              Come::Importo,   Se::BloccoC,    {   0,    0, 1037, 1037, 1037, 1037}},
    {"ContributiDovuti",                    Come::Importo,   Se::BloccoC,    {   0,    0, 1038, 1038, 1038, 1038}},
    {"ContributiVersati",                   Come::Importo,   Se::BloccoC,    {   0,    0, 1039, 1039, 1039, 1039}},
    {"SommeCorrispostePreFallimento",       Come::Importo,   Se::Sempre,     {   0,    0, 1041, 1041, 1041, 1041}},
    {"SommeCorrisposteDalCuratore",         Come::Importo,   Se::Sempre,     {   0,    0, 1042, 1042, 1042, 1042}},
    {"AltriSoggettiCodiceFiscale",          Come::Maiuscolo, Se::Sempre,     {   0,    0, 1052, 1052, 1052, 1052}},
    {"AltriSoggettiImponibile",             Come::Importo,   Se::Sempre,     {   0,    0, 1053, 1053, 1053, 1053}},
    {"AltriSoggettiRitenuteAcconto",        Come::Importo,   Se::Sempre,     {   0,    0, 1054, 1054, 1054, 1054}},
    {"AltriSoggettiRitenuteImposta",        Come::Importo,   Se::Sempre,     {   0,    0, 1055, 1055, 1055, 1055}},
    {"AltriSoggettiRitenuteSospese",        Come::Importo,   Se::Sempre,     {   0,    0, 1056, 1056, 1056, 1056}},
    {"AltriSoggettiAddRegionAcconto",       Come::Importo,   Se::Sempre,     {   0,    0, 1057, 1057, 1057, 1057}},
    {"AltriSoggettiAddRegionImposta",       Come::Importo,   Se::Sempre,     {   0,    0, 1058, 1058, 1058, 1058}},
    {"AltriSoggettiAddRegionSospesa",       Come::Importo,   Se::Sempre,     {   0,    0, 1059, 1059, 1059, 1059}},
    {"AltriSoggettiAddComunAcconto",        Come::Importo,   Se::Sempre,     {   0,    0, 1060, 1060, 1060, 1060}},
    {"AltriSoggettiAddComunImposta",        Come::Importo,   Se::Sempre,     {   0,    0, 1061, 1061, 1061, 1061}},
    {"AltriSoggettiAddComunSospesa",        Come::Importo,   Se::Sempre,     {   0,    0, 1062, 1062, 1062, 1062}},
    {"CodiceFiscaleLavoroAutonomo",         Come::Maiuscolo, Se::Sempre,     {   0,    0, 1071, 1071, 1071, 1071}},
    {"CodiceFiscalePignoramentoTerzi",      Come::Maiuscolo, Se::Sempre,     {   0,    0, 1072, 1072, 1072, 1072}},
    {"CodiceFiscaleIndennitaEsproprio",     Come::Maiuscolo, Se::Sempre,     {   0,    0, 1073, 1073, 1073, 1073}},
    {"PignoramentoTerziCodiceFiscale1",     Come::Maiuscolo, Se::Sempre,     {   0,    0, 1101, 1101, 1101, 1101}},
    {"PignoramentoTerziSommeErogate1",      Come::Importo,   Se::Sempre,     {   0,    0, 1102, 1102, 1102, 1102}},
    {"PignoramentoTerziRitenuteOperate1",   Come::Importo,   Se::Sempre,     {   0,    0, 1103, 1103, 1103, 1103}},
    {"PignoramentoTerziRitenuteNonOperate1", Come::Flag,     Se::Sempre,     {   0,    0, 1104,    0,    0,    0}},
    {"PignoramentoTerziSommeNonTassate1",   Come::Importo,   Se::Sempre,     {   0,    0,    0, 1104, 1104, 1104}},
    {"PignoramentoTerziCodiceFiscale2",     Come::Maiuscolo, Se::Sempre,     {   0,    0, 1105, 1105, 1105, 1105}},
    {"PignoramentoTerziSommeErogate2",      Come::Importo,   Se::Sempre,     {   0,    0, 1106, 1106, 1106, 1106}},
    {"PignoramentoTerziRitenuteOperate2",   Come::Importo,   Se::Sempre,     {   0,    0, 1107, 1107, 1107, 1107}},
    {"PignoramentoTerziRitenuteNonOperate2", Come::Flag,     Se::Sempre,     {   0,    0, 1108,    0,    0,    0}},
    {"PignoramentoTerziSommeNonTassate2",   Come::Importo,   Se::Sempre,     {   0,    0,    0, 1108, 1108, 1108}},
    {"IndennitaEsproprioSommeCorrisposte1", Come::Importo,   Se::Sempre,     {   0,    0, 1131, 1131, 1131, 1131}},
    {"IndennitaEsproprioRitenuteOperate1",  Come::Importo,   Se::Sempre,     {   0,    0, 1132, 1132, 1132, 1132}},
    {"AltreIndennitaSommeCorrisposte1",     Come::Importo,   Se::Sempre,     {   0,    0, 1133, 1133, 1133, 1133}},
    {"AltreIndennitaRitenuteOperate1",      Come::Importo,   Se::Sempre,     {   0,    0, 1134, 1134, 1134, 1134}},
    {"IndennitaEsproprioSommeCorrisposte2", Come::Importo,   Se::Sempre,     {   0,    0, 1135, 1135, 1135, 1135}},
    {"IndennitaEsproprioRitenuteOperate2",  Come::Importo,   Se::Sempre,     {   0,    0, 1136, 1136, 1136, 1136}},
    {"AltreIndennitaSommeCorrisposte2",     Come::Importo,   Se::Sempre,     {   0,    0, 1137, 1137, 1137, 1137}},
    {"AltreIndennitaRitenuteOperate2",      Come::Importo,   Se::Sempre,     {   0,    0, 1138, 1138, 1138, 1138}},
};
inline const std::vector<int> kSoloModulo1 = {1041, 1042, 1071, 1072, 1073};

inline const std::vector<RigaForma> kFormaHAltri = {
    {"AnnoModulo",                          Come::Destra,    Se::Sempre,     {1002, 1002, 1002, 1002, 1002, 1002}},
    {"Anticipazione",                       Come::Flag,      Se::Sempre,     {1003, 1003, 1003, 1003, 1003, 1003}},
    {"CodicePerNonSoggetti",                Come::Destra,    Se::Sempre,     {1006, 1006, 1006, 1006, 1006, 1006}},
    {"SommeNonSoggette",                    Come::Importo,   Se::Sempre,     {1007, 1007, 1007, 1007, 1007, 1007}},
    {"ImponibileAnniPrec",                  Come::Importo,   Se::Sempre,     {1018, 1018, 1018, 1018, 1018, 1018}},
    {"RitenuteAnniPrec",                    Come::Importo,   Se::Sempre,     {1019, 1019, 1019, 1019, 1019, 1019}},
};
// clang-format on

inline std::vector<RigaForma> formaH(bool primoModulo) {
  std::vector<RigaForma> forma = primoModulo ? kFormaH1 : kFormaHAltri;
  for (const RigaForma& riga : kFormaHDal2015) {
    bool solo = false;
    for (const int codice : kSoloModulo1) solo = solo || riga.codici[2] == codice;
    if (primoModulo || !solo) forma.push_back(riga);
  }
  return forma;
}

// Codes and values of one record, in order, in the file's own bytes.
using Celle = std::vector<std::pair<std::string, std::string>>;

class Riferimento {
 public:
  Riferimento(int anno, const Contenuti& riga) : anno_(anno), riga_(riga) {}

  Celle celleD(const std::string& firma) const { return celle(kFormaD, "DA00", firma, true); }
  Celle celleH1() const { return celle(formaH(true), "AU00", "", true); }
  Celle celleHAltri() const { return celle(formaH(false), "AU00", "", false); }

  // Field contents of the cells: code and 16 characters each; a longer value continues after a "+".
  static std::map<std::string, std::string> campi(const Celle& celle) {
    std::map<std::string, std::string> campi;
    int n = 0;
    for (const auto& [codice, valore] : celle) {
      campi["Campo" + std::to_string(++n)] = codice + valore.substr(0, 16);
      for (std::size_t i = 16; i < valore.size(); i += 15) {
        campi["Campo" + std::to_string(++n)] = codice + "+" + valore.substr(i, 15);
      }
    }
    if (n > 75) throw std::length_error("more than 75 cells");
    return campi;
  }
  static int quante(const Celle& celle) {
    int n = 0;
    for (const auto& [codice, valore] : celle) {
      n += 1 + static_cast<int>(valore.size() > 16 ? (valore.size() - 16 + 14) / 15 : 0);
    }
    return n;
  }

  // The Latin letters used in the tests.
  static std::string codifica(const std::string& utf8) {
    std::string uscita;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
      const auto byte = static_cast<unsigned char>(utf8[i]);
      if (byte < 0x80) {
        uscita += utf8[i];
      } else if (byte == 0xC3) {
        uscita += static_cast<char>(static_cast<unsigned char>(static_cast<unsigned char>(utf8[++i]) + 0x40));
      } else {
        throw std::logic_error("a letter that the reference does not know");
      }
    }
    return uscita;
  }
  static std::string grande(std::string testo) {
    for (char& c : testo) {
      const auto byte = static_cast<unsigned char>(c);
      const bool accentata = byte >= 0xE0 && byte <= 0xFE && byte != 0xF7;
      if ((c >= 'a' && c <= 'z') || accentata) c = static_cast<char>(static_cast<unsigned char>(byte - 32));
    }
    return testo;
  }

 private:
  CellView valore(const std::string& colonna) const {
    const auto trovato = riga_.find(colonna);
    return trovato == riga_.end() ? CellView() : trovato->second.view();
  }
  std::string testo(const std::string& colonna) const { return codifica(valore(colonna).toText()); }
  std::int64_t decimillesimi(const std::string& colonna) const { return valore(colonna).decimal().scaled(); }
  bool vero(const std::string& colonna) const { return decimillesimi(colonna) != 0; }

  static std::string aDestra(const std::string& testo) {
    if (testo.empty()) return "";
    if (testo.size() > 16) throw std::length_error("too long: " + testo);
    return std::string(16 - testo.size(), ' ') + testo;
  }
  static std::string importo(std::int64_t decimillesimi) {
    if (decimillesimi == 0) return "";
    const std::int64_t grandezza = decimillesimi < 0 ? -decimillesimi : decimillesimi;
    const std::int64_t centesimi = (grandezza + 50) / 100;
    std::string resto = std::to_string(centesimi % 100);
    if (resto.size() < 2) resto = "0" + resto;
    return aDestra((decimillesimi < 0 ? "-" : "") + std::to_string(centesimi / 100) + "," + resto);
  }
  static std::string senzaSegni(const std::string& testo) {
    std::string pulito;
    for (const char c : testo) {
      if (std::string_view(" -/\\().+").find(c) == std::string_view::npos) pulito += c;
    }
    return pulito;
  }
  static std::string rifilato(std::string testo) {
    testo.erase(0, testo.find_first_not_of(' '));
    testo.erase(testo.find_last_not_of(' ') + 1);
    return testo;
  }

  bool se(Se condizione) const {
    const std::string causale = testo("Codice");
    switch (condizione) {
      case Se::Sempre:
        return true;
      case Se::PersonaFisica:
        return vero("PersonaFisica");
      case Se::NonResidente:
        return vero("NonResidente");
      case Se::Schumacker:
        return vero("NonResidente") && vero("NonResidenteSchumacker");
      case Se::AnnoDovuto:
        return vero("Anticipazione") || causale == "G" || causale == "H" || causale == "I";
      case Se::CausaleN:
        return causale == "N";
      case Se::BloccoC:
        return vero("ContributiCaricoAzienda") || vero("ContributiCaricoPercipiente") ||
               vero("ImportoAltriContributi") || vero("ContributiDovuti") || vero("ContributiVersati");
    }
    return false;
  }

  std::string altro(const std::string& regola, bool primoModulo) const {
    const std::int64_t somma =
        decimillesimi("SommeNonSoggetteARitenuta") + decimillesimi("QuotaProvvigioniNonSoggette");
    if (regola == "#somma non soggette") return importo(somma);
    if (regola == "#codice non soggetti") {
      const std::string codice = testo("CodicePerNonSoggetti");
      if (!codice.empty()) return aDestra(codice);
      if (somma == 0) return "";
      const std::int64_t anno = valore("Anno").integer();
      return aDestra(anno < 2016 ? "3" : anno == 2016 ? "6" : "7");
    }
    if (!primoModulo) return testo("CUDenominazioneEntePrevidenziale");
    switch (valore("IDCUEntePrevidenziale").integer()) {
      case 1:
        return testo("CodiceAzPressoENPAM");
      case 2:
        return testo("CodiceAzPressoENPAPI");
      default:
        return testo(anno_ == 2015 ? "CUCodiceEntePrevidenziale" : "CUDenominazioneEntePrevidenziale");
    }
  }

  std::string forma(const RigaForma& riga, const std::string& firma, bool primoModulo) const {
    switch (riga.come) {
      case Come::Testo:
        return testo(riga.fonte);
      case Come::Maiuscolo:
        return grande(testo(riga.fonte));
      case Come::Destra:
        return aDestra(testo(riga.fonte));
      case Come::DestraRifilato:
        return aDestra(rifilato(testo(riga.fonte)));
      case Come::Data: {
        const std::string italiana = testo(riga.fonte);  // dd/mm/yyyy
        return italiana.empty()
                   ? ""
                   : aDestra(italiana.substr(0, 2) + italiana.substr(3, 2) + italiana.substr(6, 4));
      }
      case Come::Telefono: {
        const std::string telefono = senzaSegni(testo("TelefonoAz"));
        const bool cifre = !telefono.empty() && telefono.find_first_not_of("0123456789") == std::string::npos;
        return cifre ? telefono : senzaSegni(testo("FaxAz"));
      }
      case Come::Firma:
        return aDestra(firma);
      case Come::Uno:
        return aDestra("1");
      case Come::Importo:
        return importo(decimillesimi(riga.fonte));
      case Come::Flag:
        return vero(riga.fonte) ? aDestra("1") : "";
      case Come::Altro:
        return altro(riga.fonte, primoModulo);
    }
    return "";
  }

  Celle celle(const std::vector<RigaForma>& tavola, const std::string& prefisso, const std::string& firma,
              bool primoModulo) const {
    Celle risultato;
    for (const RigaForma& riga : tavola) {
      const int codice = riga.codici.at(static_cast<std::size_t>(anno_ - kPrimoAnno));
      if (codice == 0 || !se(riga.se)) continue;
      const std::string valore = forma(riga, firma, primoModulo);
      if (!valore.empty()) risultato.emplace_back(prefisso + std::to_string(codice), valore);
    }
    return risultato;
  }

  int anno_;
  const Contenuti& riga_;
};

}  // namespace cu::test
