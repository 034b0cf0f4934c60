#include "telematic/intermediario.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/error.h"
#include "support/fake_connection.h"
#include "support/scripted_front_end.h"
#include "support/simple_utility.h"

namespace cu::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

const std::string kLettura =
    "SELECT CodiceFiscaleIntermediario, TipoComunicazione, DataImpegno FROM ConfigurazioneElencoCliFor"
    " WHERE IDAzienda = 7";
const std::string kEsiste = "SELECT * FROM ConfigurazioneElencoCliFor WHERE IDAzienda = 7";

class StoredIntermediary : public testing::Test {
 protected:
  void salvato(Value codice, Value tipo, Value data) {
    connessione.answer(kLettura, Table({"CodiceFiscaleIntermediario", "TipoComunicazione", "DataImpegno"},
                                       {{std::move(codice), std::move(tipo), std::move(data)}}));
  }
  std::optional<Intermediario> leggi() { return fnLeggiIntermediario(connessione, 7, utilita); }
  void scrivi(const Intermediario& intermediario) {
    sbScriviIntermediario(connessione, 7, intermediario, utilita);
  }
  void presente(bool una) {
    std::vector<std::vector<Value>> righe;
    if (una) righe.push_back({whole(7)});
    connessione.answer(kEsiste, Table({"IDAzienda"}, righe));
  }
  std::vector<std::string> istruzioni() const { return connessione.texts(FakeConnection::Kind::Execute); }

  FakeConnection connessione;
  ScriptedFrontEnd frontEnd;
  SimpleUtility utilita{frontEnd};
};

TEST_F(StoredIntermediary, IsReadByCompany) {
  salvato(text("NTRMDR70A01H501U"), whole(1), day(2017, 2, 10));
  const auto letto = leggi();
  ASSERT_TRUE(letto.has_value());
  EXPECT_EQ(letto->codiceFiscale, "NTRMDR70A01H501U");
  EXPECT_EQ(letto->indiceImpegno, 0);
  EXPECT_EQ(letto->dataImpegno, "10/02/2017");
  EXPECT_THAT(connessione.texts(), ElementsAre(kLettura));
  EXPECT_THAT(utilita.adapted, ElementsAre(kLettura));
}

TEST_F(StoredIntermediary, WithNullsIsEmptyWithNoEntryChosen) {
  salvato(null(), null(), null());
  const auto letto = leggi();
  ASSERT_TRUE(letto.has_value());
  EXPECT_EQ(letto->codiceFiscale, "");
  EXPECT_EQ(letto->indiceImpegno, -1);
  EXPECT_EQ(letto->dataImpegno, "");
}

TEST_F(StoredIntermediary, TheStoredCodeIsTheIndexPlusOne) {
  salvato(text(""), whole(2), null());
  EXPECT_EQ(leggi()->indiceImpegno, 1);
  salvato(text(""), text("2"), null());
  EXPECT_EQ(leggi()->indiceImpegno, 1);
  salvato(text(""), whole(0), null());
  EXPECT_EQ(leggi()->indiceImpegno, -1);
}

TEST_F(StoredIntermediary, ThereIsNoneWithoutARow) {
  connessione.answer(kLettura, Table({"CodiceFiscaleIntermediario", "TipoComunicazione", "DataImpegno"}, {}));
  EXPECT_FALSE(leggi().has_value());
}

TEST_F(StoredIntermediary, IsInsertedWhereTheCompanyHasNone) {
  presente(false);
  scrivi({.codiceFiscale = "NTRMDR70A01H501U", .indiceImpegno = 1, .dataImpegno = "10/02/2017"});
  EXPECT_THAT(connessione.texts(),
              ElementsAre(kEsiste,
                          "INSERT INTO ConfigurazioneElencoCliFor (CodiceFiscaleIntermediario,"
                          " TipoComunicazione, DataImpegno, IDAzienda)"
                          " VALUES ('NTRMDR70A01H501U', 2, '20170210', 7)"));
}

TEST_F(StoredIntermediary, IsUpdatedWhereTheCompanyHasOne) {
  presente(true);
  scrivi({.codiceFiscale = "NTRMDR70A01H501U", .indiceImpegno = 0, .dataImpegno = "10/02/2017"});
  EXPECT_THAT(connessione.texts(),
              ElementsAre(kEsiste,
                          "UPDATE ConfigurazioneElencoCliFor SET  CodiceFiscaleIntermediario ="
                          " 'NTRMDR70A01H501U', TipoComunicazione = 1, DataImpegno = '20170210'"
                          " WHERE IDAzienda = 7"));
}

TEST_F(StoredIntermediary, WithoutAnEntryIsStoredUnderCodeZero) {
  presente(false);
  scrivi({.codiceFiscale = "A", .indiceImpegno = -1, .dataImpegno = "10/02/2017"});
  presente(true);
  scrivi({.codiceFiscale = "A", .indiceImpegno = -1, .dataImpegno = "10/02/2017"});
  EXPECT_THAT(istruzioni(),
              ElementsAre(HasSubstr(" VALUES ('A', 0, "), HasSubstr(", TipoComunicazione = 0,")));
}

TEST_F(StoredIntermediary, WithoutADayIsStoredWithNone) {
  for (const char* data : {"", "domani", "31/02/2017"}) {
    presente(true);
    connessione.sent.clear();
    scrivi({.codiceFiscale = "", .indiceImpegno = 0, .dataImpegno = data});
    EXPECT_THAT(istruzioni(),
                ElementsAre("UPDATE ConfigurazioneElencoCliFor SET  CodiceFiscaleIntermediario = '',"
                            " TipoComunicazione = 1, DataImpegno = NULL WHERE IDAzienda = 7"));
  }
}

TEST_F(StoredIntermediary, AnApostropheIsDoubled) {
  presente(false);
  scrivi({.codiceFiscale = "D'A", .indiceImpegno = 0, .dataImpegno = ""});
  EXPECT_THAT(istruzioni(), ElementsAre(HasSubstr(" VALUES ('D''A', 1, NULL, 7)")));
}

TEST_F(StoredIntermediary, ADatabaseErrorRises) {
  connessione.refuseContaining("ConfigurazioneElencoCliFor");
  EXPECT_THROW(leggi(), DatabaseError);
  EXPECT_THROW(scrivi({}), DatabaseError);
}

}  // namespace
}  // namespace cu::test
