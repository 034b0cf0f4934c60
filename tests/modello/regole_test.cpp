#include "modello/regole.h"

#include <gtest/gtest.h>

namespace cu::modello {
namespace {

TEST(Reasons, AskForTheYearAtTheEndOfAnEngagement) {
  for (const char* causale : {"G", "H", "I"}) EXPECT_TRUE(chiedeAnno(causale)) << causale;
  for (const char* causale : {"", "A", "g", "G ", "GH"}) EXPECT_FALSE(chiedeAnno(causale)) << causale;
}

TEST(Reasons, HaveSurchargesForAmateurSportsAlone) {
  EXPECT_TRUE(haAddizionali("N"));
  for (const char* causale : {"", "n", "M", "N "}) EXPECT_FALSE(haAddizionali(causale)) << causale;
}

TEST(Reasons, RefundExpensesOfOccasionalWork) {
  EXPECT_TRUE(rimborsaSpese("M"));
  EXPECT_TRUE(rimborsaSpese("O"));
  for (const char* causale : {"", "A", "M1", "M2", "O1"}) EXPECT_FALSE(rimborsaSpese(causale)) << causale;
}

TEST(Funds, TwoGiveThePayerACode) {
  EXPECT_EQ(fontePressoEnte(1), 1U);
  EXPECT_EQ(fontePressoEnte(2), 2U);
  for (const int ente : {0, 3, 17, -1}) EXPECT_EQ(fontePressoEnte(ente), 0U) << ente;
}

}  // namespace
}  // namespace cu::modello
