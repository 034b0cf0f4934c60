#include "archive/ricostruzione.h"

#include <gtest/gtest.h>

#include <string>

#include "archive/archivio_di_prova.h"
#include "archive/schema.h"

namespace cu {
namespace {

using test::number;
using test::OneConnectionHost;
using test::Righe;

// Payee 7 ("Bianchi", code P7) and payee 8 ("Verdi", code P8) of company 1; reasons A (id 1) and M (id 11).
class Ricostruzione : public testing::Test {
 protected:
  Ricostruzione() : connection_(SqliteConnection::create(":memory:")), host_(*connection_) {
    creaSchema(*connection_);
    execute("INSERT INTO CausalePagamento (IDCausalePagamento, Codice) VALUES (1, 'A'), (11, 'M')");
    execute("INSERT INTO Anagrafica (IDAnagrafica, Anagrafica) VALUES (7, 'Bianchi'), (8, 'Verdi')");
    execute("INSERT INTO Percipiente (IDAzienda, IDAnagrafica, Codice) VALUES (1, 7, 'P7'), (1, 8, 'P8')");
  }
  void execute(std::string_view statement) { connection_->Execute(statement); }
  void pay(int payee, int reason, const std::string& day, const std::string& amounts, int company = 1) {
    execute(
        "INSERT INTO Compenso (IDCompenso, IDAzienda, IDAnagrafica, IDCausalePagamento, DataPagamento,"
        " OnorarioProvvigioni, QuotaProvvigioniNonSoggette, SommeNonSoggette, SommeNonSoggetteRegConv,"
        " RitenutaAcconto, RitenutaImposta, ContributoPrevidenziale, RitenutaPrevidenziale13) VALUES (" +
        std::to_string(++payments_) + ", " + std::to_string(company) + ", " + std::to_string(payee) + ", " +
        std::to_string(reason) + ", '" + day + "', " + amounts + ")");
  }
  void account(int payee, int reason, int year, const std::string& fee) {
    execute(
        "INSERT INTO ContoIndividuale (IDAnagrafica, IDCausalePagamento, Anno, IDAzienda, "
        "OnorarioProvvigioni,"
        " QuotaProvvigioniNonSoggette) VALUES (" +
        std::to_string(payee) + ", " + std::to_string(reason) + ", " + std::to_string(year) + ", 1, " + fee +
        ", 0)");
  }
  // Returns the number of accounts changed.
  std::size_t rebuild(std::int16_t year, const std::string& filter = "") {
    RicostruzioneContiIndividuali rebuild;
    rebuild.setDatabase(host_);
    rebuild.setAzienda(1);
    rebuild.setFlag(true);
    rebuild.setFiltro(filter);
    rebuild.ricostruisci(year);
    return rebuild.contiCambiati();
  }
  // The fee of an account; "-" where there is no account.
  std::string fee(int payee, int reason, int year) {
    const Righe rows(
        *connection_,
        "SELECT OnorarioProvvigioni FROM ContoIndividuale WHERE IDAnagrafica = " + std::to_string(payee) +
            " AND IDCausalePagamento = " + std::to_string(reason) + " AND Anno = " + std::to_string(year));
    return rows.size() == 0 ? "-" : rows.text(0, "OnorarioProvvigioni");
  }

  std::unique_ptr<SqliteConnection> connection_;
  OneConnectionHost host_;
  int payments_ = 0;
};

TEST_F(Ricostruzione, SumsThePaymentsOfAYearIntoANewAccount) {
  pay(7, 1, "20160101", "100.10, 1, 2, 3, 4, 5, 6, 7");
  pay(7, 1, "20161231", "0.20, 10, 20, 30, 40, 50, 60, 70");
  rebuild(2016);
  const Righe rows(*connection_, "SELECT * FROM ContoIndividuale");
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows.integer(0, "IDAnagrafica"), 7);
  EXPECT_EQ(rows.integer(0, "IDCausalePagamento"), 1);
  EXPECT_EQ(rows.integer(0, "Anno"), 2016);
  EXPECT_EQ(rows.integer(0, "IDAzienda"), 1);
  EXPECT_EQ(rows.text(0, "OnorarioProvvigioni"), "100.3");
  EXPECT_EQ(rows.text(0, "QuotaProvvigioniNonSoggette"), "11");
  EXPECT_EQ(rows.text(0, "SommeNonSoggette"), "22");
  EXPECT_EQ(rows.text(0, "SommeNonSoggetteRegConv"), "33");
  EXPECT_EQ(rows.text(0, "RitenutaAcconto"), "44");
  EXPECT_EQ(rows.text(0, "RitenutaImposta"), "55");
  EXPECT_EQ(rows.text(0, "ContributoPrevidenziale"), "66");
  EXPECT_EQ(rows.text(0, "RitenutaPrevidenziale13"), "77");
}

TEST_F(Ricostruzione, TakesTheYearOfThePaymentOnly) {
  pay(7, 1, "20151231", "1, 0, 0, 0, 0, 0, 0, 0");
  pay(7, 1, "20160101", "2, 0, 0, 0, 0, 0, 0, 0");
  pay(7, 1, "20170101", "4, 0, 0, 0, 0, 0, 0, 0");
  rebuild(2016);
  EXPECT_EQ(fee(7, 1, 2016), "2");
  EXPECT_EQ(fee(7, 1, 2015), "-");
  EXPECT_EQ(fee(7, 1, 2017), "-");
}

TEST_F(Ricostruzione, OverwritesAnAccountThatHasPayments) {
  account(7, 1, 2016, "999");
  pay(7, 1, "20160315", "12.5, 0, 0, 0, 0, 0, 0, 0");
  rebuild(2016);
  rebuild(2016);
  EXPECT_EQ(fee(7, 1, 2016), "12.5");
}

TEST_F(Ricostruzione, LeavesAccountsWithoutPaymentsAndOtherYearsAsTheyAre) {
  account(8, 1, 2016, "50");
  account(7, 1, 2015, "60");
  pay(7, 1, "20160315", "12.5, 0, 0, 0, 0, 0, 0, 0");
  pay(7, 1, "20150315", "1, 0, 0, 0, 0, 0, 0, 0");
  rebuild(2016);
  EXPECT_EQ(fee(8, 1, 2016), "50");
  EXPECT_EQ(fee(7, 1, 2015), "60");
}

TEST_F(Ricostruzione, LeavesAdditionalDataAsTheyAre) {
  pay(7, 1, "20160315", "12.5, 0, 0, 0, 0, 0, 0, 0");
  execute(
      "INSERT INTO ContoIndividualeDatiAggiuntivi (IDAnagrafica, IDCausalePagamento, Anno, IDAzienda,"
      " QuotaProvvigioniNonSoggette, ProtocolloAnnSost) VALUES (7, 1, 2016, 1, 5, '17')");
  rebuild(2016);
  const Righe rows(*connection_, "SELECT * FROM ContoIndividualeDatiAggiuntivi");
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows.text(0, "QuotaProvvigioniNonSoggette"), "5");
  EXPECT_EQ(rows.text(0, "ProtocolloAnnSost"), "17");
}

TEST_F(Ricostruzione, LeavesOtherCompaniesOut) {
  pay(7, 1, "20160315", "12.5, 0, 0, 0, 0, 0, 0, 0", 2);
  rebuild(2016);
  EXPECT_EQ(number(*connection_, "SELECT COUNT(*) FROM ContoIndividuale"), 0);
}

TEST_F(Ricostruzione, CountsANullAmountAsZeroAndLeavesNone) {
  pay(7, 1, "20160315", "NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL");
  rebuild(2016);
  const Righe rows(*connection_, "SELECT * FROM ContoIndividuale");
  ASSERT_EQ(rows.size(), 1u);
  for (const char* column :
       {"OnorarioProvvigioni", "QuotaProvvigioniNonSoggette", "RitenutaPrevidenziale13"}) {
    EXPECT_FALSE(rows.isNull(0, column)) << column;
    EXPECT_TRUE(rows.amount(0, column).isZero()) << column;
  }
}

TEST_F(Ricostruzione, SumsAmountsExactly) {
  for (int i = 0; i < 10; ++i) pay(7, 1, "20160315", "0.1, 0, 0, 0, 0.0001, 0, 0, 0");
  rebuild(2016);
  const Righe rows(*connection_, "SELECT * FROM ContoIndividuale");
  EXPECT_EQ(rows.text(0, "OnorarioProvvigioni"), "1");
  EXPECT_EQ(rows.text(0, "RitenutaAcconto"), "0.001");
}

TEST_F(Ricostruzione, TakesTheRangeOfPayeeCodes) {
  pay(7, 1, "20160315", "1, 0, 0, 0, 0, 0, 0, 0");
  pay(8, 1, "20160315", "2, 0, 0, 0, 0, 0, 0, 0");
  rebuild(2016, " AND CodicePercipiente >= 'P8' AND CodicePercipiente <= 'P9'");
  EXPECT_EQ(fee(7, 1, 2016), "-");
  EXPECT_EQ(fee(8, 1, 2016), "2");
}

TEST_F(Ricostruzione, TakesTheRangeOfNamesWithoutRegardToCase) {
  pay(7, 1, "20160315", "1, 0, 0, 0, 0, 0, 0, 0");
  pay(8, 1, "20160315", "2, 0, 0, 0, 0, 0, 0, 0");
  rebuild(2016, " AND Anagrafica >= 'bianchi' AND Anagrafica <= 'BIANCHI'");
  EXPECT_EQ(fee(7, 1, 2016), "1");
  EXPECT_EQ(fee(8, 1, 2016), "-");
}

TEST_F(Ricostruzione, TakesTheRangeOfReasons) {
  account(7, 1, 2016, "50");
  pay(7, 1, "20160315", "1, 0, 0, 0, 0, 0, 0, 0");
  pay(7, 11, "20160315", "2, 0, 0, 0, 0, 0, 0, 0");
  rebuild(2016, " AND CodiceCausalePagamento >= 'B' AND CodiceCausalePagamento <= 'N'");
  EXPECT_EQ(fee(7, 1, 2016), "50");
  EXPECT_EQ(fee(7, 11, 2016), "2");
}

TEST_F(Ricostruzione, OfAYearWithoutPaymentsChangesNothing) {
  account(7, 1, 2016, "50");
  rebuild(0);
  rebuild(2016);
  EXPECT_EQ(fee(7, 1, 2016), "50");
  EXPECT_EQ(number(*connection_, "SELECT COUNT(*) FROM ContoIndividuale"), 1);
}

TEST_F(Ricostruzione, CountsTheAccountsThatItMakesAndThoseWhoseAmountsItChanges) {
  account(7, 1, 2016, "12.5");
  account(8, 1, 2016, "50");
  pay(7, 1, "20160315", "12.5, 0, NULL, 0, 0, 0, 0, 0");
  EXPECT_EQ(rebuild(2016), 0U) << "what was missing and is zero now is no change";
  pay(7, 1, "20160316", "0, 0, 0, 0, 0, 0, 0, 0.01");
  pay(7, 11, "20160316", "0, 0, 0, 0, 0, 0, 0, 0");
  EXPECT_EQ(rebuild(2016, " AND CodiceCausalePagamento >= 'B'"), 1U) << "a new account, though empty";
  EXPECT_EQ(rebuild(2016), 1U);
  EXPECT_EQ(rebuild(2016), 0U);
  execute("UPDATE ContoIndividuale SET RitenutaAcconto = 7");
  EXPECT_EQ(rebuild(2016), 2U) << "payee 8 has no payments";
}

TEST_F(Ricostruzione, TakesEverythingBackWhenItFails) {
  pay(7, 1, "20160315", "1, 0, 0, 0, 0, 0, 0, 0");
  test::RefusingConnection refusing(*connection_, "UPDATE ContoIndividuale");
  OneConnectionHost host(refusing);
  RicostruzioneContiIndividuali rebuild;
  rebuild.setDatabase(host);
  rebuild.setAzienda(1);
  EXPECT_THROW(rebuild.ricostruisci(2016), DatabaseError);
  EXPECT_EQ(number(*connection_, "SELECT COUNT(*) FROM ContoIndividuale"), 0);
}

TEST_F(Ricostruzione, WithAFilterThatNamesNoColumnFailsAndChangesNothing) {
  pay(7, 1, "20160315", "1, 0, 0, 0, 0, 0, 0, 0");
  EXPECT_THROW(rebuild(2016, " AND Colore = 'rosso'"), DatabaseError);
  EXPECT_EQ(number(*connection_, "SELECT COUNT(*) FROM ContoIndividuale"), 0);
}

TEST(RicostruzioneContiIndividuali, WithoutADatabaseIsAnError) {
  RicostruzioneContiIndividuali rebuild;
  try {
    rebuild.ricostruisci(2016);
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), kErrorObjectNotSet);
  }
}

}  // namespace
}  // namespace cu
