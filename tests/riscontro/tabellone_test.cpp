#include "riscontro/tabellone.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "riscontro/ricevuta.h"
#include "riscontro/riscontro_prova.h"
#include "riscontro/stato.h"
#include "suite/utilita.h"
#include "support/scripted_front_end.h"

namespace cu::riscontro::prova {
namespace {

// The demonstration company, whose certificates go to the authority step by step.
class Tabellone : public ::testing::Test {
 protected:
  Tabellone()
      : connessione_(SqliteConnection::create(":memory:")),
        registro_(*connessione_),
        utilita_(schermo_, "/tmp") {
    creaArchivio(*connessione_, ContenutoArchivio::Dimostrativo);
    leggiConti(*connessione_, {1, 2017}, utilita_, [this](Conto conto) {
      persone_.push_back(conto.idAnagrafica);
      conti_.push_back(std::move(conto.certificato));
    });
  }
  std::int64_t scrivi(const std::vector<lettura::Certificato>& certificati) {
    Invio invio;
    invio.idAzienda = 1;
    invio.anno = 2017;
    invio.impronta = "impronta";
    invio.momento = "2018-03-05 10:30:00";
    return registro_.registra(invio, certificati);
  }
  void rispondi(const lettura::Certificato& c, bool accettata) {
    const PianoRicevuta piano =
        pianifica(registro_, 1,
                  {{2, c.percipiente, c.causale(), accettata ? "18030612345678901" : "",
                    accettata ? "000001" : "", accettata ? "accettata" : "scartata", "no"}});
    ASSERT_TRUE(piano.applicabile());
    applica(registro_, piano, *Date::fromYmd(2018, 3, 7));
  }
  RigaTabellone riga() { return rigaTabellone(registro_, {1, 2017}, utilita_); }
  // "lines written sent accepted rejected, to send, corrections"
  std::string numeri() {
    const RigaTabellone r = riga();
    std::string testo;
    for (const std::size_t uno :
         {r.conti, r.scritte, r.inviate, r.accettate, r.scartate, r.nuove(), r.correzioni}) {
      testo += (testo.empty() ? "" : " ") + std::to_string(uno);
    }
    return testo;
  }

  test::ScriptedFrontEnd schermo_;
  std::unique_ptr<Connection> connessione_;
  Registro registro_;
  UtilitaItaliana utilita_;
  std::vector<lettura::Certificato> conti_;
  std::vector<std::int64_t> persone_;
};

TEST_F(Tabellone, FollowsAYearFromTheAccountsToTheAnswers) {
  const std::string tutti = std::to_string(conti_.size());
  EXPECT_EQ(numeri(), tutti + " 0 0 0 0 " + tutti + " 0");
  const std::int64_t invio = scrivi({conti_[0], conti_[1], conti_[2]});
  EXPECT_EQ(numeri(), tutti + " 3 0 0 0 " + tutti + " 0");
  registro_.segnaInviato(invio, *Date::fromYmd(2018, 3, 6));
  const std::string restanti = std::to_string(conti_.size() - 3);
  EXPECT_EQ(numeri(), tutti + " 3 3 0 0 " + restanti + " 0");
  rispondi(conti_[0], true);
  rispondi(conti_[1], false);
  EXPECT_EQ(numeri(), tutti + " 3 3 1 1 " + std::to_string(conti_.size() - 2) + " 0");
  // The one that was rejected is written anew: what is left to do is to send it.
  const std::int64_t nuovo = scrivi({conti_[1]});
  EXPECT_EQ(numeri(), tutti + " 3 2 1 0 " + std::to_string(conti_.size() - 2) + " 0");
  // It is sent anew; the one that was accepted changes.
  registro_.segnaInviato(nuovo, *Date::fromYmd(2018, 3, 8));
  connessione_->Execute(
      "UPDATE ContoIndividuale SET RitenutaAcconto = RitenutaAcconto + 1 WHERE Anno = 2017");
  EXPECT_EQ(numeri(), tutti + " 3 3 1 0 " + restanti + " 1");
}

TEST_F(Tabellone, SaysOfWhichReasonsCertificatesAreToBeSent) {
  std::map<std::string, std::size_t> attese;
  for (const lettura::Certificato& uno : conti_) ++attese[uno.causale()];
  EXPECT_EQ(riga().daInviare, attese);
  --attese[conti_[0].causale()];
  registro_.segnaInviato(scrivi({conti_[0]}), *Date::fromYmd(2018, 3, 6));
  std::map<std::string, std::size_t> restanti = riga().daInviare;
  restanti.emplace(conti_[0].causale(), 0);
  EXPECT_EQ(restanti, attese);
}

TEST_F(Tabellone, CountsTheDataThatAreMissingInTheAccountsOfTheYear) {
  EXPECT_EQ(riga().mancanti, 0U);
  for (const std::int64_t id : persone_) {
    connessione_->Execute("UPDATE Anagrafica SET Sesso = NULL WHERE IDAnagrafica = " + std::to_string(id));
  }
  const std::size_t persone = riga().mancanti;
  EXPECT_GT(persone, 0U);
  EXPECT_LE(persone, conti_.size());
  // A payee without accounts of that year is not asked for.
  connessione_->Execute("UPDATE Anagrafica SET Sesso = NULL");
  EXPECT_EQ(riga().mancanti, persone);
  // What the company itself lacks is missing too.
  connessione_->Execute("UPDATE ConfigurazioneGenerale SET IDCodiceCaricaRappresentante = NULL");
  EXPECT_EQ(riga().mancanti, persone + 1);
}

TEST_F(Tabellone, MissesWhatTheFormOfTheYearDoesNotHave) {
  const auto inAnno = [this](int anno) {
    for (const char* tabella : {"ContoIndividuale", "ContoIndividualeDatiAggiuntivi", "PeriodoIva"}) {
      connessione_->Execute(std::string("UPDATE ") + tabella + " SET Anno = " + std::to_string(anno) +
                            " WHERE Anno >= 2017");
    }
  };
  const auto mancanti = [this](int anno, const modello::Modello& modello) {
    return rigaTabellone(registro_, {1, anno}, utilita_, {}, modello).mancanti;
  };
  connessione_->Execute("DELETE FROM PeriodoIva WHERE Anno > 2017");
  // Nothing is known of the form of 2026: that is one line for all.
  inAnno(2026);
  EXPECT_EQ(mancanti(2026, modello::kModello), 0U);
  EXPECT_EQ(mancanti(2026, modello::kModelloPubblicato), 1U);
  // A sum not subject has no code.
  inAnno(2021);
  connessione_->Execute("DELETE FROM ModuloXContoIndividuale");
  connessione_->Execute("DELETE FROM ContoIndividualeDatiAggiuntivi");
  connessione_->Execute("UPDATE ContoIndividuale SET SommeNonSoggette = 0, QuotaProvvigioniNonSoggette = 0");
  const std::size_t prima = mancanti(2021, modello::kModelloPubblicato);
  connessione_->Execute(
      "UPDATE ContoIndividuale SET SommeNonSoggette = 10 WHERE Anno = 2021 AND IDCausalePagamento = "
      "(SELECT IDCausalePagamento FROM CausalePagamento WHERE Codice = 'A')");
  const auto professionisti = static_cast<std::size_t>(
      std::count_if(conti_.begin(), conti_.end(), [](const auto& conto) { return conto.causale() == "A"; }));
  ASSERT_GT(professionisti, 0U);
  EXPECT_EQ(mancanti(2021, modello::kModelloPubblicato), prima + professionisti);
  EXPECT_EQ(mancanti(2021, modello::kModello), 0U);
}

TEST_F(Tabellone, HasTheYearsOfTheAccountsAndOfTheRecord) {
  const auto anni = [this] {
    std::vector<std::int32_t> trovati;
    for (const AnnoAzienda& uno : anniTabellone(registro_, 0)) trovati.push_back(uno.anno);
    return trovati;
  };
  EXPECT_EQ(anni(), (std::vector<std::int32_t>{2017, 2016, 2015, 2014}));
  scrivi({conti_[0]});
  connessione_->Execute("UPDATE CuInvio SET Anno = 2019");
  EXPECT_EQ(anni(), (std::vector<std::int32_t>{2019, 2017, 2016, 2015, 2014}));
  EXPECT_TRUE(anniTabellone(registro_, 2).empty());
  const RigaTabellone vuota = rigaTabellone(registro_, {1, 2019}, utilita_);
  EXPECT_EQ(vuota.conti, 0U);
}

TEST(TabelloneSenzaRegistro, HasNothingWritten) {
  const auto connessione = SqliteConnection::create(":memory:");
  creaArchivio(*connessione, ContenutoArchivio::Dimostrativo);
  for (const char* tabella : {"CuInvio", "CuCertificazione", "CuModulo"}) {
    connessione->Execute(std::string("DROP TABLE ") + tabella);
  }
  Registro registro(*connessione);
  test::ScriptedFrontEnd schermo;
  const UtilitaItaliana utilita(schermo, "/tmp");
  EXPECT_EQ(anniTabellone(registro, 1).size(), 4U);
  std::size_t letti = 0;
  const RigaTabellone riga = rigaTabellone(registro, {1, 2017}, utilita, [&] { ++letti; });
  EXPECT_GT(riga.conti, 0U);
  EXPECT_EQ(letti, riga.conti);
  EXPECT_EQ(riga.nuove(), riga.conti);
  EXPECT_EQ(riga.scritte, 0U);
}

}  // namespace
}  // namespace cu::riscontro::prova
