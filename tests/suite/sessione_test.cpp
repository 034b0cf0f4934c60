#include "suite/sessione.h"

#include <gtest/gtest.h>

#include "support/fake_connection.h"

namespace cu {
namespace {

Profilo profilo() {
  Profilo profilo;
  profilo.sessione.utente = 12;
  profilo.sessione.azienda = 4;
  profilo.sessione.filiale = 7;
  profilo.sessione.titolo = "Quadrivio";
  profilo.sessione.cartellaGuida = "/guida";
  profilo.sessione.contestoGuida = 100;
  profilo.sessione.sezioneImpostazioni = "Sessione12";
  profilo.sessione.processi = {{"Wizard stampa", 246}};
  return profilo;
}

struct Prova {
  Profilo descrizione = profilo();
  int aperture = 0;
  bool rifiutato = false;
  SessioneProfilo sessione{descrizione,
                           [this] {
                             ++aperture;
                             return std::make_unique<test::FakeConnection>();
                           },
                           nullptr, rifiutato};
};

template <class F>
int numeroErrore(F&& operazione) {
  try {
    operazione();
  } catch (const Error& error) {
    return error.number();
  }
  return 0;
}

TEST(Sessione, AfterTheStartEverythingIsAnswered) {
  Prova prova;
  prova.sessione.start(0);
  EXPECT_EQ(prova.aperture, 1);
  EXPECT_EQ(prova.sessione.settingsSection(), "Sessione12");
  EXPECT_EQ(prova.sessione.helpContext(), 100);
  EXPECT_EQ(prova.sessione.IDUtente(), 12);
  EXPECT_EQ(prova.sessione.IDAzienda(), 4);
  EXPECT_EQ(prova.sessione.IDFiliale(), 7);
  EXPECT_EQ(prova.sessione.helpFolder(), "/guida");
  EXPECT_EQ(prova.sessione.title(), "Quadrivio");
  ASSERT_EQ(prova.sessione.processi().size(), 1U);
  EXPECT_EQ(prova.sessione.processi()[0].idFunzione, 246);
  prova.sessione.database().connection().Execute("X");
}

TEST(Sessione, BeforeTheStartOnlyNameAndTitleAreThere) {
  Prova prova;
  prova.sessione.setProgramName("cuctl");
  EXPECT_EQ(prova.sessione.title(), "Quadrivio");
  EXPECT_EQ(prova.aperture, 0);
  EXPECT_EQ(numeroErrore([&] { prova.sessione.database(); }), kErrorObjectNotSet);
  EXPECT_EQ(numeroErrore([&] { prova.sessione.IDUtente(); }), kErrorObjectNotSet);
  EXPECT_EQ(numeroErrore([&] { prova.sessione.processi(); }), kErrorObjectNotSet);
  EXPECT_EQ(numeroErrore([&] { prova.sessione.settingsSection(); }), kErrorObjectNotSet);
}

TEST(Sessione, ARefusedStartHasItsNumberAndLeavesNoDatabase) {
  Prova prova;
  prova.descrizione.sessione.rifiutaAvvio = true;
  EXPECT_EQ(numeroErrore([&] { prova.sessione.start(0); }), -2147221503);
  EXPECT_TRUE(prova.rifiutato);
  EXPECT_EQ(prova.aperture, 0);
  EXPECT_EQ(numeroErrore([&] { prova.sessione.database(); }), kErrorObjectNotSet);
  EXPECT_EQ(prova.sessione.title(), "Quadrivio");
}

TEST(Sessione, ADatabaseThatCannotBeOpenedIsNoRefusedStart) {
  Profilo descrizione = profilo();
  bool rifiutato = false;
  SessioneProfilo sessione(
      descrizione,
      []() -> std::unique_ptr<Connection> {
        throw DatabaseError(DatabaseErrorKind::Unavailable, 14, "", "manca");
      },
      nullptr, rifiutato);
  EXPECT_EQ(numeroErrore([&] { sessione.start(0); }), kErrorDatabase);
  EXPECT_FALSE(rifiutato);
}

TEST(Valuta, TheFlagGivesTwoPlacesOrNone) {
  test::FakeConnection connection;
  Profilo::Valuta descrizione{true, "€", ",", "."};
  const Valuta con = ValutaProfilo(descrizione).valuta(connection, Date(), 12, 1);
  EXPECT_EQ(std::abs(con.decimali) * 2, 2);
  EXPECT_EQ(con.simbolo, "€");
  EXPECT_EQ(con.separatoreDecimale, ",");
  EXPECT_EQ(con.separatoreMigliaia, ".");
  descrizione.decimali = false;
  EXPECT_EQ(ValutaProfilo(descrizione).valuta(connection, Date(), 12, 1).decimali, 0);
}

}  // namespace
}  // namespace cu
