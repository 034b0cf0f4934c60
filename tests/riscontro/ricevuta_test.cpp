#include "riscontro/ricevuta.h"

#include <gtest/gtest.h>

#include "riscontro/riscontro_prova.h"

namespace cu::riscontro::prova {
namespace {

constexpr const char* kProtocollo = "18030612345678901";

Date giorno() { return *Date::fromYmd(2018, 3, 7); }

RigaRicevuta accettata(const std::string& percipiente, const std::string& causale = "A",
                       const std::string& progressivo = "000001",
                       const std::string& protocollo = kProtocollo) {
  return {2, percipiente, causale, protocollo, progressivo, "accettata", ""};
}
RigaRicevuta scartata(const std::string& percipiente, const std::string& causale = "A") {
  return {2, percipiente, causale, "", "", "scartata", "codice non registrato"};
}

class Ricevuta : public ::testing::Test {
 protected:
  // The code of the message of a receipt with that row alone.
  std::string codiceDi(const RigaRicevuta& riga) {
    return pianifica(con_.registro, 1, {riga}).righe.at(0).codice;
  }
  void applicata(const std::vector<RigaRicevuta>& righe) {
    const PianoRicevuta piano = pianifica(con_.registro, 1, righe);
    ASSERT_TRUE(piano.applicabile());
    applica(con_.registro, piano, giorno());
  }
  ConRegistro con_;
};

TEST_F(Ricevuta, GivesProtocolAndProgressive) {
  con_.registro.segnaInviato(con_.scrivi({certificato("P1", "A"), certificato("P2", "A")}), giorno());
  applicata({accettata("p1", "a", "7"), scartata("P2")});
  const auto dopo = con_.registro.certificate(1, 2017, false);
  EXPECT_EQ(con_.stati(), "accettata scartata");
  EXPECT_EQ(dopo[0].protocollo, kProtocollo);
  EXPECT_EQ(dopo[0].progressivo, "000007");
  EXPECT_EQ(dopo[1].protocollo, "");
  EXPECT_EQ(dopo[1].motivo, "codice non registrato");
}

TEST_F(Ricevuta, APlanChangesNothing) {
  con_.scrivi({certificato("P1", "A")});
  const PianoRicevuta piano = pianifica(con_.registro, 1, {accettata("P1")});
  EXPECT_TRUE(piano.applicabile());
  EXPECT_EQ(con_.stati(), "scritta");
}

TEST_F(Ricevuta, MarksAFileThatWasNotMarkedAsSent) {
  con_.scrivi({certificato("P1", "A"), certificato("P2", "A")});
  applicata({accettata("P1")});
  EXPECT_EQ(con_.stati(), "accettata inviata");
  EXPECT_EQ(con_.registro.cerca("impronta1")->dataInvio, "2018-03-07");
}

TEST_F(Ricevuta, BelongsToTheLatestSentCertificate) {
  con_.registro.segnaInviato(con_.scrivi({certificato("P1", "A")}), giorno());
  con_.registro.segnaInviato(con_.scrivi({certificato("P1", "A")}), giorno());
  con_.scrivi({certificato("P1", "A")});
  applicata({accettata("P1")});
  EXPECT_EQ(con_.stati(), "inviata accettata scritta");
}

TEST_F(Ricevuta, WithoutAReasonIsOfTheOnlyOne) {
  con_.scrivi({certificato("P1", "M"), certificato("P2", "A"), certificato("P2", "M")});
  EXPECT_EQ(codiceDi(accettata("P1", "")), "");
  EXPECT_EQ(codiceDi(accettata("P2", "")), "P09");
  EXPECT_FALSE(pianifica(con_.registro, 1, {accettata("P2", "")}).applicabile());
  EXPECT_EQ(codiceDi(accettata("P2", "M")), "");
}

TEST_F(Ricevuta, AnAcceptedReplacementEndsWhatItReplaces) {
  con_.scrivi({certificato("P1", "A")});
  applicata({accettata("P1")});
  con_.scrivi({certificato("P1", "A", "S")}, 3);
  applicata({accettata("P1", "A", "000002", "18040112345678902")});
  EXPECT_EQ(con_.stati(), "sostituita accettata");
}

TEST_F(Ricevuta, AnAcceptedAnnulmentEndsWhatItAnnuls) {
  con_.scrivi({certificato("P1", "A"), certificato("P1", "M")});
  applicata({accettata("P1"), accettata("P1", "M", "000002")});
  // Without a record H it has no reason of its own.
  lettura::Certificato annullamento = certificato("P1", "M", "A");
  annullamento.moduli.clear();
  annullamento.protocollo = kProtocollo;
  annullamento.progressivo = "000002";
  con_.scrivi({annullamento}, 2);
  EXPECT_EQ(con_.registro.certificate(1, 2017, false).back().certificato.causale(), "M");
  applicata({accettata("P1", "M", "000001", "18040112345678902")});
  EXPECT_EQ(con_.stati(), "accettata annullata accettata");
}

TEST_F(Ricevuta, ARejectedCorrectionLeavesTheAcceptance) {
  con_.scrivi({certificato("P1", "A")});
  applicata({accettata("P1")});
  con_.scrivi({certificato("P1", "A", "S")}, 3);
  applicata({scartata("P1")});
  EXPECT_EQ(con_.stati(), "accettata scartata");
}

TEST_F(Ricevuta, TheSameAnswerIsEqual) {
  con_.scrivi({certificato("P1", "A"), certificato("P2", "A")});
  const std::vector<RigaRicevuta> righe = {accettata("P1"), scartata("P2")};
  applicata(righe);
  const PianoRicevuta piano = pianifica(con_.registro, 1, righe);
  EXPECT_EQ(piano.quanti(EsitoRiga::Uguale), 2U);
  EXPECT_TRUE(piano.cambiate.empty());
}

TEST_F(Ricevuta, ARejectionReadAgainIsNotOfAnotherFileThatWasOnlyWritten) {
  con_.registro.segnaInviato(con_.scrivi({certificato("P1", "A")}), giorno());
  con_.scrivi({certificato("P1", "A")});
  applicata({scartata("P1")});
  EXPECT_EQ(con_.stati(), "scartata scritta");
  EXPECT_EQ(codiceDi(scartata("P1")), "R03");
  applicata({scartata("P1")});
  EXPECT_EQ(con_.stati(), "scartata scritta");
  // Another reason is another answer.
  RigaRicevuta altra = scartata("P1");
  altra.motivo = "altro";
  EXPECT_EQ(codiceDi(altra), "");
}

TEST_F(Ricevuta, ARowThatRepeatsAnotherOfItsTableSaysSo) {
  con_.scrivi({certificato("P1", "A")});
  const PianoRicevuta piano = pianifica(con_.registro, 1, {accettata("P1"), accettata("P1")});
  EXPECT_EQ(piano.righe[1].codice, "R03");
  EXPECT_EQ(piano.righe[1].testo, "ripete una riga precedente della tabella");
  applica(con_.registro, piano, giorno());
  EXPECT_EQ(pianifica(con_.registro, 1, {accettata("P1")}).righe[0].testo, "la risposta è già registrata");
}

// A row too many must not be taken for the answer to an older file that was never sent.
TEST_F(Ricevuta, ARowThatContradictsAnotherOfItsTableIsAnError) {
  con_.scrivi({certificato("P1", "A")});
  con_.registro.segnaInviato(con_.scrivi({certificato("P1", "A"), certificato("P2", "A")}), giorno());
  const PianoRicevuta piano = pianifica(con_.registro, 1, {accettata("P1"), scartata("P2"), scartata("P1")});
  EXPECT_FALSE(piano.applicabile());
  EXPECT_EQ(piano.righe.at(1).codice, "");
  EXPECT_EQ(piano.righe.at(2).codice, "R04");
  EXPECT_EQ(
      piano.righe.at(2).testo,
      "la riga 2 dice il contrario della stessa certificazione: accettata; se le righe rispondono a due "
      "file, prima si segnano tutti e due come inviati");
  EXPECT_TRUE(piano.daSegnare.empty());
}

TEST_F(Ricevuta, OneProtocolAndProgressiveHaveOneAnswer) {
  con_.registro.segnaInviato(con_.scrivi({certificato("P1", "A")}), giorno());
  con_.registro.segnaInviato(con_.scrivi({certificato("P1", "A")}), giorno());
  RigaRicevuta scarto = accettata("P1");
  scarto.esito = "scartata";
  const PianoRicevuta piano = pianifica(con_.registro, 1, {accettata("P1"), scarto});
  EXPECT_EQ(piano.righe.at(1).codice, "R04");
  EXPECT_EQ(piano.righe.at(1).testo, "la riga 2 dice il contrario della stessa certificazione: accettata");
}

// Two files that were both sent may have different answers.
TEST_F(Ricevuta, DifferentAnswersToTwoFilesThatWereSentAreNone) {
  con_.registro.segnaInviato(con_.scrivi({certificato("P1", "A")}), giorno());
  con_.registro.segnaInviato(con_.scrivi({certificato("P1", "A")}), giorno());
  applicata({accettata("P1"), scartata("P1")});
  EXPECT_EQ(con_.stati(), "scartata accettata");
}

TEST_F(Ricevuta, ProtocolAndProgressiveBelongToOneCertificate) {
  con_.scrivi({certificato("P1", "A"), certificato("P2", "A"), certificato("P3", "A")});
  const PianoRicevuta piano = pianifica(con_.registro, 1, {accettata("P1"), accettata("P2", "A", "1")});
  EXPECT_FALSE(piano.applicabile());
  EXPECT_EQ(piano.righe[0].codice, "");
  EXPECT_EQ(piano.righe[1].codice, "P10");
  EXPECT_EQ(piano.righe[1].colonna, "Progressivo");
  EXPECT_EQ(piano.righe[1].testo, "protocollo e progressivo sono già quelli di P1, causale A");
  applicata({accettata("P1"), accettata("P2", "A", "000002")});
  EXPECT_EQ(codiceDi(accettata("P3", "A", "000002")), "P10") << "one on record";
  EXPECT_EQ(codiceDi(accettata("P3", "A", "000002", "18040112345678902")), "");
  EXPECT_EQ(codiceDi(scartata("P3")), "");
}

TEST_F(Ricevuta, NamesWhatIsWrong) {
  con_.scrivi({certificato("P1", "A")});
  EXPECT_EQ(codiceDi(accettata("", "A")), "P12");
  EXPECT_EQ(codiceDi(accettata("P9", "A")), "P12");
  EXPECT_EQ(codiceDi(accettata("P1", "M")), "P12");
  EXPECT_EQ(codiceDi(accettata("P1", "A", "000001", "1803061234567890")), "V09");
  EXPECT_EQ(codiceDi(accettata("P1", "A", "000001", "1,80306E+16")), "V09");
  EXPECT_EQ(codiceDi(accettata("P1", "A", "")), "V09");
  EXPECT_EQ(codiceDi(accettata("P1", "A", "0000001")), "V09");
  RigaRicevuta forse = accettata("P1");
  forse.esito = "forse";
  EXPECT_EQ(codiceDi(forse), "V05");
  applicata({accettata("P1")});
  EXPECT_EQ(codiceDi(accettata("P1", "A", "000009")), "P12");
  EXPECT_EQ(con_.stati(), "accettata");
}

}  // namespace
}  // namespace cu::riscontro::prova
