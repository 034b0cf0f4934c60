// Databases without some of the suite's tables, and one without any.

#include <gmock/gmock.h>

#include "system/guidato_support.h"
#include "system/lettore_db_support.h"

namespace cu::test {
namespace {

using testing::HasSubstr;

class DatabaseIncompleto : public Guidato {
 protected:
  DatabaseIncompleto() : Guidato(false) {}
  void avviaSenza(const std::string& oggetto) {
    posto_.lettore()->esegui("DROP " + oggetto);
    avvia();
  }
};

TEST_F(DatabaseIncompleto, WhereAnErrorIsPassedOverTheWizardGoesOn) {
  avviaSenza("TABLE DefaultFilialePerTipoOggetto");
  clic("frmWizard.optstType(0)");
  fai({{"do", "choose"}, {"in", "frmWizard.KRNCboEsCont(0)"}, {"text", "2016"}});
  const json risposta = clic("frmWizard.cmdNav(3)");
  EXPECT_TRUE(risposta.at("modal").is_null()) << risposta;
  EXPECT_EQ(stato("frmWizard.WizPrint").at("report"), "CertificazioneCompensiSintetico.rpt");
}

TEST_F(DatabaseIncompleto, AMissingViewIsToldWhereItIsNeeded) {
  avviaSenza("VIEW RepContoIndividuale");
  clic("frmWizard.optstType(1)");
  fai({{"do", "choose"}, {"in", "frmWizard.KRNCboEsCont(0)"}, {"text", "2016"}});
  const json risposta = clic("frmWizard.cmdNav(3)");
  ASSERT_FALSE(risposta.at("modal").is_null());
  EXPECT_EQ(risposta.at("modal").at("kind"), "error");
  EXPECT_EQ(risposta.at("pointer"), 11);
  rispondi("ok");
  EXPECT_EQ(stato("frmWizard.cmdNav(2)").at("enabled"), false);  // still on the first step
}

TEST_F(DatabaseIncompleto, ALineThatTheWorkTableRefusesStopsTheLoad) {
  posto_.lettore()->esegui("UPDATE CausalePagamento SET Codice = NULL WHERE Codice = 'A'");
  avvia();
  vaiAllaGriglia("2016");
  const json risposta = fai({{"do", "state"}});
  ASSERT_FALSE(risposta.at("modal").is_null());
  EXPECT_EQ(risposta.at("modal").at("kind"), "error");
  EXPECT_EQ(risposta.at("pointer"), 11);
}

TEST(DatabaseOfSomethingElse, IsToldAtTheStart) {
  if (Posto().databaseDelServer() != nullptr) return;
  Posto posto(Posto::Database::Nessuno);
  LettoreDb(posto.cartella() / "altro.db").esegui("CREATE TABLE Altro (a int)");
  posto.imposta("database.url", "\"sqlite:altro.db\"");
  const auto processo = posto.guida();
  const nlohmann::json risposta = nlohmann::json::parse(processo->riga().value());
  EXPECT_EQ(risposta.at("modal").at("kind"), "error");
  EXPECT_THAT(
      risposta.at("modal").at("text").get<std::string>(),
      HasSubstr("altro.db» non contiene le tabelle della suite. Verificare con «cuctl check», correggere "
                "l'indirizzo nel profilo, o creare un database con «cuctl create»."));
}

}  // namespace
}  // namespace cu::test
