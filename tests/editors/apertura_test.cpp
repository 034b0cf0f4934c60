// The opening: filter, look-ups, heading, codes, and the queries.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "controls/selector.h"
#include "editors/campi_prova.h"

namespace cu::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

struct Opening : testing::Test, CampiProva {};

TEST_F(Opening, FiltersTheRecordsetToTheRow) {
  apri(2016);
  EXPECT_EQ(riga.RecordCount(), 1U);
  EXPECT_EQ(riga.Filter(), "Anno = 2016 AND IDAnagrafica = 1 AND IDCausalePagamento = 1");
  EXPECT_EQ(&editor->Recordset(), &riga);
}

TEST_F(Opening, TakesTheRowOnWhichTheRecordsetStands) {
  database.main.answer("tabella", workTable({workRow(1, 1), workRow(2, 3, {{"Nome", text("Anna")}})}));
  riga.Open(database.main, "tabella", LockType::BatchOptimistic);
  riga.MoveTo(riga.RecordCount());
  editor = fnCreaEditor(2016, {frontEnd, globali, utilita, settings});
  editor->setRecordset(riga);
  EXPECT_EQ(riga.Filter(), "Anno = 2016 AND IDAnagrafica = 2 AND IDCausalePagamento = 3");
  EXPECT_EQ(c<TextBox>("txtNome").text(), "Anna");
}

TEST_F(Opening, ShowsAmountsInTheCurrencysFormat) {
  apri(2016, {{"Imponibile", amount("1234.5")}});
  EXPECT_EQ(importo(19).text(), "1.234,50");
}

TEST_F(Opening, ShowsPayeeAndReasonOnBothPages) {
  for (const int anno : kAnni) {
    apri(anno, {{"Nome", text("Mario")}});
    for (const std::string pagina : {"", "AltriModuli"}) {
      const Selector& percipiente = c<Selector>("cdPercipiente" + pagina);
      EXPECT_EQ(percipiente.record(), 1);
      EXPECT_EQ(percipiente.code(), "P1");
      EXPECT_EQ(percipiente.description(), "Rossi Mario");
      EXPECT_FALSE(percipiente.enabled());
      const Selector& pagamento = c<Selector>("cdPagamento" + pagina);
      EXPECT_EQ(pagamento.record(), 1);
      EXPECT_EQ(pagamento.description(), "Lavoro autonomo");
      EXPECT_FALSE(pagamento.enabled());
      const TextBox& nome = c<TextBox>("txtNome" + pagina);
      EXPECT_EQ(nome.text(), "Mario");
      EXPECT_FALSE(nome.enabled());
      EXPECT_TRUE(nome.locked());
      EXPECT_EQ(nome.background(), Background::Face);
    }
    EXPECT_EQ(c<TextBox>("numModulo1").text(), "1");
    EXPECT_FALSE(c<TextBox>("numModulo1").enabled());
    EXPECT_TRUE(c<TextBox>("numModulo1").locked());
    EXPECT_EQ(c<TextBox>("numModulo1").background(), Background::Face);
    EXPECT_EQ(c<Label>("lblAnno").caption(), std::to_string(anno));
  }
}

TEST_F(Opening, BindsTheLookupsOfBothPages) {
  apri(2016);
  for (const std::string pagina : {"", "AltriModuli"}) {
    const Selector::Binding& percipiente = c<Selector>("cdPercipiente" + pagina).binding();
    EXPECT_EQ(percipiente.table, "RepPercipienteCD");
    EXPECT_EQ(percipiente.codeField, "Codice");
    EXPECT_EQ(percipiente.descriptionField, "Anagrafica");
    EXPECT_EQ(percipiente.idField, "IDAnagrafica");
    EXPECT_EQ(percipiente.filter, "IDAzienda = 1");
    EXPECT_EQ(percipiente.codeCaption, "Codice");
    EXPECT_EQ(percipiente.descriptionCaption, "Percipiente");
    const Selector::Binding& pagamento = c<Selector>("cdPagamento" + pagina).binding();
    EXPECT_EQ(pagamento.table, "CausalePagamento");
    EXPECT_EQ(pagamento.codeField, "Codice");
    EXPECT_EQ(pagamento.descriptionField, "CausalePagamento");
    EXPECT_EQ(pagamento.idField, "IDCausalePagamento");
    EXPECT_EQ(pagamento.codeCaption, "Codice causale");
    EXPECT_EQ(pagamento.descriptionCaption, "Descrizione causale");
    EXPECT_EQ(pagamento.title, "Causale pagamento");
    EXPECT_EQ(pagamento.filter, "");
  }
}

TEST_F(Opening, FillsTheListsOfCodes) {
  apri(2016, {{"IDCodicePerNonSoggetti", whole(2)}});
  for (const char* nome : {"cboCodicePerNonSoggetti", "cboCodicePerNonSoggettiAltri"}) {
    const ListBox& elenco = c<ListBox>(nome);
    EXPECT_EQ(elenco.source(),
              "SELECT IDCodicePerNonSoggetti, Codice + ' - ' + Descrizione AS Descrizione FROM "
              "CodicePerNonSoggetti");
    ASSERT_EQ(elenco.entries().size(), 2U);
    EXPECT_EQ(elenco.entries()[1].text, "2 - Due");
    EXPECT_EQ(elenco.entries()[1].record, 2);
  }
  EXPECT_EQ(c<ListBox>("cboCodicePerNonSoggetti").text(), "2 - Due");
  EXPECT_EQ(c<ListBox>("cboCodicePerNonSoggettiAltri").record(), std::nullopt);
}

TEST_F(Opening, AsksForTheModulesOfTheLine) {
  database.internal.sent.clear();
  apri(2015);
  EXPECT_THAT(database.internal.texts(),
              ElementsAre("SELECT *, Anticipazione AS Eliminato FROM ModuloXContoIndividuale WHERE Anno = "
                          "2015 AND IDAnagrafica = 1 AND IDAzienda = 1 AND IDCausalePagamento = 1"));
  EXPECT_THAT(utilita.adapted, Contains(database.internal.texts()[0]));
}

TEST_F(Opening, WritesNothing) {
  moduli({moduloPieno(7, 2)});
  for (const int anno : kAnni) {
    apri(anno, rigaPiena());
    EXPECT_TRUE(istruzioni().empty());
    EXPECT_TRUE(database.internal.texts(FakeConnection::Kind::Execute).empty());
    EXPECT_TRUE(database.own.texts(FakeConnection::Kind::Execute).empty());
    EXPECT_EQ(riga.Status(), RecordStatus::Unmodified);
  }
}

TEST_F(Opening, ShowsTheBusyPointerWhileTheModulesAreRead) {
  apri(2016);
  EXPECT_THAT(frontEnd.pointers, ElementsAre(kPointerHourglass, kPointerDefault));
}

TEST_F(Opening, DoesNotCalculateTheGrossAmount) {
  moduli({modulo(7, 2, {{"SommeNonSoggette", amount("100")}})});
  apri(2016, {{"AmmontareLordo", amount("1")}, {"Imponibile", amount("50")}});
  EXPECT_EQ(importo(10).value(), 1);
}

TEST_F(Opening, APayeeOrAReasonThatIsNotFoundLeavesItsLookupEmpty) {
  database.own.answerContaining("FROM RepPercipienteCD", Table({"IDAnagrafica", "Codice", "Anagrafica"}, {}));
  database.own.answerContaining("FROM CausalePagamento",
                                Table({"IDCausalePagamento", "Codice", "CausalePagamento"}, {}));
  apri(2016, {{"Nome", text("Mario")}});
  for (const std::string pagina : {"", "AltriModuli"}) {
    EXPECT_EQ(c<Selector>("cdPercipiente" + pagina).record(), 0);
    EXPECT_EQ(c<Selector>("cdPercipiente" + pagina).description(), "");
    EXPECT_EQ(c<Selector>("cdPagamento" + pagina).record(), 0);
    EXPECT_EQ(c<TextBox>("txtNome" + pagina).text(), "Mario");
  }
}

TEST_F(Opening, ARowGivenAgainReadsItsModulesAnew) {
  moduli({modulo(7, 2)});
  apri(2016);
  premi("cmdNew");
  premi("cmdSave");
  ASSERT_EQ(griglia().rowCount(), 2U);
  riga.ClearFilter();
  riga.MoveFirst();
  moduli({modulo(8, 5)});
  editor->setRecordset(riga);
  EXPECT_EQ(griglia().rowCount(), 1U);
  EXPECT_EQ(righeModuli().Get("NumeroModulo").integer(), 5);
}

TEST_F(Opening, BeforeARowIsGivenLeavingAFieldMakesNoGrossAmount) {
  editor = fnCreaEditor(2016, {frontEnd, globali, utilita, settings});
  importo(19).enter("5");
  lascia(importo(19));
  EXPECT_EQ(importo(10).text(), "");
}

TEST_F(Opening, AMissingColumnIsToldToTheCaller) {
  Table senza = workTable({workRow(1, 1)});
  senza.columns[senza.column("SpeseRimborsate")].name = "Altra";
  database.main.answer("tabella", senza);
  riga.Open(database.main, "tabella", LockType::BatchOptimistic);
  editor = fnCreaEditor(2016, {frontEnd, globali, utilita, settings});
  EXPECT_THROW(editor->setRecordset(riga), Error);
}

// A cancellation leaves everything unchanged.
TEST_F(Opening, CancellingLeavesRowAndTableAsTheyWere) {
  moduli({modulo(7, 2), modulo(8, 3)});
  for (const int anno : kAnni) {
    apri(anno, rigaPiena());
    const Righe prima = fotografia(riga);
    importo(20).enter("5");
    importo(17).enter("6");
    premi("cmdSave");
    premi("cmdDelete");
    premi("cmdAnnulla");
    EXPECT_FALSE(editor->OK());
    EXPECT_FALSE(editor->isOpen());
    EXPECT_TRUE(differenze(prima, fotografia(riga)).empty());
    EXPECT_TRUE(istruzioni().empty());
  }
}

}  // namespace
}  // namespace cu::test
