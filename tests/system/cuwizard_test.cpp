// The window program, from outside: its messages before a window opens.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "system/posto_support.h"

namespace cu::test {
namespace {

using ::testing::HasSubstr;

using Argomenti = std::vector<std::string>;

Esecuzione cuwizard(const Posto& posto, const Argomenti& ambiente, const Argomenti& argomenti) {
  Argomenti tutti{"/usr/bin/env", "-u", "DISPLAY", "-u", "WAYLAND_DISPLAY", "-u", "QT_QPA_PLATFORM"};
  tutti.insert(tutti.end(), ambiente.begin(), ambiente.end());
  tutti.emplace_back(CU_CUWIZARD);
  tutti.insert(tutti.end(), argomenti.begin(), argomenti.end());
  return esegui(tutti, posto.cartella().path());
}

TEST(Window, TheHelpNeedsNoScreen) {
  const Posto posto(Posto::Database::Nessuno);
  const Esecuzione esito = cuwizard(posto, {}, {"--help"});
  EXPECT_EQ(esito.codice, 0);
  EXPECT_THAT(esito.uscita, HasSubstr("Uso: cuwizard"));
  EXPECT_THAT(esito.uscita, HasSubstr("--profile FILE"));
  EXPECT_EQ(esito.errori, "");
}

TEST(Window, AMachineWithoutAScreenIsToldInWords) {
  const Posto posto(Posto::Database::Nessuno);
  const Esecuzione esito = cuwizard(posto, {}, {});
  EXPECT_EQ(esito.codice, 1);
  EXPECT_EQ(esito.errori,
            "cuwizard: non c'è uno schermo su cui aprire la finestra. Senza schermo si usa cuctl.\n");
}

TEST(Window, AScreenThatCannotBeReachedIsToldInWords) {
  const Posto posto(Posto::Database::Nessuno);
  const Esecuzione esito = cuwizard(posto, {"DISPLAY=:65535"}, {});
  EXPECT_EQ(esito.codice, 1);
  EXPECT_EQ(esito.errori,
            "cuwizard: non c'è uno schermo su cui aprire la finestra. Senza schermo si usa cuctl.\n");
}

TEST(Window, APlatformThatThereIsNotIsTold) {
  const Posto posto(Posto::Database::Nessuno);
  const Esecuzione esito = cuwizard(posto, {"QT_QPA_PLATFORM=pippo"}, {});
  EXPECT_EQ(esito.codice, 1);
  EXPECT_EQ(esito.errori.rfind(
                "cuwizard: la finestra non si apre con la piattaforma indicata in QT_QPA_PLATFORM.", 0),
            0U)
      << esito.errori;
}

TEST(Window, WhatIsWrongEndsWithTwoAndSaysWhat) {
  const Posto posto(Posto::Database::Nessuno);
  const Argomenti nascosto{"QT_QPA_PLATFORM=offscreen"};
  const Esecuzione ignoto = cuwizard(posto, nascosto, {"--altro"});
  EXPECT_EQ(ignoto.codice, 2);
  EXPECT_THAT(ignoto.errori,
              HasSubstr("cuwizard: argomento sconosciuto: --altro\nPer l'aiuto: cuwizard --help\n"));
  const Esecuzione colori = cuwizard(posto, nascosto, {"--colori", "verdi"});
  EXPECT_EQ(colori.codice, 2);
  EXPECT_THAT(colori.errori, HasSubstr("verdi"));
  const Esecuzione profilo = cuwizard(posto, nascosto, {"--profile", "manca.toml"});
  EXPECT_EQ(profilo.codice, 2);
  EXPECT_THAT(profilo.errori, HasSubstr("manca.toml"));
}

}  // namespace
}  // namespace cu::test
