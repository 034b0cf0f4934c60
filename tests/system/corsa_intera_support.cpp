#include "system/corsa_intera_support.h"

#include <gtest/gtest.h>

namespace cu::test {

CorsaIntera::CorsaIntera(bool moduli) : moduli_(moduli) {
  const LuogoCorsa luogo(moduli);
  prima_ = luogo.conti();
  CorsaGuidata corsa(luogo);
  for (std::size_t passo = 0; passo < CorsaGuidata::passi(); ++passo) {
    const auto inizio = std::chrono::steady_clock::now();
    corsa.passo();
    tempi_.push_back(std::chrono::duration_cast<Tempo>(std::chrono::steady_clock::now() - inizio));
  }
  corsa.finisci();
  EXPECT_TRUE(corsa.finita());
  EXPECT_TRUE(corsa.detti().empty());
  dopo_ = luogo.conti();
  file_ = luogo.file();
  stampe_ = luogo.stampe();
  EXPECT_NE(prima_, dopo_);
  EXPECT_FALSE(file_.empty());
  EXPECT_EQ(stampe_ > 0, moduli);
  EXPECT_TRUE(luogo.soloInteri(file_));
}

bool CorsaIntera::tutta(const LuogoCorsa& luogo) const {
  return luogo.file() == file_ && luogo.conti() == dopo_ && luogo.stampe() == stampe_;
}

void CorsaIntera::attendeSano(const LuogoCorsa& luogo) const {
  EXPECT_EQ(luogo.integrita(), "ok");
  EXPECT_TRUE(luogo.altruiIntatti());
  for (const auto& [tavola, contenuto] : luogo.conti()) {
    EXPECT_TRUE(contenuto == prima_.at(tavola) || contenuto == dopo_.at(tavola)) << tavola;
  }
}

void CorsaIntera::attendeRiuscita(const LuogoCorsa& luogo) const {
  CorsaGuidata corsa(luogo);
  corsa.finisci();
  EXPECT_TRUE(corsa.finita());
  EXPECT_TRUE(corsa.detti().empty()) << corsa.detti().front();
  EXPECT_TRUE(luogo.altruiIntatti());
  EXPECT_TRUE(luogo.file() == file_) << "another file";
  EXPECT_TRUE(luogo.conti() == dopo_) << "other accounts";
  EXPECT_EQ(luogo.stampe(), stampe_);
  EXPECT_TRUE(luogo.soloInteri(file_));
}

}  // namespace cu::test
