#include "riscontro/stato.h"

#include <gtest/gtest.h>

#include "riscontro/ricevuta.h"
#include "riscontro/riscontro_prova.h"
#include "suite/utilita.h"
#include "support/scripted_front_end.h"

namespace cu::riscontro::prova {
namespace {

constexpr Esercizio kEsercizio{1, 2017};
constexpr const char* kProtocolloStato = "18030612345678901";

// The demonstration company, whose certificates of a year were filed as its accounts give them.
class Stati : public ::testing::Test {
 protected:
  Stati()
      : connessione_(SqliteConnection::create(":memory:")),
        registro_(*connessione_),
        utilita_(schermo_, "/tmp") {
    creaArchivio(*connessione_, ContenutoArchivio::Dimostrativo);
    leggiConti(*connessione_, kEsercizio, utilita_,
               [this](Conto conto) { conti_.push_back(std::move(conto)); });
  }
  std::int64_t scrivi(std::vector<lettura::Certificato> certificati) {
    Invio invio;
    invio.idAzienda = 1;
    invio.anno = 2017;
    invio.impronta = std::to_string(++scritti_);
    invio.momento = "2018-03-05 10:30:00";
    return registro_.registra(invio, certificati);
  }
  void invia(std::int64_t invio) { registro_.segnaInviato(invio, *Date::fromYmd(2018, 3, 6)); }
  void rispondi(const lettura::Certificato& c, const std::string& esito, const std::string& progressivo) {
    const bool si = esito == "accettata";
    const PianoRicevuta piano = pianifica(registro_, 1,
                                          {{2, c.percipiente, conto(0).causale(), si ? kProtocolloStato : "",
                                            si ? progressivo : "", esito, "no"}});
    ASSERT_TRUE(piano.applicabile());
    applica(registro_, piano, *Date::fromYmd(2018, 3, 7));
  }
  const lettura::Certificato& conto(std::size_t i) const { return conti_.at(i).certificato; }
  void cambia() { connessione_->Execute("UPDATE ContoIndividuale SET RitenutaAcconto = 1" + dove()); }
  void togli() { connessione_->Execute("DELETE FROM ContoIndividuale" + dove()); }
  std::string dove() const {
    return " WHERE Anno = 2017 AND IDAnagrafica = " + std::to_string(conti_[0].idAnagrafica) +
           " AND IDCausalePagamento = " + std::to_string(conti_[0].idCausale);
  }
  lettura::Certificato correzione(const char* operazione) const {
    lettura::Certificato c = conto(0);
    c.operazione = operazione;
    c.protocollo = kProtocolloStato;
    c.progressivo = "000001";
    if (std::string(operazione) == "A") c.moduli.clear();
    return c;
  }
  // State and operation of the first certificate; "" where it is not listed.
  std::string primo() {
    std::string trovato;
    for (const VoceStato& voce : statoEsercizio(registro_, kEsercizio, utilita_)) {
      if (voce.percipiente != conto(0).percipiente || voce.causale != conto(0).causale()) continue;
      EXPECT_EQ(trovato, "") << "listed twice";
      trovato = voce.stato + " " + std::string(nome(voce.operazione));
    }
    return trovato;
  }

  // The reason that is shown for it.
  std::string motivo() {
    for (const VoceStato& voce : statoEsercizio(registro_, kEsercizio, utilita_)) {
      if (voce.percipiente == conto(0).percipiente && voce.causale == conto(0).causale()) return voce.motivo;
    }
    return "not listed";
  }

  std::unique_ptr<Connection> connessione_;
  Registro registro_;
  test::ScriptedFrontEnd schermo_;
  UtilitaItaliana utilita_;
  std::vector<Conto> conti_;
  int scritti_ = 0;
};

TEST_F(Stati, OfAnOrdinaryCertificate) {
  EXPECT_EQ(primo(), " nuova");
  const std::int64_t invio = scrivi({conto(0)});
  EXPECT_EQ(primo(), "scritta nuova");
  invia(invio);
  EXPECT_EQ(primo(), "inviata attesa");
  scrivi({conto(0)});
  EXPECT_EQ(primo(), "inviata attesa");
  rispondi(conto(0), "accettata", "000001");
  EXPECT_EQ(primo(), "accettata nessuna");
  scrivi({conto(0)});
  EXPECT_EQ(primo(), "accettata nessuna");
}

TEST_F(Stati, OfARejectedOne) {
  invia(scrivi({conto(0)}));
  rispondi(conto(0), "scartata", "");
  EXPECT_EQ(primo(), "scartata nuova");
  scrivi({conto(0)});
  EXPECT_EQ(primo(), "scritta nuova");
}

TEST_F(Stati, KeepTheReasonOfARejectionUntilSomethingIsAccepted) {
  invia(scrivi({conto(0)}));
  EXPECT_EQ(motivo(), "");
  rispondi(conto(0), "scartata", "");
  EXPECT_EQ(motivo(), "no");
  const std::int64_t invio = scrivi({conto(0)});
  EXPECT_EQ(motivo(), "no") << "written anew";
  invia(invio);
  EXPECT_EQ(primo(), "inviata attesa");
  EXPECT_EQ(motivo(), "no") << "sent anew";
  rispondi(conto(0), "accettata", "000001");
  EXPECT_EQ(motivo(), "");
  cambia();
  invia(scrivi({correzione("S")}));
  rispondi(conto(0), "scartata", "");
  scrivi({correzione("S")});
  EXPECT_EQ(primo(), "scritta attesa");
  EXPECT_EQ(motivo(), "no") << "of the replacement";
}

TEST_F(Stati, AreReadWithACountOfTheAccounts) {
  std::vector<std::size_t> letti;
  static_cast<void>(
      statoEsercizio(registro_, kEsercizio, utilita_, [&](std::size_t conti) { letti.push_back(conti); }));
  ASSERT_EQ(letti.size(), conti_.size());
  EXPECT_EQ(letti.back(), conti_.size());
}

TEST_F(Stati, OfOneThatChangesAfterwards) {
  invia(scrivi({conto(0)}));
  rispondi(conto(0), "accettata", "000001");
  cambia();
  EXPECT_EQ(primo(), "accettata sostituzione");
  const std::int64_t invio = scrivi({correzione("S")});
  EXPECT_EQ(primo(), "scritta attesa");
  scrivi({conto(0)});
  EXPECT_EQ(primo(), "scritta attesa");
  invia(invio);
  EXPECT_EQ(primo(), "inviata attesa");
  rispondi(conto(0), "scartata", "");
  EXPECT_EQ(primo(), "scartata sostituzione");
}

TEST_F(Stati, OfOneThatIsGone) {
  invia(scrivi({conto(0)}));
  rispondi(conto(0), "accettata", "000001");
  togli();
  EXPECT_EQ(primo(), "accettata annullamento");
  invia(scrivi({correzione("A")}));
  EXPECT_EQ(primo(), "inviata attesa");
  rispondi(conto(0), "accettata", "000002");
  EXPECT_EQ(primo(), "");
}

TEST_F(Stati, OfOneThatComesBackWhileItsAnnulmentIsPending) {
  invia(scrivi({conto(0)}));
  rispondi(conto(0), "accettata", "000001");
  invia(scrivi({correzione("A")}));
  EXPECT_EQ(primo(), "inviata attesa");
  rispondi(conto(0), "accettata", "000002");
  EXPECT_EQ(primo(), "accettata nuova");
}

TEST_F(Stati, OfAnAnnulmentOfNothingKnownSayNothing) {
  scrivi({correzione("A")});
  EXPECT_EQ(primo(), " nuova");
}

TEST_F(Stati, OfAWrittenCorrectionOfAnotherAcceptanceSaysNothing) {
  invia(scrivi({conto(0)}));
  rispondi(conto(0), "accettata", "000001");
  cambia();
  lettura::Certificato altra = correzione("S");
  altra.progressivo = "000099";
  scrivi({altra});
  EXPECT_EQ(primo(), "accettata sostituzione");
}

TEST_F(Stati, OfTwoWithOneKeyKeepToWhatAgrees) {
  lettura::Certificato altro = conto(0);
  altro.moduli[0].celle.back().testo = "9,99";
  invia(scrivi({altro, conto(0)}));
  const auto tutte = registro_.certificate(1, 2017, false);
  for (std::size_t i = 0; i < 2; ++i) {
    Registrata r = tutte[i];
    r.stato = Stato::Accettata;
    r.protocollo = kProtocolloStato;
    r.progressivo = "00000" + std::to_string(i + 1);
    registro_.aggiorna(r, *Date::fromYmd(2018, 3, 7));
  }
  std::vector<std::string> operazioni;
  for (const VoceStato& voce : statoEsercizio(registro_, kEsercizio, utilita_)) {
    if (voce.percipiente == conto(0).percipiente && voce.causale == conto(0).causale()) {
      operazioni.push_back(std::string(nome(voce.operazione)) + " " + voce.accettata->progressivo);
    }
  }
  EXPECT_EQ(operazioni, (std::vector<std::string>{"nessuna 000002", "annullamento 000001"}));
}

TEST(Operazione, HasItsWord) {
  EXPECT_EQ(nome(Operazione::Nuova), "nuova");
  EXPECT_EQ(nome(Operazione::Sostituzione), "sostituzione");
  EXPECT_EQ(nome(Operazione::Annullamento), "annullamento");
  EXPECT_EQ(nome(Operazione::Nessuna), "nessuna");
  EXPECT_EQ(nome(Operazione::Attesa), "attesa");
}

}  // namespace
}  // namespace cu::riscontro::prova
