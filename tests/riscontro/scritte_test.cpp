#include "riscontro/scritte.h"

#include <gtest/gtest.h>

#include "riscontro/riscontro_prova.h"
#include "suite/utilita.h"
#include "support/scripted_front_end.h"

namespace cu::riscontro::prova {
namespace {

constexpr Esercizio kAnno{1, 2017};

// The demonstration company, of whose certificates some are on record.
class Contate : public ::testing::Test {
 protected:
  Contate()
      : connessione_(SqliteConnection::create(":memory:")),
        registro_(*connessione_),
        utilita_(schermo_, "/tmp") {
    creaArchivio(*connessione_, ContenutoArchivio::Dimostrativo);
    leggiConti(*connessione_, kAnno, utilita_,
               [this](Conto conto) { conti_.push_back(std::move(conto.certificato)); });
  }
  std::int64_t scrivi(const std::vector<lettura::Certificato>& certificati, std::int32_t idAzienda = 1,
                      std::int32_t anno = 2017) {
    Invio invio;
    invio.idAzienda = idAzienda;
    invio.anno = anno;
    invio.impronta = "impronta";
    invio.momento = "2018-03-05 10:30:00";
    return registro_.registra(invio, certificati);
  }
  Scritte ora() { return scritte(registro_, kAnno, utilita_); }

  test::ScriptedFrontEnd schermo_;
  std::unique_ptr<Connection> connessione_;
  Registro registro_;
  UtilitaItaliana utilita_;
  std::vector<lettura::Certificato> conti_;
};

TEST_F(Contate, NoneAtFirstThenTheseOfTheFilesOfThatCompanyAndYear) {
  EXPECT_EQ(ora().conti, conti_.size());
  EXPECT_EQ(ora().scritte, 0U);
  scrivi(conti_, 2);
  scrivi(conti_, 1, 2016);
  EXPECT_EQ(ora().scritte, 0U);
  const std::vector<lettura::Certificato> tre(conti_.begin(), conti_.begin() + 3);
  scrivi(tre);
  EXPECT_EQ(ora().scritte, 3U);
  EXPECT_EQ(ora().inviate, 0U);
  scrivi(tre);  // the same once more
  EXPECT_EQ(ora().scritte, 3U);
  registro_.segnaInviato(scrivi({conti_[1], conti_[4]}), *Date::fromYmd(2018, 3, 6));
  EXPECT_EQ(ora().scritte, 4U);
  EXPECT_EQ(ora().inviate, 2U);
  EXPECT_EQ(ora().presso, 2U);
  scrivi(conti_);
  EXPECT_EQ(ora().scritte, conti_.size());
}

TEST_F(Contate, ACorrectionIsNoNewCertificate) {
  lettura::Certificato annullata = conti_[0];
  annullata.operazione = "A";
  scrivi({annullata});
  EXPECT_EQ(ora().scritte, 0U);
}

TEST_F(Contate, AReasonThatAPayeeHasTwiceIsTwoCertificates) {
  connessione_->Execute("UPDATE Anagrafica SET CodiceFiscale = 'RSSMRC71C08L781I'");
  std::vector<lettura::Certificato> uguali;
  leggiConti(*connessione_, kAnno, utilita_,
             [&](Conto conto) { uguali.push_back(std::move(conto.certificato)); });
  std::size_t causalePrima = 0;
  for (const lettura::Certificato& uno : uguali)
    causalePrima += uno.causale() == uguali[0].causale() ? 1U : 0U;
  ASSERT_GT(causalePrima, 1U);
  scrivi({uguali[0]});
  EXPECT_EQ(ora().scritte, 1U);
  scrivi({uguali[0]});
  EXPECT_EQ(ora().scritte, 1U);
  scrivi(uguali);
  EXPECT_EQ(ora().scritte, uguali.size());
}

}  // namespace
}  // namespace cu::riscontro::prova
