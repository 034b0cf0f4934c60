#include "printing/tabella_ricorsione.h"

#include <gtest/gtest.h>

#include "support/fake_connection.h"
#include "support/scripted_front_end.h"
#include "support/simple_utility.h"
#include "support/work_table.h"

namespace cu::test {
namespace {

class SelectionTable : public ::testing::Test {
 protected:
  const Recordset& riga(WorkRow cambi = {}) {
    connessione.answer("T", workTable({workRow(31, 5, std::move(cambi))}));
    righe.Open(connessione, "T");
    return righe;
  }
  ricorsione::Corsa corsa{.idUtente = 12, .sTipoCom = "3", .intermediari = true, .dataFirma = "05/03/2017"};
  NomeModulo nomi{
      .sCodFisc = "01234567890", .anno = "2016", .oggi = *Date::fromYmd(2017, 3, 5), .ora = {9, 7, 59}};
  ScriptedFrontEnd frontEnd;
  SimpleUtility utilita{frontEnd};
  FakeConnection connessione;
  Recordset righe;
};

TEST_F(SelectionTable, IsEmptiedForOneUserAndTheForms) {
  EXPECT_EQ(ricorsione::elimina(12),
            "DELETE FROM TabellaRicorsione2 WHERE IDUtente = 12 AND IDFunzione = 342");
}

TEST_F(SelectionTable, ALineGoesInWithEightValues) {
  EXPECT_EQ(
      ricorsione::inserisci(riga({{"IDAzienda", whole(4)}}), corsa, utilita),
      "INSERT INTO TabellaRicorsione2 (IDPath1, IDPath2, IDUtente, IDFunzione, Path14, Path1, Path2, Path3)"
      " VALUES (31,5,12,342,4,3,1,'05/03/2017')");
}

TEST_F(SelectionTable, TheKeyGoesInAsNumbersWhateverTheTableHolds) {
  const Recordset& scelta = riga({{"IDAnagrafica", text("31),(1")},
                                  {"IDCausalePagamento", text("5 --")},
                                  {"IDAzienda", text("4;DROP TABLE Compenso")}});
  EXPECT_EQ(
      ricorsione::inserisci(scelta, corsa, utilita),
      "INSERT INTO TabellaRicorsione2 (IDPath1, IDPath2, IDUtente, IDFunzione, Path14, Path1, Path2, Path3)"
      " VALUES (31,5,12,342,4,3,1,'05/03/2017')");
}

TEST_F(SelectionTable, WithoutIntermediaryAndWithAnOddDate) {
  corsa.intermediari = false;
  corsa.sTipoCom = "1";
  corsa.dataFirma = "l'altro ieri";
  EXPECT_EQ(
      ricorsione::inserisci(riga(), corsa, utilita),
      "INSERT INTO TabellaRicorsione2 (IDPath1, IDPath2, IDUtente, IDFunzione, Path14, Path1, Path2, Path3)"
      " VALUES (31,5,12,342,1,1,0,'l''altro ieri')");
}

TEST_F(SelectionTable, AFormIsNamedAfterItsLineAndTheMinute) {
  EXPECT_EQ(nomi.diRiga(riga(), utilita), "CUR_01234567890_RSSMRA70A01H501U_P1_2016_A_05032017_0907.cur");
}

TEST_F(SelectionTable, WhatStandsInTheLineGoesIntoTheNameAsItStands) {
  EXPECT_EQ(nomi.diRiga(riga({{"CodicePercipiente", text("P/1:*")}, {"Codice", text("A?")}}), utilita),
            "CUR_01234567890_RSSMRA70A01H501U_P/1:*_2016_A?_05032017_0907.cur");
}

TEST_F(SelectionTable, AllFormsTogetherAreNamedAfterTheCompany) {
  EXPECT_EQ(nomi.cumulativo(), "CUR_01234567890_2016_05032017_0907.cur");
}

}  // namespace
}  // namespace cu::test
