#include "fornitura/carico.h"

#include <gmock/gmock.h>

#include "fornitura/fornitura_prova.h"
#include "host/testi_programma.h"

namespace cu::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class Load : public OperazioniProva {};

TEST_F(Load, ReturnsTheNumberOfLinesAndLeavesTheWorklistOnThem) {
  const auto righe = fornitura::carica(intorno(), compensi, anno("2016"));
  ASSERT_TRUE(righe);
  EXPECT_EQ(*righe, 2U);
  EXPECT_EQ(compensi.tabella(), "tmpprequadrivio12");
  EXPECT_EQ(compensi.rsCompensi().RecordCount(), 2U);
  EXPECT_THAT(eseguite(), ElementsAre(HasSubstr("drop table"), HasSubstr("CREATE TABLE"),
                                      HasSubstr("INSERT INTO tmpprequadrivio12 SELECT")));
}

TEST_F(Load, WhatTheDatabaseRefusesRises) {
  database.internal.refuseContaining("CREATE TABLE");
  EXPECT_THROW(static_cast<void>(fornitura::carica(intorno(), compensi, anno("2016"))), DatabaseError);
}

TEST_F(Load, AYearIsRequiredOfTheFileAndOfTheCertificate) {
  for (const ModoCorsa modo : {ModoCorsa::CU, ModoCorsa::Certificazione}) {
    const auto esito = fornitura::controllaFiltri(modo, anno("  "));
    ASSERT_EQ(esito.refusals.size(), 1U);
    EXPECT_EQ(esito.refusals[0].text, testoProgramma(109));
    EXPECT_EQ(esito.refusals[0].place, "KRNCboEsCont(0)");
    EXPECT_TRUE(fornitura::controllaFiltri(modo, anno("2016")));
  }
  for (const ModoCorsa modo : {ModoCorsa::ContiIndividuali, ModoCorsa::Altro}) {
    EXPECT_TRUE(fornitura::controllaFiltri(modo, anno("")));
  }
}

TEST_F(Load, ARebuildGetsTheFiltersAndReturnsHowManyAccountsItChanged) {
  factory.rebuiltAccounts = 3;
  Filtri filtri = anno(" 2016");
  filtri.perCodice = true;
  filtri.codiceDa = "P1";
  filtri.causaleA = "B";
  const auto cambiati = fornitura::ricostruisci(intorno(), filtri);
  EXPECT_EQ(*cambiati, 3U);
  ASSERT_EQ(factory.rebuilds.size(), 1U);
  EXPECT_EQ(factory.rebuilds[0].filter, " AND CodicePercipiente >= 'P1' AND CodiceCausalePagamento <= 'B'");
  EXPECT_THAT(factory.rebuilds[0].years, ElementsAre(2016));
  EXPECT_EQ(factory.rebuilds[0].company, 1);
}

TEST_F(Load, AFirstNameThatCannotBeReadIsEmpty) {
  database.main.answerContaining("FROM Anagrafica",
                                 Table({"IDAnagrafica", "Nome"}, {{whole(7), text("Ada")}}));
  EXPECT_EQ(fornitura::FindName(intorno(), 7), "Ada");
  database.main.refuseContaining("FROM Anagrafica");
  EXPECT_EQ(fornitura::FindName(intorno(), 7), "");
}

}  // namespace
}  // namespace cu::test
