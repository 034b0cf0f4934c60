// The parts of the records that depend on the year.

#include "modello/tracciato.h"

#include <gtest/gtest.h>

namespace cu::modello {
namespace {

int inizio(std::int32_t anno, std::string_view nome) {
  for (const Tavola parte : tipoB(anno)) {
    for (const CampoRecord& campo : parte) {
      if (campo.nome == nome) return campo.posizione;
    }
  }
  return 0;
}

TEST(RecordB, HasTheEventCodeOfTheCompanySince2016) {
  for (const int anno : {0, 2013, 2014, 2015}) {
    EXPECT_FALSE(haEventiEccezionali(anno)) << anno;
    EXPECT_EQ(inizio(anno, kEventiEccezionali), 0) << anno;
    EXPECT_EQ(inizio(anno, "Cod. Fisc. rappresentante"), 321) << anno;
  }
  for (const int anno : {2016, 2017, 2018, 9999}) {
    EXPECT_TRUE(haEventiEccezionali(anno)) << anno;
    EXPECT_EQ(inizio(anno, kEventiEccezionali), 309) << anno;
    EXPECT_EQ(inizio(anno, "Cod. Fisc. rappresentante"), 310) << anno;
  }
}

TEST(RecordB, IsWholeInEachYear) {
  for (int anno = 2010; anno < 2025; ++anno) {
    int posizione = 1;
    for (const Tavola parte : tipoB(anno)) posizione = dopo(parte, posizione);
    EXPECT_EQ(posizione, kLarghezzaRecord + 1) << anno;
  }
}

TEST(RecordB, CountsCertificatesOfEmployeesIn2014Alone) {
  EXPECT_TRUE(kContaDipendenti.comprende(2014));
  EXPECT_FALSE(kContaDipendenti.comprende(2013));
  EXPECT_FALSE(kContaDipendenti.comprende(2015));
}

}  // namespace
}  // namespace cu::modello
