// The system's statements, unchanged, on a small database of the suite.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "suite_texts.h"
#include "support.h"

namespace cu::sqlite::test {
namespace {

constexpr const char* kWork = "tmpprequadrivio12";

class SuiteStatements : public ::testing::Test {
 protected:
  SuiteStatements() : connection_(suiteInMemory()) {
    for (const char* text : {
             "INSERT INTO Azienda (IDAzienda, IDAnagrafica) VALUES (1, 100)",
             "INSERT INTO Anagrafica (IDAnagrafica, Anagrafica, Nome, PersonaFisica, CodiceFiscale, "
             "PartitaIva, "
             "IDComune) VALUES (100, 'Quadrivio Srl', NULL, 0, '', '01234567890', 1)",
             "INSERT INTO Anagrafica (IDAnagrafica, Anagrafica, Nome, PersonaFisica, CodiceFiscale, "
             "PartitaIva, Sesso, "
             "DataNascita, IDComuneNascita, IDNazionalita, IDComune, IDNazione) VALUES "
             "(7, 'Rossi', 'Mario', 1, 'RSSMRA70A01L781X', NULL, 'M', '19700101', 1, 1, 1, 1), "
             "(8, 'D''Amico', NULL, 1, NULL, '09876543210', NULL, NULL, 0, 2, 1, 2), "
             "(9, 'ÀBATE', 'Zoe', 1, 'BTAZOE80A41F205Z', '', 'F', '19800101', 2, NULL, 2, 1)",
             "INSERT INTO Comune (IDComune, Comune, IDProvincia, CodiceComuneDiNascita) VALUES (1, 'Verona', "
             "1, 'L781'), "
             "(2, 'Milano', 2, 'F205')",
             "INSERT INTO Provincia (IDProvincia, Provincia) VALUES (1, 'VR'), (2, 'MI')",
             "INSERT INTO Nazione (IDNazione, Nazione, PrefissoInternazionale) VALUES (1, 'Italia', ''), "
             "(2, 'Francia', '029')",
             "INSERT INTO CodiceCarica (IDCodiceCarica, Codice, CodiceCarica) VALUES (1, '1', "
             "'Rappresentante legale')",
             "INSERT INTO ConfigurazioneGenerale (IDAzienda, CodiceFiscaleSocieta, "
             "IDAnagraficaRappresentante, "
             "IDCodiceCaricaRappresentante, IDFilialePrevalente) VALUES (1, '01234567890', 7, 1, 1)",
             "INSERT INTO Filiale (IDFiliale, IDAzienda, IDAttivitaAzienda) VALUES (1, 1, 1)",
             "INSERT INTO AttivitaAzienda (IDAttivitaAzienda, IDAzienda) VALUES (1, 1)",
             "INSERT INTO PeriodoIva (IDPeriodoIva, IDAzienda, Anno) VALUES (1, 1, 2016)",
             "INSERT INTO AttivitaAziendaPerPeriodoIva (IDAttivitaAzienda, IDPeriodoIva, IDCodiceAttivita) "
             "VALUES (1, 1, 1)",
             "INSERT INTO CodiceAttivita (IDCodiceAttivita, CodiceAttivita) VALUES (1, '620100')",
             "INSERT INTO CausalePagamento (IDCausalePagamento, Codice, CausalePagamento, "
             "IDTipoCausalePagamento) VALUES "
             "(1, 'A', 'Lavoro autonomo', 1), (2, 'm ', 'Occasionale', 2)",
             "INSERT INTO CodicePerNonSoggetti (IDCodicePerNonSoggetti, Codice, Descrizione) VALUES (1, '7', "
             "'Altri')",
             "INSERT INTO Percipiente (IDAzienda, IDAnagrafica, Codice, NonResidente) VALUES (1, 7, '0001', "
             "0), "
             "(1, 8, '0002', -1), (1, 9, '0003', NULL)",
             "INSERT INTO ContoIndividuale (IDAnagrafica, IDCausalePagamento, Anno, IDAzienda, "
             "OnorarioProvvigioni, "
             "QuotaProvvigioniNonSoggette, SommeNonSoggette, SommeNonSoggetteRegConv, RitenutaAcconto, "
             "RitenutaImposta, "
             "ContributoPrevidenziale, RitenutaPrevidenziale13) VALUES "
             "(9, 1, 2016, 1, 1000.1, 0, 0.2, NULL, 200, 0, 30.3, 10.1), "
             "(7, 2, 2016, 1, 500, 0, 75.5, 0, 100, 0, 0, 0), "
             "(7, 1, 2016, 1, 2000, 100.25, 0, 0, 400, 0, 0, 0), "
             "(8, 1, 2016, 1, -10.5, 0, 0, 0, 0, 0, 0, 0), "
             "(8, 1, 2015, 1, 1, 0, 0, 0, 0, 0, 0, 0)",
             "INSERT INTO ContoIndividualeDatiAggiuntivi (IDAnagrafica, IDCausalePagamento, Anno, IDAzienda, "
             "Anticipazione, AltriContributi, IDCodicePerNonSoggetti) VALUES (7, 1, 2016, 1, 1, -1, 1)",
             "INSERT INTO ModuloXContoIndividuale (IDModuloXContoIndividuale, IDAnagrafica, IDAzienda, "
             "IDCausalePagamento, Anno, NumeroModulo, SommeNonSoggette, Anticipazione) VALUES "
             "(3, 9, 1, 1, 2016, 3, 2.05, 0), (2, 9, 1, 1, 2016, 2, 1.05, 0), (1, 7, 1, 1, 2016, 2, NULL, 1)",
         }) {
      connection_->Execute(text);
    }
  }

  void load(std::string_view filter = " WHERE Anno = 2016 AND IDAzienda = 1") {
    connection_->Execute(dropWorkTable(kWork));
    connection_->Execute(createWorkTable(kWork));
    connection_->Execute(fillWorkTable(kWork, filter));
  }
  Lines work(std::string_view columns) {
    return query(*connection_, "SELECT " + std::string(columns) + " FROM " + kWork);
  }
  std::string one(std::string_view text) { return single(*connection_, text); }

  std::unique_ptr<SqliteConnection> connection_;
};

TEST_F(SuiteStatements, TheWorkTableIsFilledInTheOrderOfItsKey) {
  load();
  RowStore rows;
  connection_->Query(kWork, rows);
  ASSERT_EQ(rows.columns()->size(), 101u);
  for (std::size_t i = 0; i < kWorkColumns.size(); ++i)
    EXPECT_EQ((*rows.columns())[i].name, kWorkColumns[i].name);
  const std::size_t payee = rows.columns()->find("IDAnagrafica");
  const std::size_t reason = rows.columns()->find("IDCausalePagamento");
  std::vector<std::string> keys;
  for (const auto& line : linesOf(rows)) keys.push_back(line[payee] + "/" + line[reason]);
  EXPECT_THAT(keys, ::testing::ElementsAre("7/1", "7/2", "8/1", "9/1"));
}

TEST_F(SuiteStatements, TheDerivedColumnsHoldWhatTheLineSays) {
  load();
  EXPECT_EQ(work("AnagraficaPerc, Codice, CodiceFiscale, Anticipazione"),
            (Lines{{"Rossi Mario", "A", "RSSMRA70A01L781X", "1"},
                   {"Rossi Mario", "m", "RSSMRA70A01L781X", "0"},
                   {"D'Amico", "A", "09876543210", "0"},
                   {"ÀBATE Zoe", "A", "BTAZOE80A41F205Z", "0"}}));
  EXPECT_EQ(
      work("AmmontareLordo, SommeNonSoggetteARitenuta, SpeseRimborsate, Imponibile, ContributiCaricoAzienda"),
      (Lines{{"2000", "0", "0", "1899.75", "0"},
             {"575.5", "0", "75.5", "500", "0"},
             {"-10.5", "0", "0", "-10.5", "0"},
             {"1003.4", "0.2", "0", "1000.1", "20.2"}}));
  EXPECT_EQ(
      work("IDTipoCausalePagamento, NonResidente, Selezionato, Modificato"),
      (Lines{{"1", "0", "1", "0"}, {"2", "0", "1", "0"}, {"1", "-1", "1", "0"}, {"1", "NULL", "1", "0"}}));
}

TEST_F(SuiteStatements, AReasonWithTrailingBlanksInSmallLettersCountsAsM) {
  load();
  EXPECT_EQ(one("SELECT SpeseRimborsate FROM tmpprequadrivio12 WHERE Codice = 'M'"), "75.5");
}

TEST_F(SuiteStatements, TheFilterComparesTextAsTheDatabaseDoes) {
  load(
      " WHERE Anno = 2016 AND IDAzienda = 1 AND CodicePercipiente >= '0002' AND CodicePercipiente <= '0003 "
      "'");
  EXPECT_EQ(work("IDAnagrafica"), (Lines{{"8"}, {"9"}}));
  load(" WHERE Anno = 2016 AND IDAzienda = 1 AND Anagrafica >= 'ab' AND Anagrafica <= 'd''AMICO'");
  EXPECT_EQ(work("IDAnagrafica"), (Lines{{"8"}, {"9"}}));
  load(" WHERE Anno = 2016 AND IDAzienda = 1 AND Codice >= 'b' AND Codice <= 'M'");
  EXPECT_EQ(work("IDAnagrafica"), (Lines{{"7"}}));
  load(" WHERE Anno = 1999 AND IDAzienda = 1");
  EXPECT_EQ(work("IDAnagrafica"), Lines{});
}

TEST_F(SuiteStatements, TheWorkTableIsDroppedAndMadeAnewAsOftenAsAsked) {
  for (int i = 0; i < 3; ++i) load();
  connection_->Execute(dropWorkTable(kWork));
  connection_->Execute(dropWorkTable(kWork));
  EXPECT_EQ(errorOf([&] { one(kWork); }).kind(), DatabaseErrorKind::Missing);
}

TEST_F(SuiteStatements, TheExistenceTestSeesTablesAndNoViews) {
  connection_->Execute("CREATE VIEW [dbo].[tmpprequadrivio12] AS SELECT Anno FROM ContoIndividuale");
  connection_->Execute(dropWorkTable(kWork));
  EXPECT_EQ(one("SELECT COUNT(*) FROM tmpprequadrivio12"), "5");
}

TEST_F(SuiteStatements, ASecondLineOfOneKeyFailsOnTheKey) {
  connection_->Execute(
      "INSERT INTO ContoIndividuale (IDAnagrafica, IDCausalePagamento, Anno, IDAzienda, "
      "QuotaProvvigioniNonSoggette) "
      "VALUES (7, 1, 2016, 2, 0)");
  const DatabaseError error = errorOf([&] { load(" WHERE Anno = 2016"); });
  EXPECT_EQ(error.kind(), DatabaseErrorKind::Duplicate);
  EXPECT_EQ(error.statementKind(), "INSERT");
  EXPECT_STREQ(error.what(),
               "Esiste già una riga con la stessa chiave (tmpprequadrivio12.IDAnagrafica, "
               "tmpprequadrivio12.IDCausalePagamento, tmpprequadrivio12.Anno).");
  EXPECT_EQ(work("IDAnagrafica"), Lines{});
}

TEST_F(SuiteStatements, ANullWhereNoneIsAllowedFails) {
  connection_->Execute(dropWorkTable(kWork));
  connection_->Execute(createWorkTable(kWork));
  const DatabaseError error = errorOf([&] {
    connection_->Execute(
        "INSERT INTO tmpprequadrivio12 (IDAnagrafica, IDCausalePagamento, Anno, IDAzienda, Codice, "
        "Anticipazione, CodiceFiscale) VALUES (1, 1, 2016, 1, NULL, 0, '')");
  });
  EXPECT_EQ(error.kind(), DatabaseErrorKind::Constraint);
  EXPECT_STREQ(error.what(), "La colonna tmpprequadrivio12.Codice non ammette il valore nullo.");
}

TEST_F(SuiteStatements, TheCountsOfTheGrid) {
  load();
  EXPECT_EQ(one("SELECT COUNT(Selezionato) FROM tmpprequadrivio12 WHERE Selezionato = 1"), "4");
  connection_->Execute(
      "UPDATE tmpprequadrivio12 SET Selezionato = 0 WHERE Anno = 2016 AND IDAnagrafica = 7 AND IDAzienda = 1 "
      "AND "
      "IDCausalePagamento = 2");
  EXPECT_EQ(one("SELECT COUNT(Selezionato) FROM tmpprequadrivio12 WHERE Selezionato = 1"), "3");
  const char* missing =
      "SELECT COUNT(Selezionato) FROM tmpprequadrivio12 WHERE Selezionato = 1 AND (ISNULL(ProtocolloAnnSost, "
      "'') = ''  "
      "OR ISNULL(ProgressivoAnnSost, '') = '')";
  EXPECT_EQ(one(missing), "3");
  connection_->Execute(
      "UPDATE tmpprequadrivio12 SET ProtocolloAnnSost = '123', ProgressivoAnnSost = '   ', Modificato = 1 "
      "WHERE Anno = "
      "2016 AND IDAnagrafica = 9 AND IDAzienda = 1 AND IDCausalePagamento = 1");
  EXPECT_EQ(one(missing), "3");
  connection_->Execute(
      "UPDATE tmpprequadrivio12 SET ProtocolloAnnSost = 'dell''anno', ProgressivoAnnSost = '1', Modificato = "
      "1 WHERE "
      "Anno = 2016 AND IDAnagrafica = 9 AND IDAzienda = 1 AND IDCausalePagamento = 1");
  EXPECT_EQ(one(missing), "2");
  EXPECT_EQ(one("SELECT ProtocolloAnnSost FROM tmpprequadrivio12 WHERE IDAnagrafica = 9"), "dell'anno");
}

TEST_F(SuiteStatements, AConfirmedRowIsWrittenWithAllItsColumns) {
  load();
  std::string text = "UPDATE tmpprequadrivio12 SET ";
  int number = 0;
  for (const char* column : kRowColumns) {
    std::string value = std::to_string(++number) + ".25";
    for (const WorkColumn& work : kWorkColumns) {
      if (std::string_view(work.name) != column) continue;
      const std::string_view type = work.type;
      if (type == "Descrizione" || type == "Note") value = "'t" + std::to_string(number) + "'";
      if (type == "int" || type == "SiNo") value = std::to_string(number);
    }
    text += (number > 1 ? ", " : "") + std::string(column) + " = " + value;
  }
  text += " WHERE Anno = 2016 AND IDAnagrafica = 7 AND IDAzienda = 1 AND IDCausalePagamento = 1";
  connection_->Execute(text);
  EXPECT_EQ(work("ProtocolloAnnSost, Imponibile, AltriContributi, FusioneComuniAnnoPrec, Modificato").front(),
            (std::vector<std::string>{"t1", "10.25", "26.25", "t73", "74"}));
}

class WriteBack : public SuiteStatements {
 protected:
  void change(int payee, int reason, const std::string& set) {
    connection_->Execute("UPDATE tmpprequadrivio12 SET " + set +
                         " WHERE Anno = 2016 AND IDAnagrafica = " + std::to_string(payee) +
                         " AND IDAzienda = 1 AND IDCausalePagamento = " + std::to_string(reason));
  }
  void writeBack() {
    connection_->Execute(writeAccounts(kWork));
    connection_->Execute(writeAdditionalData(kWork));
  }
  Lines accounts() {
    return query(
        *connection_,
        "SELECT OnorarioProvvigioni, QuotaProvvigioniNonSoggette, SommeNonSoggette, ContributoPrevidenziale "
        "FROM ContoIndividuale WHERE Anno = 2016");
  }
  Lines additional() {
    return query(*connection_,
                 "SELECT IDAnagrafica, IDCausalePagamento, Anticipazione, AltriContributi, RitenuteSospese, "
                 "ProtocolloAnnSost FROM ContoIndividualeDatiAggiuntivi");
  }
};

TEST_F(WriteBack, NoChangedRowTouchesNothing) {
  load();
  const Lines before = accounts();
  const Lines others = additional();
  writeBack();
  EXPECT_EQ(accounts(), before);
  EXPECT_EQ(additional(), others);
}

TEST_F(WriteBack, AChangedRowReachesTheAccountAndItsAdditionalData) {
  load();
  change(7, 1,
         "Imponibile = 1000.1, QuotaProvvigioniNonSoggette = 0.2, SommeNonSoggetteARitenuta = 3, "
         "ContributiCaricoAzienda = 0.1, ContributiCaricoPercipiente = 0.2, AltriContributi = 1, "
         "RitenuteSospese = 12.3456, Modificato = 1");
  writeBack();
  EXPECT_EQ(accounts().front(), (std::vector<std::string>{"1000.3", "0.2", "3", "0.3"}));
  EXPECT_EQ(additional(), (Lines{{"7", "1", "1", "1", "12.3456", "NULL"}}));
}

TEST_F(WriteBack, AChangedRowWithoutAdditionalDataGetsThem) {
  load();
  change(9, 1, "ProtocolloAnnSost = 'P1', Modificato = -1");
  writeBack();
  EXPECT_EQ(additional(),
            (Lines{{"7", "1", "1", "-1", "NULL", "NULL"}, {"9", "1", "0", "NULL", "NULL", "P1"}}));
}

TEST_F(WriteBack, AChangedRowThatIsNotSelectedIsNotWritten) {
  load();
  change(9, 1, "Imponibile = 1, ProtocolloAnnSost = 'P1', Modificato = 1, Selezionato = 0");
  const Lines before = accounts();
  const Lines others = additional();
  writeBack();
  EXPECT_EQ(accounts(), before);
  EXPECT_EQ(additional(), others);
}

TEST_F(WriteBack, RunAgainItChangesNothing) {
  load();
  change(7, 1, "Imponibile = 123.45, Modificato = 1");
  change(8, 1, "Imponibile = 99.9, Modificato = 1");
  writeBack();
  const Lines once = accounts();
  const Lines others = additional();
  writeBack();
  writeBack();
  EXPECT_EQ(accounts(), once);
  EXPECT_EQ(additional(), others);
}

TEST_F(WriteBack, ForMAndOTheRefundedExpensesLeaveTheAccount) {
  load();
  change(7, 2, "Modificato = 1");
  writeBack();
  EXPECT_EQ(
      one("SELECT SommeNonSoggette FROM ContoIndividuale WHERE IDAnagrafica = 7 AND IDCausalePagamento = 2"),
      "0");
}

TEST_F(WriteBack, TheStatementsSayHowManyRowsTheyTouch) {
  load();
  const std::string row =
      " WHERE Anno = 2016 AND IDAnagrafica = 7 AND IDAzienda = 1 AND IDCausalePagamento = ";
  EXPECT_EQ(connection_->Execute("UPDATE tmpprequadrivio12 SET Modificato = 1" + row + "2"), 1);
  EXPECT_EQ(connection_->Execute("UPDATE tmpprequadrivio12 SET Modificato = 1" + row + "99"), 0);
  EXPECT_EQ(connection_->Execute("UPDATE tmpprequadrivio12 SET Modificato = 1"),
            std::stoll(one("SELECT COUNT(*) FROM tmpprequadrivio12")));
  connection_->Execute("DELETE FROM ContoIndividualeDatiAggiuntivi WHERE IDAnagrafica = 7");
  for (int i = 0; i < 2; ++i) {  // the second time all additional data exist
    EXPECT_EQ(connection_->Execute(writeAccounts(kWork)),
              std::stoll(one("SELECT COUNT(*) FROM tmpprequadrivio12")));
    EXPECT_EQ(connection_->Execute(writeAdditionalData(kWork)),
              std::stoll(one("SELECT COUNT(*) FROM tmpprequadrivio12")));
  }
  connection_->Execute("UPDATE tmpprequadrivio12 SET Selezionato = 0");
  EXPECT_EQ(connection_->Execute(writeAccounts(kWork)), 0);
  EXPECT_EQ(connection_->Execute(writeAdditionalData(kWork)), 0);
  EXPECT_EQ(connection_->Execute(dropWorkTable(kWork)), -1);
  EXPECT_EQ(connection_->Execute(createWorkTable(kWork)), -1);
  EXPECT_EQ(connection_->Execute("SELECT 1"), -1);
}

TEST_F(WriteBack, AMergeThatFailsInItsSecondStepLeavesNothingOfTheFirst) {
  connection_->Execute("CREATE TABLE Meta (a int NOT NULL, b int NOT NULL, PRIMARY KEY (a))");
  connection_->Execute("CREATE TABLE Fonte (a int, b int)");
  connection_->Execute("INSERT INTO Meta VALUES (1, 10)");
  connection_->Execute("INSERT INTO Fonte VALUES (1, 11), (2, NULL)");
  const char* merge =
      "MERGE INTO Meta USING Fonte ON (Meta.a = Fonte.a) WHEN MATCHED THEN UPDATE SET b = Fonte.b WHEN NOT "
      "MATCHED THEN "
      "INSERT (a, b) VALUES (Fonte.a, Fonte.b);";
  EXPECT_EQ(errorOf([&] { connection_->Execute(merge); }).kind(), DatabaseErrorKind::Constraint);
  EXPECT_EQ(query(*connection_, "Meta"), (Lines{{"1", "10"}}));
  connection_->Execute("BEGIN TRANSACTION");
  connection_->Execute("INSERT INTO Meta VALUES (5, 50)");
  EXPECT_EQ(errorOf([&] { connection_->Execute(merge); }).kind(), DatabaseErrorKind::Constraint);
  connection_->Execute("COMMIT TRANSACTION");
  EXPECT_EQ(query(*connection_, "Meta"), (Lines{{"1", "10"}, {"5", "50"}}));
}

TEST_F(WriteBack, AMergeThatWouldChangeOneRowTwiceIsRefused) {
  connection_->Execute("CREATE TABLE Meta (a int NOT NULL PRIMARY KEY, b int)");
  connection_->Execute("CREATE TABLE Fonte (a int, b int)");
  connection_->Execute("INSERT INTO Meta VALUES (1, 10)");
  connection_->Execute("INSERT INTO Fonte VALUES (1, 11), (1, 12)");
  const DatabaseError error = errorOf([&] {
    connection_->Execute(
        "MERGE INTO Meta USING Fonte ON Meta.a = Fonte.a WHEN MATCHED THEN UPDATE SET b = Fonte.b;");
  });
  EXPECT_EQ(error.kind(), DatabaseErrorKind::Constraint);
  EXPECT_EQ(query(*connection_, "Meta"), (Lines{{"1", "10"}}));
}

class RunQueries : public SuiteStatements {};

TEST_F(RunQueries, TheMainQueryGivesTheSelectedLinesInTheOrderOfTheNames) {
  load();
  RowStore rows;
  connection_->Query(mainQuery(kWork), rows);
  const Columns& columns = *rows.columns();
  EXPECT_EQ(columns.size(), 143u);
  std::vector<std::string> order;
  for (const auto& line : linesOf(rows)) {
    order.push_back(line[columns.find("AnagraficaPerc")] + "/" + line[columns.find("IDAnagrafica")] + "/" +
                    line[columns.find("Codice")] + "/" + line[columns.find("ProvinciaNascita")] + "/" +
                    line[columns.find("ComuneNascita")]);
  }
  EXPECT_THAT(order, ::testing::ElementsAre("ÀBATE Zoe/9/A/MI/Milano", "D'Amico/8/A/EE/Francia",
                                            "Rossi Mario/7/A/VR/Verona", "Rossi Mario/7/m/VR/Verona"));
  const auto first = linesOf(rows).front();
  EXPECT_EQ(first[columns.find("CodiceFiscaleAz")], "01234567890");
  EXPECT_EQ(first[columns.find("CodiceAttivita")], "620100");
  EXPECT_EQ(first[columns.find("DataNascita")], "01/01/1980");
  EXPECT_EQ(columns[columns.find("DataNascita")].type, ValueType::Date);
  EXPECT_EQ(columns[columns.find("AmmontareLordo")].type, ValueType::Decimal);
}

TEST_F(RunQueries, ACompanyWithoutAVatPeriodOfTheYearGivesNoRows) {
  load();
  connection_->Execute("DELETE FROM PeriodoIva WHERE Anno = 2016");
  EXPECT_TRUE(query(*connection_, mainQuery(kWork)).empty());
}

TEST_F(RunQueries, TheModulesOfALineComeByTheirNumber) {
  RowStore rows;
  connection_->Query(moduleQuery(2016, 9, 1, 1), rows);
  const Columns& columns = *rows.columns();
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(linesOf(rows)[0][columns.find("IDModuloXContoIndividuale")], "2");
  EXPECT_EQ(linesOf(rows)[1][columns.find("SommeNonSoggette")], "2.05");
  EXPECT_TRUE(query(*connection_, moduleQuery(2016, 8, 1, 1)).empty());
}

TEST_F(RunQueries, TheCompanyAndPayeeQueriesOfTheChecks) {
  load();
  EXPECT_EQ(query(*connection_, std::string(kCompanyQuery) + "1"),
            (Lines{{"01234567890", "Quadrivio Srl", "0", "NULL", "Verona", "VR", "Rossi", "Mario",
                    "RSSMRA70A01L781X", "1"}}));
  const Lines payees = query(*connection_, payeeQuery(kWork));
  EXPECT_EQ(payees.size(), 3u);
  EXPECT_THAT(payees, ::testing::Contains(::testing::ElementsAre("M", "01/01/1970", "0", "NULL", "1", "Rossi",
                                                                 "Mario", "Rossi Mario", "RSSMRA70A01L781X",
                                                                 "Verona", "Verona", "Italia", "NULL", "")));
}

TEST_F(RunQueries, TheSmallStatementsOfTheForms) {
  EXPECT_EQ(query(*connection_,
                  "SELECT DISTINCT ContoIndividuale.Anno From ContoIndividuale WHERE IDAzienda = 1 AND "
                  "Anno >= 2014 ORDER BY Anno DESC"),
            (Lines{{"2016"}, {"2015"}}));
  EXPECT_EQ(query(*connection_,
                  "SELECT IDCodicePerNonSoggetti, Codice + ' - ' + Descrizione AS Descrizione FROM "
                  "CodicePerNonSoggetti"),
            (Lines{{"1", "7 - Altri"}}));
  EXPECT_EQ(query(*connection_,
                  "SELECT CodiceComuneDiNascita, Provincia FROM Comune INNER JOIN Provincia ON "
                  "Comune.IDProvincia = Provincia.IDProvincia WHERE IDComune = 2"),
            (Lines{{"F205", "MI"}}));
  const Lines modules =
      query(*connection_,
            "SELECT *, Anticipazione AS Eliminato FROM ModuloXContoIndividuale WHERE Anno = 2016 AND "
            "IDAnagrafica = 9 AND IDAzienda = 1 AND IDCausalePagamento = 1");
  ASSERT_EQ(modules.size(), 2u);
  EXPECT_EQ(modules[0].front(), "2");
  EXPECT_EQ(modules[0].back(), "0");
  EXPECT_EQ(one("SELECT MAX(IDModuloXContoIndividuale) AS ID FROM ModuloXContoIndividuale"), "3");
  connection_->Execute("DELETE ModuloXContoIndividuale WHERE IDModuloXContoIndividuale = 3");
  EXPECT_EQ(one("SELECT MAX(IDModuloXContoIndividuale) AS ID FROM ModuloXContoIndividuale"), "2");
  connection_->Execute("DELETE ModuloXContoIndividuale WHERE IDModuloXContoIndividuale > 0");
  EXPECT_EQ(one("SELECT MAX(IDModuloXContoIndividuale) AS ID FROM ModuloXContoIndividuale"), "NULL");
}

TEST_F(RunQueries, TheIntermediaryIsStoredAndReadBack) {
  connection_->Execute(
      "INSERT INTO ConfigurazioneElencoCliFor (CodiceFiscaleIntermediario, TipoComunicazione, "
      "DataImpegno, IDAzienda) VALUES ('RSSMRA70A01L781X', 0, '20170305', 1)");
  const char* read =
      "SELECT CodiceFiscaleIntermediario, TipoComunicazione, DataImpegno FROM "
      "ConfigurazioneElencoCliFor WHERE IDAzienda = 1";
  EXPECT_EQ(query(*connection_, read), (Lines{{"RSSMRA70A01L781X", "0", "05/03/2017"}}));
  connection_->Execute(
      "UPDATE ConfigurazioneElencoCliFor SET  CodiceFiscaleIntermediario = '', TipoComunicazione = 2, "
      "DataImpegno = NULL WHERE IDAzienda = 1");
  EXPECT_EQ(query(*connection_, read), (Lines{{"", "2", "NULL"}}));
}

TEST_F(RunQueries, TheSelectionForTheForms) {
  connection_->Execute("DELETE FROM TabellaRicorsione2 WHERE IDUtente = 12 AND IDFunzione = 342");
  connection_->Execute(
      "INSERT INTO TabellaRicorsione2 (IDPath1, IDPath2, IDUtente, IDFunzione, Path14, Path1, Path2, "
      "Path3) VALUES (7,1,12,342,1,3,1,'05/03/2017')");
  EXPECT_EQ(query(*connection_,
                  "SELECT IDUtente, Anno, IDAnagrafica, AmmontareLordo, Imponibile, Path3, AnagraficaAz, "
                  "ComuneNascita FROM RepCertificazioneUnica WHERE IDUtente = 12"),
            (Lines{{"12", "2016", "7", "2000", "1899.75", "05/03/2017", "Quadrivio Srl", "Verona"}}));
  connection_->Execute("DELETE FROM TabellaRicorsione2 WHERE IDUtente = 12 AND IDFunzione = 342");
  EXPECT_TRUE(query(*connection_, "TabellaRicorsione2").empty());
}

TEST_F(RunQueries, TheLookUpsBeforeAPrint) {
  ConnectionRowset rowset(*connection_);
  rowset.addField("IDAzienda");
  rowset.setTable("RepContoIndividuale");
  rowset.setFilter(
      " IDAzienda =  1 And Anno >= 2014 AND Anno <=  2016 And  CodicePercipiente >= '0001' AND "
      "CodicePercipiente<= '0002' And  Codice >= 'A' AND Codice<='M'");
  rowset.open();
  EXPECT_FALSE(rowset.eof());
  connection_->Execute(
      "INSERT INTO Compenso (IDCompenso, IDAzienda, IDAnagrafica, IDCausalePagamento, DataPagamento) "
      "VALUES (1, 1, 7, 2, '20160630')");
  ConnectionRowset payments(*connection_);
  payments.addField("IDAzienda");
  payments.setTable("RepCompenso");
  payments.setFilter(
      " IDAzienda =  1 And Year(DataPagamento) = 2016 And Anagrafica >= 'rossi' And CodicePagamento <= 'm'");
  payments.open();
  EXPECT_FALSE(payments.eof());
  EXPECT_EQ(payments.value("IDAzienda"), Value::ofInteger(1));
  payments.setFilter(" IDAzienda =  1 And Year(DataPagamento) = 2015");
  payments.open();
  EXPECT_TRUE(payments.eof());
  ConnectionRowset branch(*connection_);
  branch.addField("IDDefaultFilialePerTipoOggetto");
  branch.setTable("DefaultFilialePerTipoOggetto");
  branch.setFilter("IDTipoOggetto = 342 AND \r\nIDFiliale = 1");
  branch.open();
  EXPECT_TRUE(branch.eof());
}

TEST_F(RunQueries, AModuleIsInsertedWithAllItsColumns) {
  std::string columns;
  std::string values;
  int number = 100;
  for (const std::string column : kModuleColumns) {
    columns += (columns.empty() ? "" : ", ") + column;
    const bool text = column.find("CodiceFiscale") != std::string::npos;
    values +=
        (values.empty() ? "" : ", ") + (text ? "'c" + std::to_string(number) + "'" : std::to_string(number));
    ++number;
  }
  connection_->Execute("INSERT INTO ModuloXContoIndividuale (" + columns + ") VALUES (" + values + ")");
  EXPECT_EQ(one("SELECT COUNT(*) FROM ModuloXContoIndividuale WHERE IDModuloXContoIndividuale = 100"), "1");
}

}  // namespace
}  // namespace cu::sqlite::test
