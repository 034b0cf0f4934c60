// `cuctl drive` from outside: settings, trace, and what is done to it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <nlohmann/json.hpp>
#include <sstream>

#include "system/posto_support.h"

namespace cu::test {
namespace {

using nlohmann::json;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

TEST(Drive, SettingsOfOthersStayAndTheSessionsSectionGoes) {
  Posto posto;
  posto.cartella().write("settings.toml",
                         "[\"Quadrivio\".MenuSettings]\nView2 = 4\nCU_Path = \"/prima\"\n"
                         "[\"Quadrivio\".Sessione12]\nx = \"1\"\n[Altro.Sessione12]\ny = \"2\"\n");
  const Esecuzione esito = posto.cuctl({"drive", "--profile", posto.profilo()},
                                       "{\"do\":\"get\",\"of\":\"frmWizard.BarMenuWzr\"}\n");
  EXPECT_EQ(esito.codice, 0);
  EXPECT_THAT(esito.uscita, HasSubstr("\"style\":4"));
  const std::string impostazioni = posto.cartella().read("settings.toml");
  EXPECT_THAT(impostazioni, AllOf(HasSubstr("View2 = 4"), HasSubstr("CU_Path = \"/prima\""),
                                  HasSubstr("y = \"2\""), Not(HasSubstr("x = \"1\""))));
}

TEST(Drive, ABrokenSettingsFileIsToldAndKept) {
  Posto posto;
  posto.cartella().write("settings.toml", "[rotto\n");
  const Esecuzione esito = posto.cuctl({"drive", "--profile", posto.profilo()});
  EXPECT_EQ(esito.codice, 0);
  EXPECT_THAT(esito.errori, HasSubstr("è danneggiato"));
  EXPECT_THAT(esito.errori, HasSubstr("settings.toml.danneggiato-1"));
  EXPECT_EQ(posto.cartella().read("settings.toml.danneggiato-1"), "[rotto\n");
}

TEST(Drive, AReaderThatGoesEndsTheRunInOrder) {
  Posto posto;
  const auto processo = posto.guida();
  ASSERT_TRUE(processo->riga().has_value());
  processo->chiudiUscita();
  for (int i = 0; i < 100; ++i) processo->scrivi("{\"do\":\"tree\",\"of\":\"frmWizard\"}\n");
  processo->chiudiIngresso();
  EXPECT_EQ(processo->codice(), 0) << processo->errori();
  EXPECT_THAT(posto.cartella().read("trace.sql"), HasSubstr("DELETE FROM TabellaRicorsione2"));
}

TEST(Drive, TheTraceOfAKilledRunEndsWithItsLastStatement) {
  Posto posto;
  const auto processo = posto.guida();
  const auto di = [&](const std::string& comando) {
    processo->scrivi(comando + "\n");
    return json::parse(processo->riga().value());
  };
  ASSERT_TRUE(processo->riga().has_value());
  di(R"_({"do":"click","on":"frmWizard.optstType(1)"})_");
  di(R"_({"do":"choose","in":"frmWizard.KRNCboEsCont(0)","text":"2016"})_");
  EXPECT_TRUE(di(R"_({"do":"click","on":"frmWizard.cmdNav(3)"})_")["ok"]);
  EXPECT_TRUE(di(R"_({"do":"press","in":"frmWizard.grdCompensi","row":1,"column":"Selezionato"})_")["ok"]);
  ::kill(processo->id(), SIGKILL);
  EXPECT_EQ(processo->codice(), 128 + SIGKILL);
  std::vector<std::string> testi;
  std::istringstream righe(posto.cartella().read("trace.sql"));
  for (std::string riga; std::getline(righe, riga);) testi.push_back(json::parse(riga));
  ASSERT_GE(testi.size(), 5U);
  EXPECT_THAT(testi.end()[-2], StartsWith("UPDATE tmpprequadrivio12 SET Selezionato = 0 WHERE Anno = 2016"));
  EXPECT_EQ(testi.back(), "SELECT COUNT(Selezionato) FROM tmpprequadrivio12 WHERE Selezionato = 1");
}

TEST(Drive, WhatControlsReadForThemselvesIsNotTraced) {
  Posto posto;
  const Esecuzione esito =
      posto.cuctl({"drive", "--profile", posto.profilo()},
                  "{\"do\":\"choose\",\"in\":\"frmWizard.KrnCDPerc(0)\",\"code\":\"P001\"}\n");
  EXPECT_EQ(esito.codice, 0);
  const std::string traccia = posto.cartella().read("trace.sql");
  EXPECT_THAT(traccia, Not(HasSubstr("RepPercipienteCD")));
  EXPECT_THAT(traccia, Not(HasSubstr("SELECT DISTINCT ContoIndividuale.Anno")));
  EXPECT_THAT(traccia, HasSubstr("SELECT IDAnagrafica, Nome FROM Anagrafica WHERE IDAnagrafica = "));
}

TEST(Drive, NoiseBringsNothingDown) {
  Posto posto;
  std::string ingresso;
  unsigned seme = 12345;
  for (int i = 0; i < 20000; ++i) {
    seme = seme * 1664525U + 1013904223U;
    ingresso += static_cast<char>(seme >> 24);
  }
  ingresso += "\n{\"id\":1,\"do\":\"state\"}\n";
  const Esecuzione esito = posto.cuctl({"drive", "--profile", posto.profilo()}, ingresso);
  EXPECT_EQ(esito.codice, 0);
  EXPECT_THAT(esito.uscita, HasSubstr("{\"id\":1,\"ok\":true"));
}

}  // namespace
}  // namespace cu::test
