// A full run fails at one point after another. It is required to report the error or to continue, and to
// leave everything intact: the database, foreign data, each table of the accounts whole, and the next run
// unaffected.

#include <gtest/gtest.h>

#include <iostream>

#include "faults/corsa_support.h"

namespace cu::test {
namespace {

struct Punto {
  const char* nome;
  Guasto::Dove dove;
};

class FaultyRun : public testing::TestWithParam<Punto> {};

TEST_P(FaultyRun, TellsItOrPassesOnAndLosesNothing) {
  const Guasto::Dove dove = GetParam().dove;
  Corsa pulita;
  const auto prima = pulita.conti();
  Guasto nessuno(dove);
  const Corsa::Esito buona = pulita.percorri(nessuno);
  ASSERT_TRUE(buona.finita);
  ASSERT_TRUE(buona.messaggi.empty()) << buona.messaggi.front();
  const std::string file = pulita.file();
  const auto dopo = pulita.conti();
  ASSERT_FALSE(file.empty());
  ASSERT_NE(prima, dopo);
  int detti = 0;

  for (int alla = 1; alla <= nessuno.chiamate(); ++alla) {
    Corsa corsa;
    Guasto guasto(dove, alla);
    Corsa::Esito esito;
    ASSERT_NO_THROW(esito = corsa.percorri(guasto)) << alla << " " << guasto.scattata();
    SCOPED_TRACE(std::to_string(alla) + ": " + guasto.scattata());
    ASSERT_FALSE(guasto.scattata().empty());
    const bool detto = !esito.messaggi.empty();
    detti += detto ? 1 : 0;
    // A file that cannot be opened stops the run without a message, on the last step. Every other run that
    // continues silently has completed the work.
    const bool nonAperto = guasto.scattata().starts_with("openForOutput") && !esito.finita;
    EXPECT_TRUE(detto || nonAperto || (esito.finita && corsa.file() == file));
    EXPECT_EQ(corsa.integrita(), "ok|\n");
    EXPECT_TRUE(corsa.altruiIntatti());
    for (const auto& [tavola, contenuto] : corsa.conti()) {
      EXPECT_TRUE(contenuto == prima.at(tavola) || contenuto == dopo.at(tavola)) << tavola;
    }
    Guasto finito(dove);
    const Corsa::Esito ripresa = corsa.percorri(finito);
    EXPECT_TRUE(ripresa.finita && ripresa.messaggi.empty());
    EXPECT_EQ(corsa.file() == file, true);
    EXPECT_EQ(corsa.conti() == dopo, true);
    if (HasFailure()) return;
  }
  std::cout << "  " << nessuno.chiamate() << " points, " << detti << " told\n";
}

INSTANTIATE_TEST_SUITE_P(Of, FaultyRun,
                         testing::Values(Punto{"TheDatabase", Guasto::Dove::Database},
                                         Punto{"Files", Guasto::Dove::File},
                                         Punto{"Settings", Guasto::Dove::Impostazioni}),
                         [](const auto& caso) { return std::string(caso.param.nome); });

}  // namespace
}  // namespace cu::test
