// The queries of a run and the small statements of the forms, unchanged, on a small database of the
// suite.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "suite_support.h"

namespace cu::sqlite::test {
namespace {

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
