// Which changed rows have not been written back to the accounts.

#include <gtest/gtest.h>

#include "base/error.h"
#include "worklist/compensi_prova.h"

namespace cu::test {
namespace {

class UnsavedRows : public testing::Test, public CompensiProva {
 protected:
  UnsavedRows() { carica({scelta(1), scelta(2), workRow(3, 1, {{"Selezionato", whole(0)}})}); }
  static WorkRow scelta(int idAnagrafica) { return workRow(idAnagrafica, 1, {{"Selezionato", whole(1)}}); }
  // Changes the row as an editor does.
  void correggi(std::size_t riga, const char* ritenute) {
    Recordset& righe = compensi.rsCompensi();
    righe.MoveTo(riga);
    compensi.sbApriRiga();
    righe.Set("RitenuteAcconto", amount(ritenute));
    righe.Set("Modificato", Value::ofFlag(true));
    righe.Update();
    compensi.sbAggiornaRiga();
  }
  void confermaSenzaModifiche(std::size_t riga) {
    compensi.rsCompensi().MoveTo(riga);
    compensi.sbApriRiga();
    compensi.sbAggiornaRiga();
  }
};

TEST_F(UnsavedRows, AreThoseAnEditorHasChangedUntilTheWriteBack) {
  EXPECT_EQ(compensi.nonMemorizzate(), 0U);
  correggi(1, "5");
  correggi(2, "6");
  correggi(2, "7");
  EXPECT_EQ(compensi.nonMemorizzate(), 2U);
  compensi.sbMemorizzaModifiche();
  EXPECT_EQ(compensi.nonMemorizzate(), 0U);
  correggi(1, "8");
  EXPECT_EQ(compensi.nonMemorizzate(), 1U);
}

TEST_F(UnsavedRows, ARowThatAnEditorHasLeftAsItWasIsNone) {
  confermaSenzaModifiche(2);
  EXPECT_EQ(compensi.nonMemorizzate(), 0U);
  correggi(1, "5");
  compensi.sbMemorizzaModifiche();
  confermaSenzaModifiche(1);
  EXPECT_EQ(compensi.nonMemorizzate(), 0U) << "stored, and the same still";
}

TEST_F(UnsavedRows, ARowThatIsNotSelectedStaysOne) {
  correggi(1, "5");
  correggi(3, "5");
  compensi.sbMemorizzaModifiche();
  EXPECT_EQ(compensi.nonMemorizzate(), 1U);
  EXPECT_EQ(compensi.rsCompensi().AbsolutePosition(), 3U) << "the current row stays";
}

TEST_F(UnsavedRows, ReferencesForTheSelectedRowsCountWhereTheyChangeARow) {
  compensi.sbAggiornaProtocolli("12", "3", true);
  EXPECT_EQ(compensi.nonMemorizzate(), 2U);
  compensi.sbMemorizzaModifiche();
  compensi.sbAggiornaProtocolli("99", "9", false);
  EXPECT_EQ(compensi.nonMemorizzate(), 0U) << "what is there stays";
  confermaSenzaModifiche(1);
  EXPECT_EQ(compensi.nonMemorizzate(), 0U) << "stored with its references, and the same still";
}

TEST_F(UnsavedRows, AFailedWriteBackStoresNone) {
  correggi(1, "5");
  database.internal.refuseContaining("MERGE INTO", DatabaseErrorKind::Locked, "Occupato.");
  EXPECT_THROW(compensi.sbMemorizzaModifiche(), Error);
  EXPECT_EQ(compensi.nonMemorizzate(), 1U);
}

TEST_F(UnsavedRows, AreForgottenWithTheNextLoad) {
  correggi(1, "5");
  carica({scelta(1)});
  EXPECT_EQ(compensi.nonMemorizzate(), 0U);
}

}  // namespace
}  // namespace cu::test
