#include <gtest/gtest.h>
#include "editors/editor_prova.h"

namespace cu {
namespace {

using namespace test;

struct Opening : testing::Test, EditorProva {};

TEST_F(Opening, FiltersTheRecordsetToTheRow) {
  apri(2016);
  EXPECT_EQ(riga.RecordCount(), 1U);
  EXPECT_EQ(riga.Filter(), "Anno = 2016 AND IDAnagrafica = 1 AND IDCausalePagamento = 1");
  EXPECT_EQ(&editor->Recordset(), &riga);
}

TEST_F(Opening, ShowsAmountsInTheCurrencysFormat) {
  apri(2016, {{"Imponibile", amount("1234.5")}});
  EXPECT_EQ(importo(19).text(), "1.234,50");
  EXPECT_EQ(importo(19).CurrencySymbol(), "€");
}

}  // namespace
}  // namespace cu
