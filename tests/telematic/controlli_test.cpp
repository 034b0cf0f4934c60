#include "telematic/controlli.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/error.h"
#include "telematic/controlli_prova.h"

namespace cu::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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
