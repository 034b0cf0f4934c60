// A database locked by another program: reported after a short wait, and the wizard continues afterwards.

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "system/posto_support.h"

namespace cu::test {
namespace {

using nlohmann::json;

TEST(ForeignLock, IsToldInWordsAndTheWizardGoesOnWhenItIsGone) {
  // A file of the embedded engine, whatever database the other tests use: a server makes others wait for a
  // time that the server and statement_timeout determine.
  Posto posto(Posto::Database::Nessuno);
  ASSERT_EQ(posto.cuctl({"create", "--database", "sqlite:demo.db", "--demo"}).codice, 0);
  const auto processo = posto.guida();
  const auto leggi = [&] { return json::parse(processo->riga().value()); };
  const auto fai = [&](const json& comando) {
    processo->scrivi(comando.dump() + "\n");
    json risposta = leggi();
    EXPECT_TRUE(risposta.at("ok").get<bool>()) << risposta;
    return risposta;
  };
  const json avanti = {{"do", "click"}, {"on", "frmWizard.cmdNav(3)"}};
  leggi();
  fai({{"do", "click"}, {"on", "frmWizard.optstType(1)"}});
  fai({{"do", "choose"}, {"in", "frmWizard.KRNCboEsCont(0)"}, {"text", "2016"}});

  {
    const auto altro = posto.lettore();
    altro->esegui("BEGIN EXCLUSIVE");
    const json modale = fai(avanti).at("modal");
    EXPECT_EQ(modale.at("kind"), "error");
    EXPECT_EQ(modale.at("text"),
              "Il database è occupato da un altro programma. Chiudere l'altro programma, o attendere che "
              "termini, e "
              "riprovare.");
    const json dopo = fai({{"do", "answer"}, {"with", "ok"}});
    EXPECT_EQ(dopo.at("windows"), json({"frmWizard"}));
    EXPECT_EQ(fai({{"do", "get"}, {"of", "frmWizard"}}).at("result").at("caption"),
              "Autocomposizione Quadrivio - Passo 1 di 3 - Inizio");
    altro->esegui("ROLLBACK");
  }

  EXPECT_EQ(fai(avanti).at("modal"), json());
  EXPECT_EQ(fai({{"do", "get"}, {"of", "frmWizard"}}).at("result").at("caption"),
            "Autocomposizione Quadrivio - Passo 2 di 3");
}

}  // namespace
}  // namespace cu::test
