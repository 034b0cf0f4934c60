#include "lettura/confronto.h"

#include <gtest/gtest.h>

#include "lettura/lettura_prova.h"

namespace cu::lettura::prova {
namespace {

Certificato certificato(const std::string& percipiente, const std::string& causale,
                        const std::string& lordo = "1,00") {
  Certificato c;
  c.percipiente = percipiente;
  c.celle = {{"DA002001", percipiente}, {"DA003001", "05032018"}, {"DA003002", "1"}};
  c.moduli = {{1, 0, {{"AU001001", causale}, {"AU001004", lordo}}}};
  return c;
}

Certificato annullamento(const std::string& percipiente) {
  Certificato c = certificato(percipiente, "A");
  c.operazione = "A";
  c.moduli.clear();
  return c;
}

TEST(Diverse, NamesTheCellsOfBothSides) {
  Certificato vecchio = certificato("P1", "A");
  Certificato nuovo = vecchio;
  EXPECT_TRUE(diverse(vecchio, nuovo).empty());
  nuovo.moduli[0].celle[1].testo = "2,00";
  nuovo.moduli[0].celle.push_back({"AU001009", "0,20"});
  nuovo.celle.erase(nuovo.celle.begin());
  const auto trovate = diverse(vecchio, nuovo);
  ASSERT_EQ(trovate.size(), 3U);
  EXPECT_EQ(trovate[0].campo, "DA002001");
  EXPECT_EQ(trovate[0].nuovo, "");
  EXPECT_EQ(trovate[1].campo, "AU001004");
  EXPECT_EQ(trovate[1].vecchio, "1,00");
  EXPECT_EQ(trovate[1].nuovo, "2,00");
  EXPECT_EQ(trovate[2].vecchio, "");
  EXPECT_EQ(trovate[2].modulo, 1);
}

TEST(Diverse, LeavesTheSignatureOut) {
  const Certificato vecchio = certificato("P1", "A");
  Certificato nuovo = vecchio;
  nuovo.celle[1].testo = "06032018";
  nuovo.celle[2].testo = "";
  EXPECT_TRUE(diverse(vecchio, nuovo).empty());
}

TEST(Diverse, PairsModulesByTheirNumbers) {
  Certificato vecchio = certificato("P1", "A");
  vecchio.moduli.push_back({2, 0, {{"AU001018", "5,00"}}});
  vecchio.moduli.push_back({3, 0, {{"AU001018", "6,00"}}});
  Certificato nuovo = vecchio;
  std::swap(nuovo.moduli[1], nuovo.moduli[2]);
  EXPECT_TRUE(diverse(vecchio, nuovo).empty());
  nuovo.moduli.pop_back();
  const auto trovate = diverse(vecchio, nuovo);
  ASSERT_EQ(trovate.size(), 1U);
  EXPECT_EQ(trovate[0].modulo, 2);
}

TEST(Diverse, OfRecordDAlone) {
  EXPECT_TRUE(diverse(annullamento("P1"), certificato("P1", "A"), true).empty());
  EXPECT_FALSE(diverse(annullamento("P1"), certificato("P1", "A")).empty());
}

TEST(Accostamento, PairsByPayeeAndReason) {
  Accostamento accostamento;
  accostamento.aggiungi(certificato("P1", "A"));
  accostamento.aggiungi(certificato("P1", "M"));
  EXPECT_FALSE(accostamento.togli(certificato("P2", "A")));
  EXPECT_FALSE(accostamento.togli(certificato("P1", "Q")));
  ASSERT_TRUE(accostamento.togli(certificato("P1", "M")));
  EXPECT_FALSE(accostamento.togli(certificato("P1", "M")));
  int rimasti = 0;
  accostamento.rimasti([&](const Certificato& c) {
    ++rimasti;
    EXPECT_EQ(c.causale(), "A");
  });
  EXPECT_EQ(rimasti, 1);
}

TEST(Accostamento, OfSeveralWithOneKeyTakesTheEqualOne) {
  Accostamento accostamento;
  accostamento.aggiungi(certificato("P1", "A", "1,00"));
  accostamento.aggiungi(certificato("P1", "A", "2,00"));
  EXPECT_EQ(accostamento.togli(certificato("P1", "A", "2,00"))->valore("AU001004"), "2,00");
  EXPECT_EQ(accostamento.togli(certificato("P1", "A", "9,00"))->valore("AU001004"), "1,00");
}

TEST(Accostamento, AnAnnulmentHasNoReasonOnEitherSide) {
  Accostamento annullamenti;
  annullamenti.aggiungi(annullamento("P1"));
  EXPECT_FALSE(annullamenti.togli(certificato("P2", "A")));
  EXPECT_TRUE(annullamenti.togli(certificato("P1", "A")));
  Accostamento conti;
  conti.aggiungi(certificato("P1", "M"));
  EXPECT_TRUE(conti.togli(annullamento("P1")));
}

}  // namespace
}  // namespace cu::lettura::prova
