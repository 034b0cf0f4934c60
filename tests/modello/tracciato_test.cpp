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
  for (const int anno : {2016, 2017, 2018, 2019}) {
    EXPECT_TRUE(haEventiEccezionali(anno)) << anno;
    EXPECT_EQ(inizio(anno, kEventiEccezionali), 309) << anno;
    EXPECT_EQ(inizio(anno, "Cod. Fisc. rappresentante"), 310) << anno;
  }
}

// 308 + 2 + 16 + 2 + 24 + 20 + 11 + 18 = 401: the number of certificates stays at 402.
TEST(RecordB, HasAnEventCodeOfTwoDigitsSince2020) {
  for (const int anno : {2020, 2021, 2025, 9999}) {
    EXPECT_EQ(inizio(anno, kEventiEccezionali), 309) << anno;
    EXPECT_EQ(inizio(anno, "Cod. Fisc. rappresentante"), 311) << anno;
    EXPECT_EQ(inizio(anno, "Cod. carica rappresentante"), 327) << anno;
    EXPECT_EQ(inizio(anno, "Cognome rappresentante"), 329) << anno;
    EXPECT_EQ(inizio(anno, "Nome rappresentante"), 353) << anno;
    EXPECT_EQ(inizio(anno, "Cod. Fisc. soc. o ente dich."), 373) << anno;
    EXPECT_EQ(inizio(anno, "N° comun. certif. lav. aut. e provv."), 402) << anno;
  }
}

TEST(RecordB, HasAFlagOfSpecialCasesSince2021) {
  EXPECT_EQ(inizio(2019, kCasiParticolari), 0);
  EXPECT_EQ(inizio(2020, kCasiParticolari), 0);
  EXPECT_EQ(inizio(2021, kCasiParticolari), 527);
  EXPECT_EQ(inizio(2025, kCasiParticolari), 527);
}

TEST(RecordB, IsWholeInEachYear) {
  for (int anno = 2010; anno < 2030; ++anno) {
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
