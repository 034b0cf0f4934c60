// The table of the checks: each one alone, and all of them at once.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "telematic/controlli_prova.h"

namespace cu::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

enum class Dove { Firma, Codice, Impegno, Azienda, AziendaPersona, Percipiente };

struct Controllo {
  int numero;
  Dove dove;
  const char* colonna;
  const char* sezione;
  const char* campo;
  const char* messaggio;
  const char* denominazione;
  const char* codiceFiscale;
};

// clang-format off
constexpr Controllo kControlli[] = {
    { 1, Dove::Firma,          "",                  "Generico",      "Data della firma",              "Data della firma non presente",                  "",              ""},
    { 2, Dove::Codice,         "",                  "Intermediario", "Codice fiscale",                "Codice fiscale intermediario non presente",      "",              ""},
    { 3, Dove::Impegno,        "",                  "Intermediario", "Data dell'impegno",             "Data dell'impegno non presente",                 "",              ""},
    { 4, Dove::Azienda,        "CodFisc",           "Azienda",       "Codice fiscale",                "Codice fiscale o partita IVA non presente",      "Quadrivio SRL", ""},
    { 5, Dove::Azienda,        "ComuneAz",          "Azienda",       "Comune sede",                   "Comune sede non presente",                       "",              "01234567890"},
    { 6, Dove::Azienda,        "SiglaProvinciaAz",  "Azienda",       "Provincia sede",                "Provincia sede non presente",                    "",              "01234567890"},
    { 7, Dove::AziendaPersona, "NomeAz",            "Azienda",       "Nome azienda",                  "Nome azienda non presente",                      "",              "01234567890"},
    { 8, Dove::Azienda,        "CodiceFiscaleRapp", "Azienda",       "Codice fiscale rappresentante", "Codice fiscale del rappresentante non presente", "",              "01234567890"},
    { 9, Dove::Azienda,        "CodiceCarica",      "Azienda",       "Codice carica rappresentante",  "Codice carica del rappresentante non presente",  "",              "01234567890"},
    {10, Dove::Azienda,        "AnagraficaRapp",    "Azienda",       "Cognome rappresentante",        "Cognome del rappresentante non presente",        "",              "01234567890"},
    {11, Dove::Azienda,        "NomeRapp",          "Azienda",       "Nome rappresentante",           "Nome del rappresentante non presente",           "",              "01234567890"},
    {12, Dove::Percipiente,    "CodiceFiscale",     "Percipiente",   "Codice fiscale",                "Codice fiscale non presente",                    "Rossi Mario",   ""},
    {13, Dove::Percipiente,    "Anagrafica",        "Percipiente",   "Cognome",                       "Cognome non presente",                           "Rossi Mario",   "RSSMRA70A01H501U"},
    {14, Dove::Percipiente,    "Nome",              "Percipiente",   "Nome",                          "Nome non presente",                              "Rossi Mario",   "RSSMRA70A01H501U"},
    {15, Dove::Percipiente,    "Sesso",             "Percipiente",   "Sesso",                         "Sesso non presente",                             "Rossi Mario",   "RSSMRA70A01H501U"},
    {16, Dove::Percipiente,    "DataNascita",       "Percipiente",   "Data di nascita",               "Data di nascita non presente",                   "Rossi Mario",   "RSSMRA70A01H501U"},
    {17, Dove::Percipiente,    "ComuneNascita",     "Percipiente",   "Comune/Nazione di nascita",     "Comune/Nazione di nascita non presente",         "Rossi Mario",   "RSSMRA70A01H501U"},
    {18, Dove::Percipiente,    "PrefissoInternazionaleRes", "Percipiente", "Codice nazione residenza", "Codice nazione di residenza non presente",       "Rossi Mario",   "RSSMRA70A01H501U"},
};
// clang-format on

class EachCheck : public Checks, public testing::WithParamInterface<Controllo> {
 protected:
  // The one datum is missing, null or empty; everything else is there.
  void togli(const Value& vuoto) {
    switch (GetParam().dove) {
      case Dove::Firma:
        dati.dataFirma.clear();
        break;
      case Dove::Codice:
        dati.codiceFiscaleIntermediario.clear();
        break;
      case Dove::Impegno:
        dati.dataImpegno.clear();
        break;
      case Dove::AziendaPersona:
        aziende = {aziendaCompleta(true)};
        aziende[0].at(GetParam().colonna) = vuoto;
        break;
      case Dove::Azienda:
        aziende[0].at(GetParam().colonna) = vuoto;
        break;
      case Dove::Percipiente:
        percipienti[0]["NonResidente"] = whole(1);
        percipienti[0]["PrefissoInternazionaleRes"] = text("032");
        percipienti[0].at(GetParam().colonna) = vuoto;
        break;
    }
    esegui();
  }
  std::vector<std::string> attesa() const {
    return {GetParam().campo, GetParam().sezione, GetParam().denominazione, GetParam().codiceFiscale,
            GetParam().messaggio};
  }
};

TEST_P(EachCheck, WritesItsRowForANull) {
  togli(null());
  EXPECT_THAT(righe(), ElementsAre(attesa()));
  EXPECT_TRUE(controlli.bErrori());
}

TEST_P(EachCheck, WritesItsRowForAnEmptyText) {
  togli(text(""));
  EXPECT_THAT(righe(), ElementsAre(attesa()));
}

TEST_P(EachCheck, TakesABlankOfTheDatabaseForAValue) {
  if (GetParam().dove == Dove::Firma) {
    dati.dataFirma = "  ";
    esegui();
  } else if (GetParam().dove == Dove::Impegno) {
    dati.dataImpegno = "  ";
    esegui();
  } else if (GetParam().dove == Dove::Codice) {
    // This one alone is trimmed.
    dati.codiceFiscaleIntermediario = "   ";
    esegui();
    EXPECT_THAT(righe(), ElementsAre(attesa()));
    return;
  } else {
    togli(text(" "));
  }
  EXPECT_THAT(righe(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Table, EachCheck, testing::ValuesIn(kControlli),
                         [](const auto& caso) { return "Number" + std::to_string(caso.param.numero); });

TEST_F(Checks, GoOnSoThatEverythingMissingIsTold) {
  dati = {.dataFirma = "", .usoIntermediari = true, .codiceFiscaleIntermediario = "", .dataImpegno = ""};
  for (auto& [nome, valore] : aziende[0]) valore = null();
  for (auto& [nome, valore] : percipienti[0]) {
    if (nome != "PersonaFisica" && nome != "NonResidente") valore = null();
  }
  percipienti[0]["NonResidente"] = whole(-1);
  esegui();
  std::vector<std::string> messaggi;
  for (const Controllo& controllo : kControlli) {
    if (controllo.numero != 7) messaggi.emplace_back(controllo.messaggio);
  }
  EXPECT_EQ(colonna(4), messaggi);
}

}  // namespace
}  // namespace cu::test
