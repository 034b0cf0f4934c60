#include "telematic/controlli.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "base/error.h"
#include "support/fake_connection.h"
#include "support/scripted_front_end.h"
#include "support/simple_utility.h"

namespace cu::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Riga = std::map<std::string, Value>;

const std::string kAzienda =
    "SELECT CASE WHEN ISNULL(Anagrafica.CodiceFiscale, '') = '' THEN Anagrafica.PartitaIva ELSE"
    " Anagrafica.CodiceFiscale END AS CodFisc,"
    " Anagrafica.Anagrafica AS AnagAz, Anagrafica.PersonaFisica AS PersonaFisicaAz,"
    " Anagrafica.Nome AS NomeAz,"
    " ComAz.Comune ComuneAz, ProvAz.Provincia SiglaProvinciaAz,"
    " AnagRapp.Anagrafica AS AnagraficaRapp, AnagRapp.Nome AS NomeRapp,"
    " AnagRapp.CodiceFiscale AS CodiceFiscaleRapp, CodiceCarica.Codice CodiceCarica"
    " FROM Anagrafica"
    " INNER JOIN Azienda ON Anagrafica.IDAnagrafica = Azienda.IDAnagrafica"
    " LEFT JOIN Comune ComAz ON Anagrafica.IDComune = ComAz.IDComune"
    " LEFT JOIN Provincia ProvAz ON ComAz.IDProvincia = ProvAz.IDProvincia"
    " LEFT JOIN ConfigurazioneGenerale CG ON Azienda.IDAzienda = CG.IDAzienda"
    " LEFT JOIN Anagrafica AnagRapp ON CG.IDAnagraficaRappresentante = AnagRapp.IDAnagrafica"
    " LEFT JOIN CodiceCarica ON CG.IDCodiceCaricaRappresentante = CodiceCarica.IDCodiceCarica"
    " WHERE Azienda.IDAzienda = 7";

const std::string kPercipienti =
    "SELECT DISTINCT Anag.Sesso, Anag.DataNascita, NonResidente, Anag.Indirizzo, Anag.PersonaFisica,"
    " Anag.Anagrafica, Anag.Nome, Anag.Anagrafica + ' ' + ISNULL(Anag.Nome,'') AS AnagPercipiente,"
    " CASE WHEN ISNULL(Anag.CodiceFiscale, '') = '' THEN Anag.PartitaIva ELSE Anag.CodiceFiscale END"
    " AS CodiceFiscale,"
    " ComNascita.Comune AS ComuneNascita, ComRes.Comune AS ComuneRes, NazNasc.Nazione AS NazioneNascita,"
    " CodiceIdentificazioneFiscaleEstero, NazRes.PrefissoInternazionale PrefissoInternazionaleRes"
    " FROM tmpprequadrivio12 INNER JOIN Anagrafica Anag ON tmpprequadrivio12.IDAnagrafica = Anag.IDAnagrafica"
    " LEFT JOIN Comune ComNascita ON Anag.IDComuneNascita = ComNascita.IDComune"
    " LEFT JOIN Provincia ProvNascita ON ComNascita.IDProvincia = ProvNascita.IDProvincia"
    " LEFT JOIN Nazione NazNasc ON Anag.IDNazionalita = NazNasc.IDNazione"
    " LEFT JOIN Comune ComRes ON Anag.IDComune = ComRes.IDComune"
    " LEFT JOIN Provincia ProvRes ON ComRes.IDProvincia = ProvRes.IDProvincia"
    " LEFT JOIN Nazione NazRes ON Anag.IDNazione = NazRes.IDNazione"
    " WHERE Selezionato <> 0";

Riga aziendaCompleta(bool personaFisica) {
  return {{"CodFisc", text("01234567890")},
          {"AnagAz", text("Quadrivio SRL")},
          {"PersonaFisicaAz", whole(personaFisica ? 1 : 0)},
          {"NomeAz", personaFisica ? text("Ada") : null()},
          {"ComuneAz", text("Roma")},
          {"SiglaProvinciaAz", text("RM")},
          {"AnagraficaRapp", personaFisica ? null() : text("Bianchi")},
          {"NomeRapp", personaFisica ? null() : text("Ada")},
          {"CodiceFiscaleRapp", personaFisica ? null() : text("BNCDAA70A41H501X")},
          {"CodiceCarica", personaFisica ? null() : text("1")}};
}

Riga percipienteCompleto() {
  return {{"Sesso", text("M")},
          {"DataNascita", day(1970, 1, 1)},
          {"NonResidente", whole(0)},
          {"Indirizzo", text("Via Roma 1")},
          {"PersonaFisica", whole(1)},
          {"Anagrafica", text("Rossi")},
          {"Nome", text("Mario")},
          {"AnagPercipiente", text("Rossi Mario")},
          {"CodiceFiscale", text("RSSMRA70A01H501U")},
          {"ComuneNascita", text("Roma")},
          {"ComuneRes", text("Roma")},
          {"NazioneNascita", text("Italia")},
          {"CodiceIdentificazioneFiscaleEstero", null()},
          {"PrefissoInternazionaleRes", null()}};
}

Table tavola(const Riga& colonne, const std::vector<Riga>& righe) {
  Table risultato;
  for (const auto& [nome, valore] : colonne) risultato.columns.push_back({nome, ValueType::Null});
  for (const Riga& riga : righe) {
    std::vector<Value> valori;
    for (const auto& [nome, valore] : riga) valori.push_back(valore);
    risultato.rows.push_back(std::move(valori));
  }
  return risultato;
}

class Checks : public testing::Test {
 protected:
  void esegui() {
    connessione.answer(kAzienda, tavola(aziendaCompleta(false), aziende));
    connessione.answer(kPercipienti, tavola(percipienteCompleto(), percipienti));
    controlli.esegui(dati, 7, "tmpprequadrivio12");
  }
  // Campo, Sezione, Denominazione, Codice fiscale, Message of each missing datum.
  std::vector<std::vector<std::string>> righe() const {
    std::vector<std::vector<std::string>> trovate;
    for (const DatoMancante& dato : controlli.mancanti()) {
      trovate.push_back({dato.campo, dato.sezione, dato.denominazione, dato.codiceFiscale, dato.messaggio});
    }
    return trovate;
  }

  std::vector<std::string> colonna(std::size_t quale) const {
    std::vector<std::string> testi;
    for (const auto& riga : righe()) testi.push_back(riga.at(quale));
    return testi;
  }

  DatiControllo dati{.dataFirma = "05/03/2017",
                     .usoIntermediari = true,
                     .codiceFiscaleIntermediario = "NTRMDR70A01H501U",
                     .dataImpegno = "01/02/2017"};
  std::vector<Riga> aziende = {aziendaCompleta(false)};
  std::vector<Riga> percipienti = {percipienteCompleto()};
  FakeConnection connessione;
  ScriptedFrontEnd frontEnd;
  SimpleUtility utilita{frontEnd};
  Controlli controlli{connessione, utilita};
};

TEST_F(Checks, QueriesAreSentWordForWord) {
  EXPECT_EQ(Controlli::fnQueryAzienda(7), kAzienda);
  EXPECT_EQ(Controlli::fnQueryPercipienti("tmpprequadrivio12"), kPercipienti);
}

TEST_F(Checks, ReadCompanyThenPayeesEachAdaptedBefore) {
  utilita.adapt = [](const std::string& testo) { return testo + " --"; };
  connessione.answer(kAzienda + " --", tavola(aziendaCompleta(false), aziende));
  connessione.answer(kPercipienti + " --", tavola(percipienteCompleto(), percipienti));
  controlli.esegui(dati, 7, "tmpprequadrivio12");
  EXPECT_THAT(connessione.texts(), ElementsAre(kAzienda + " --", kPercipienti + " --"));
}

TEST_F(Checks, CompleteDataWriteNoRow) {
  esegui();
  EXPECT_THAT(righe(), IsEmpty());
  EXPECT_FALSE(controlli.bErrori());
  EXPECT_EQ(controlli.sCodFisc(), "01234567890");
}

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
  // Makes one datum missing, null or empty; all others are present.
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
    // Only this one is trimmed.
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

TEST_F(Checks, WithoutAnIntermediaryItsDataAreNotAskedFor) {
  dati.usoIntermediari = false;
  dati.codiceFiscaleIntermediario.clear();
  dati.dataImpegno.clear();
  esegui();
  EXPECT_THAT(righe(), IsEmpty());
}

TEST_F(Checks, OfACompanyThatIsANaturalPersonAskForNoRepresentative) {
  aziende = {aziendaCompleta(true)};
  esegui();
  EXPECT_THAT(righe(), IsEmpty());
}

TEST_F(Checks, OfACompanyThatIsNoneAskForNoFirstName) {
  aziende[0]["NomeAz"] = null();
  esegui();
  EXPECT_THAT(righe(), IsEmpty());
}

TEST_F(Checks, ACompanyWithANullMarkIsNoNaturalPerson) {
  aziende[0]["PersonaFisicaAz"] = null();
  aziende[0]["NomeRapp"] = null();
  esegui();
  EXPECT_THAT(colonna(0), ElementsAre("Nome rappresentante"));
}

TEST_F(Checks, ACompanyThatIsNotFoundWritesNoRowAndHasNoCode) {
  aziende.clear();
  esegui();
  EXPECT_THAT(righe(), IsEmpty());
  EXPECT_EQ(controlli.sCodFisc(), "");
  EXPECT_FALSE(controlli.bErrori());
}

TEST_F(Checks, ACompanyWithAVatNumberOnlyPasses) {
  aziende[0]["CodFisc"] = text("09876543210");
  esegui();
  EXPECT_THAT(righe(), IsEmpty());
  EXPECT_EQ(controlli.sCodFisc(), "09876543210");
}

TEST_F(Checks, WithNoSelectedRowNoPayeeIsTested) {
  percipienti.clear();
  esegui();
  EXPECT_THAT(righe(), IsEmpty());
}

TEST_F(Checks, APayeeThatIsNoNaturalPersonIsTestedByItsCodeItsNameAndItsCountryOnly) {
  for (const char* colonna : {"Nome", "Sesso", "DataNascita", "ComuneNascita", "NazioneNascita"}) {
    percipienti[0][colonna] = null();
  }
  for (const Value& marca : {whole(0), null()}) {
    percipienti[0]["PersonaFisica"] = marca;
    esegui();
    EXPECT_THAT(righe(), IsEmpty());
  }
  percipienti[0]["CodiceFiscale"] = null();
  percipienti[0]["Anagrafica"] = null();
  percipienti[0]["NonResidente"] = whole(1);
  esegui();
  EXPECT_THAT(colonna(0), ElementsAre("Codice fiscale", "Cognome", "Codice nazione residenza"));
}

TEST_F(Checks, APayeeWhoIsNotResidentIsNotExcusedFromTheOthers) {
  percipienti[0]["NonResidente"] = whole(1);
  percipienti[0]["Sesso"] = null();
  esegui();
  EXPECT_THAT(colonna(0), ElementsAre("Sesso", "Codice nazione residenza"));
}

TEST_F(Checks, AResidentOrOneWithANullMarkNeedsNoCountry) {
  for (const Value& marca : {whole(0), null()}) {
    percipienti[0]["NonResidente"] = marca;
    esegui();
    EXPECT_THAT(righe(), IsEmpty());
  }
}

struct Nascita {
  const char* nome;
  Value nazione;
  bool manca;  // an empty municipality counts as missing
};

class Birthplace : public Checks, public testing::WithParamInterface<Nascita> {};

TEST_P(Birthplace, IsAMunicipalityForThoseBornInItaly) {
  percipienti[0]["NazioneNascita"] = GetParam().nazione;
  percipienti[0]["ComuneNascita"] = null();
  esegui();
  EXPECT_EQ(colonna(0), GetParam().manca ? std::vector<std::string>{"Comune/Nazione di nascita"}
                                         : std::vector<std::string>{});
}

INSTANTIATE_TEST_SUITE_P(
    Countries, Birthplace,
    testing::Values(Nascita{"Null", null(), true}, Nascita{"Empty", text(""), true},
                    Nascita{"Capitals", text("ITALIA"), true}, Nascita{"Capital", text("Italia"), true},
                    Nascita{"Small", text("italia"), true}, Nascita{"Mixed", text("iTaLiA"), true},
                    Nascita{"Blank", text(" "), false}, Nascita{"Abroad", text("Francia"), false},
                    Nascita{"Longer", text("ITALIANA"), false}),
    [](const auto& caso) { return std::string(caso.param.nome); });

TEST_F(Checks, ThreeMissingDataOfAPayeeGiveThreeRows) {
  percipienti[0]["Nome"] = null();
  percipienti[0]["Sesso"] = text("");
  percipienti[0]["DataNascita"] = null();
  esegui();
  EXPECT_THAT(colonna(0), ElementsAre("Nome", "Sesso", "Data di nascita"));
}

TEST_F(Checks, PayeesAreTestedOneAfterTheOther) {
  percipienti.push_back(percipienteCompleto());
  percipienti[0]["Sesso"] = null();
  percipienti[1]["AnagPercipiente"] = text("Verdi Ugo");
  percipienti[1]["CodiceFiscale"] = null();
  percipienti[1]["DataNascita"] = null();
  esegui();
  EXPECT_THAT(colonna(2), ElementsAre("Rossi Mario", "Verdi Ugo", "Verdi Ugo"));
  EXPECT_THAT(colonna(3), ElementsAre("RSSMRA70A01H501U", "", ""));
}

TEST_F(Checks, NoCodeIsTestedForItsForm) {
  aziende[0]["CodFisc"] = text("x");
  aziende[0]["CodiceFiscaleRapp"] = text("y");
  percipienti[0]["CodiceFiscale"] = text("z");
  dati.codiceFiscaleIntermediario = "1";
  esegui();
  EXPECT_THAT(righe(), IsEmpty());
}

TEST_F(Checks, ADatabaseErrorRises) {
  connessione.refuseContaining("AS CodFisc", DatabaseErrorKind::Timeout);
  EXPECT_THROW(controlli.esegui(dati, 7, "tmpprequadrivio12"), DatabaseError);
}

}  // namespace
}  // namespace cu::test
