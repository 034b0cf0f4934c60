// The sum beside the gross amount.

#include "editors/somma_lordo.h"

#include <gtest/gtest.h>

#include "controls/form.h"
#include "support/scripted_front_end.h"

namespace cu::test {
namespace {

struct GrossNote : testing::Test {
  ScriptedFrontEnd frontEnd;
  Form form{frontEnd, "frm"};
  AmountBox lordo{form, "curField(10)", nullptr};
  GrossNote() { lordo.setFormat(2, "€", ",", "."); }
  static Decimal d(const char* testo) { return *Decimal::parse(testo); }
  std::string nota(const char* somma, const char* moduli, const char* adesso) {
    lordo.setNumber(d(adesso));
    return fnNotaLordo("5 + 7 + 8", d(somma), d(moduli), lordo);
  }
};

TEST_F(GrossNote, NamesTheBoxesOfEveryYear) {
  for (const std::int32_t anno : {2014, 2015, 2016, 2017}) {
    EXPECT_EQ(fnCaselleDelLordo(campiEditor(Pagina::Modulo1, anno)), "5 + 7 + 8") << anno;
  }
}

TEST_F(GrossNote, SaysSumAndDifference) {
  EXPECT_EQ(nota("1234.5", "0", "1234.5"), "5 + 7 + 8 = 1.234,50\r\ndifferenza: 0,00");
  EXPECT_EQ(nota("1000", "0", "1000.5"), "5 + 7 + 8 = 1.000,00\r\ndifferenza: +0,50");
  EXPECT_EQ(nota("1000", "0", "0"), "5 + 7 + 8 = 1.000,00\r\ndifferenza: -1.000,00");
}

TEST_F(GrossNote, AddsTheFurtherModules) {
  EXPECT_EQ(nota("1000", "200", "1200"), "5 + 7 + 8 + moduli = 1.200,00\r\ndifferenza: 0,00");
}

TEST_F(GrossNote, HidesNoFractionOfACent) {
  EXPECT_EQ(nota("0.3333", "0", "0.33"), "5 + 7 + 8 = 0,3333\r\ndifferenza: -0,0033");
}

}  // namespace
}  // namespace cu::test
