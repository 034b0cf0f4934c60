#include "suite/fabbrica.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "suite/catalogo_stampe.h"
#include "suite/orologio.h"
#include "suite/registro_errori.h"
#include "suite/testi.h"
#include "support/fake_connection.h"
#include "support/fake_report.h"
#include "support/scripted_front_end.h"
#include "support/temp_folder.h"

namespace cu {
namespace {

using ::testing::ElementsAre;

std::unique_ptr<Connection> finta() { return std::make_unique<test::FakeConnection>(); }

TEST(Fabbrica, EachObjectIsMadeAnew) {
  Profilo profilo;
  profilo.sessione.titolo = "Quadrivio";
  profilo.valuta.simbolo = "€";
  test::ScriptedFrontEnd schermo;
  int ricostruzioni = 0;
  FabbricaSuite fabbrica(profilo, schermo, {finta, [&] {
                                              ++ricostruzioni;
                                              return std::unique_ptr<RicostruzioneConti>();
                                            }});
  EXPECT_EQ(fabbrica.createTesti()->text(1368), "Quadrivio");
  EXPECT_EQ(fabbrica.createSessione()->title(), "Quadrivio");
  test::FakeConnection connessione;
  EXPECT_EQ(fabbrica.createValuta()->valuta(connessione, Date(), 1, 1).simbolo, "€");
  EXPECT_NE(fabbrica.createLogGrid(), nullptr);
  fabbrica.createRicostruzione();
  EXPECT_EQ(ricostruzioni, 1);
  EXPECT_FALSE(fabbrica.avvioRifiutato());
}

TEST(Fabbrica, ThePrintIsTheOneOfTheProfilesEngine) {
  Profilo profilo;
  test::ScriptedFrontEnd schermo;
  test::PrintJournal giornale;
  FornitoriSuite fornitori{finta, nullptr, [&] { return std::make_unique<test::FakeReport>(giornale); }};
  FabbricaSuite fabbrica(profilo, schermo, fornitori);
  EXPECT_NE(fabbrica.createPrinterDialog(), nullptr);
  fabbrica.createReport()->preview();
  EXPECT_THAT(giornale.calls, ElementsAre("report.preview", "report.release"));
  profilo.stampa = Profilo::MotoreStampa::Registro;
  fabbrica.createReport()->preview();
  EXPECT_EQ(giornale.calls.size(), 2U);
  EXPECT_EQ(schermo.prints.size(), 2U);
}

TEST(Fabbrica, TheRunOfPrintsIsTheEngines) {
  Profilo profilo;
  test::ScriptedFrontEnd schermo;
  test::PrintJournal giornale;
  FornitoriSuite fornitori{finta, nullptr, [&] { return std::make_unique<test::FakeReport>(giornale); },
                           [&] { return std::make_unique<test::NotedPrintRun>(giornale); }};
  FabbricaSuite fabbrica(profilo, schermo, fornitori);
  fabbrica.createPrintRun();
  EXPECT_THAT(giornale.calls, ElementsAre("run.begin", "run.end"));
  profilo.stampa = Profilo::MotoreStampa::Registro;
  EXPECT_NE(fabbrica.createPrintRun(), nullptr);
  EXPECT_EQ(giornale.calls.size(), 2U);
  EXPECT_NE(FabbricaSuite(profilo, schermo, {finta, nullptr}).createPrintRun(), nullptr);
}

TEST(Fabbrica, WithoutAnEngineThePrintIsRefusedInWords) {
  const Profilo profilo;
  test::ScriptedFrontEnd schermo;
  FabbricaSuite fabbrica(profilo, schermo, {finta, nullptr});
  EXPECT_THROW(fabbrica.createReport(), Error);
}

TEST(Fabbrica, ItKnowsThatTheStartWasRefused) {
  Profilo profilo;
  profilo.sessione.rifiutaAvvio = true;
  test::ScriptedFrontEnd schermo;
  FabbricaSuite fabbrica(profilo, schermo, {finta, nullptr});
  const auto sessione = fabbrica.createSessione();
  EXPECT_THROW(sessione->start(0), Error);
  EXPECT_TRUE(fabbrica.avvioRifiutato());
}

TEST(Fabbrica, TheTraceIsEmptiedWhenItIsMade) {
  const test::TempFolder cartella;
  Profilo profilo;
  profilo.traccia = cartella.write("t.sql", "\"vecchio\"\n");
  test::ScriptedFrontEnd schermo;
  FabbricaSuite fabbrica(profilo, schermo, {finta, nullptr});
  EXPECT_EQ(cartella.read("t.sql"), "");
  const auto sessione = fabbrica.createSessione();
  sessione->start(0);
  sessione->database().internalConnection().Execute("X");
  EXPECT_EQ(cartella.read("t.sql"), "\"X\"\n");
  profilo.traccia = cartella.write("altro.db", "SQLite format 3");
  EXPECT_THROW(FabbricaSuite(profilo, schermo, {finta, nullptr}), ErroreProfilo);
  EXPECT_EQ(cartella.read("altro.db"), "SQLite format 3");
  profilo.traccia = cartella / "manca/t.sql";
  EXPECT_THROW(FabbricaSuite(profilo, schermo, {finta, nullptr}), ErroreProfilo);
}

TEST(Testi, TheFiveThatTheWizardAsksForAreThere) {
  TestiItaliani testi;
  for (const auto numero : std::initializer_list<std::int16_t>{80, 237, 829, 1264, 1368})
    EXPECT_NE(testi.text(numero), "");
  EXPECT_EQ(testi.text(1368), "Quadrivio");
  EXPECT_EQ(testi.text(1264).find_first_of("/\\"), std::string::npos);
  EXPECT_EQ(testi.text(1), "");
}

TEST(CatalogoStampe, EachObjectTypeHasItsReports) {
  const CatalogoStampe catalogo;
  const auto nomi = [&](std::int32_t tipo) {
    std::vector<std::string> risultato;
    for (const ReportInfo& stampa : catalogo.reports(tipo)) risultato.push_back(stampa.name);
    return risultato;
  };
  EXPECT_THAT(nomi(246), ElementsAre("ContoIndividuale.rpt"));
  EXPECT_THAT(nomi(247),
              ElementsAre("CertificazioneCompensiSintetico.rpt", "CertificazioneCompensiAnalitico.rpt"));
  EXPECT_EQ(nomi(342).size(), 1U);
  EXPECT_TRUE(nomi(1).empty());
  for (const std::int32_t tipo : {246, 247, 342}) {
    for (const ReportInfo& stampa : catalogo.reports(tipo)) EXPECT_GT(stampa.definition, 0);
  }
}

TEST(RegistroErrori, RowsAreShownWithTheLogsOwnColumnsBehind) {
  test::ScriptedFrontEnd schermo;
  RegistroErrori registro(schermo);
  registro.setUser(12);
  registro.setName("LogGrid_1");
  registro.addColumn("Campo", LogGrid::kText, 35);
  registro.addColumn("Sezione", LogGrid::kText, 20);
  registro.newRow();
  registro.put("Message", Value::ofText("Manca"));
  registro.put("MessageType", Value::ofInteger(2));
  registro.put("Campo", Value::ofText("Nome"));
  registro.confirmRow();
  registro.newRow();
  registro.put("Campo", Value::ofText("mai confermata"));
  registro.show(0);
  ASSERT_EQ(schermo.logs.size(), 1U);
  EXPECT_THAT(schermo.logs[0].columns, ElementsAre("Campo", "Sezione", "MessageType", "Message"));
  ASSERT_EQ(schermo.logs[0].rows.size(), 1U);
  EXPECT_THAT(schermo.logs[0].rows[0],
              ElementsAre(Value::ofText("Nome"), Value(), Value::ofInteger(2), Value::ofText("Manca")));
}

TEST(RegistroErrori, AnUnknownColumnAndAValueWithoutARowAreErrors) {
  test::ScriptedFrontEnd schermo;
  RegistroErrori registro(schermo);
  registro.addColumn("Campo", LogGrid::kText, 35);
  EXPECT_THROW(registro.put("Campo", Value()), Error);
  EXPECT_THROW(registro.confirmRow(), Error);
  registro.newRow();
  EXPECT_THROW(registro.put("Altro", Value()), Error);
}

TEST(Orologio, AFixedOneStandsStill) {
  Profilo profilo;
  profilo.sessione.oggi = Profilo::Istante{*Date::fromYmd(2017, 3, 5), {10, 30, 0}};
  const auto fermo = orologio(profilo);
  EXPECT_EQ(fermo->today().toIso(), "2017-03-05");
  EXPECT_EQ(fermo->now().toHhmm(), "1030");
}

TEST(Orologio, TheSystemsOneRunsInThisCentury) {
  const auto vero = orologio(Profilo());
  EXPECT_GE(vero->today().year(), 2024);
  EXPECT_LT(vero->now().hour, 24);
}

}  // namespace
}  // namespace cu
