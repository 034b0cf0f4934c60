#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "wizard/creazione_prova.h"

namespace cu::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* kFirmaFutura =
    "Attenzione! La data della firma non deve essere superiore alla\r\n"
    "data odierna, altrimenti il file generato potrebbe essere scartato.\r\n"
    "Si vuole continuare ugualmente?";
constexpr const char* kImpegnoFuturo =
    "Attenzione! La data dell'impegno non deve essere superiore alla\r\n"
    "data odierna, altrimenti il file generato potrebbe essere scartato.\r\n"
    "Si vuole continuare ugualmente?";
constexpr const char* kImpegnoPassato =
    "Attenzione! La data dell'impegno deve appartenere all'anno in\r\n"
    "corso, altrimenti il file generato potrebbe essere scartato.\r\n"
    "Si vuole continuare ugualmente?";
class DateWarnings : public FileRun {};

TEST_F(DateWarnings, ASignatureOfTodayOrOfAnEarlierYearPassesWithoutAWord) {
  vaiAllaFine();
  for (const char* giorno : {"05/03/2017", "31/12/2012"}) {
    form().dtDataFirma.enter(giorno);
    avviaRun();
    EXPECT_THAT(frontEnd.boxes, testing::Each(testing::Field(&MessageBox::buttons, BoxButtons::Ok)));
    EXPECT_TRUE(riuscito());
    premi(form().cmdNav[3]);
    premi(form().cmdNav[3]);
  }
}

TEST_F(DateWarnings, ASignatureLaterThanTodayWarns) {
  vaiAllaFine();
  form().dtDataFirma.enter("06/03/2017");
  frontEnd.answers = {Answer::Ok};
  avviaRun();
  ASSERT_THAT(avvisi(), ElementsAre(kFirmaFutura));
  EXPECT_EQ(frontEnd.boxes[0].title, "Quadrivio");
  EXPECT_EQ(frontEnd.boxes[0].icon, BoxIcon::Question);
  EXPECT_EQ(frontEnd.boxes[0].byDefault, Answer::Cancel);
  EXPECT_TRUE(riuscito());
  EXPECT_THAT(factory.logs[0].rows, IsEmpty());
}

TEST_F(DateWarnings, CancellingAtTheSignatureGoesBackToItAndMakesNoFile) {
  certificati(1);
  vaiAllaFine();
  intermediario("NTRMDR70A01H501U", "01/02/2017");
  form().dtDataFirma.enter("06/03/2017");
  frontEnd.answers = {Answer::Cancel};
  avviaRun();
  EXPECT_EQ(passo(), 2);
  EXPECT_EQ(form().focus(), &form().dtDataFirma);
  EXPECT_THAT(files.files, IsEmpty());
  EXPECT_TRUE(factory.logs[0].released);
  EXPECT_EQ(globali().gAnno, 0);
  // Stored data is kept.
  EXPECT_THAT(istruzioni(), ElementsAre(StartsWith("UPDATE ContoIndividuale SET"), StartsWith("EXEC('MERGE"),
                                        StartsWith("INSERT INTO ConfigurazioneElencoCliFor")));
}

TEST_F(DateWarnings, ACommitmentLaterThanTodayGetsTheFirstWarningOnly) {
  vaiAllaFine();
  intermediario("NTRMDR70A01H501U", "06/03/2017");
  frontEnd.answers = {Answer::Ok};
  avviaRun();
  EXPECT_THAT(avvisi(), ElementsAre(kImpegnoFuturo));
  EXPECT_TRUE(riuscito());
}

TEST_F(DateWarnings, ACommitmentOfAFutureYearGetsTheFirstWarningOnly) {
  vaiAllaFine();
  intermediario("NTRMDR70A01H501U", "01/01/2018");
  frontEnd.answers = {Answer::Ok};
  avviaRun();
  EXPECT_THAT(avvisi(), ElementsAre(kImpegnoFuturo));
}

TEST_F(DateWarnings, ACommitmentOfTheFirstOfJanuaryPassesAndTheDayBeforeWarns) {
  vaiAllaFine();
  intermediario("NTRMDR70A01H501U", "01/01/2017");
  avviaRun();
  EXPECT_THAT(avvisi(), IsEmpty());
  ASSERT_TRUE(riuscito());
  premi(form().cmdNav[3]);
  premi(form().cmdNav[3]);
  form().dtDataImpegno.enter("31/12/2016");
  frontEnd.answers = {Answer::Ok};
  avviaRun();
  EXPECT_THAT(avvisi(), ElementsAre(kImpegnoPassato));
  EXPECT_TRUE(riuscito());
}

TEST_F(DateWarnings, ACommitmentOfTodayPasses) {
  vaiAllaFine();
  intermediario("NTRMDR70A01H501U", "05/03/2017");
  avviaRun();
  EXPECT_THAT(avvisi(), IsEmpty());
}

TEST_F(DateWarnings, CancellingAtTheCommitmentGoesBackToIt) {
  for (const char* giorno : {"06/03/2017", "31/12/2016"}) {
    vaiAllaFine();
    intermediario("NTRMDR70A01H501U", giorno);
    frontEnd.answers = {Answer::Cancel};
    avviaRun();
    EXPECT_EQ(passo(), 2);
    EXPECT_EQ(form().focus(), &form().dtDataImpegno);
    EXPECT_EQ(globali().gAnno, 0);
  }
}

TEST_F(DateWarnings, BothDatesCanWarnTheSignatureFirst) {
  vaiAllaFine();
  intermediario("NTRMDR70A01H501U", "31/12/2016");
  form().dtDataFirma.enter("06/03/2017");
  frontEnd.answers = {Answer::Ok, Answer::Ok};
  avviaRun();
  EXPECT_THAT(avvisi(), ElementsAre(kFirmaFutura, kImpegnoPassato));
  EXPECT_TRUE(riuscito());
}

TEST_F(DateWarnings, ACommitmentIsNotLookedAtWhileTheBoxIsUnchecked) {
  vaiAllaFine();
  intermediario("NTRMDR70A01H501U", "06/03/2017");
  premi(form().chkIntermediari);
  avviaRun();
  EXPECT_THAT(avvisi(), IsEmpty());
  EXPECT_TRUE(riuscito());
}

// Of non-residents boxes remain blank in the published form of 2024.
class BlankBoxes : public FileRun {
 protected:
  BlankBoxes() : FileRun(modello::kModelloPubblicato) {
    std::vector<Contenuti> riga = certificati2016(1);
    riga[0]["Anno"] = whole(2024);
    riga[0]["NonResidente"] = whole(1);
    for (FakeConnection* const connessione : {&database.internal, &database.own}) {
      connessione->answerContaining("ORDER BY Anag.Anagrafica", rispostaPrincipale(riga));
      connessione->answerContaining("FROM ModuloXContoIndividuale", rispostaModuli({}));
    }
    database.own.answerContaining("AS CodFisc", azienda());
    database.own.answerContaining("SELECT DISTINCT Anag.Sesso", percipiente());
    inTabella({workRow(1, 1), workRow(2, 1)});
    vaiAllaFine();
  }
  const std::string atteso =
      "Attenzione! Per i percipienti non residenti il contenuto delle caselle 42 e 44\r\n"
      "non è attestato nel modello dell'anno: restano vuote. I percipienti sono:\r\n"
      "Rossi (RSSMRA70A01H501U).\r\n"
      "Si vuole continuare ugualmente?";
};

TEST_F(BlankBoxes, AreWarnedOfBeforeTheFile) {
  frontEnd.answers = {Answer::Cancel};
  avviaRun();
  EXPECT_THAT(avvisi(), ElementsAre(atteso));
  EXPECT_THAT(files.files, IsEmpty());
  EXPECT_EQ(passo(), 2);
}

TEST_F(BlankBoxes, AreLeftBlankWhereTheUserGoesOn) {
  const auto fatti = form().outlook();
  ASSERT_FALSE(fatti.empty());
  EXPECT_EQ(
      fatti.back().text,
      "1 percipiente non residente ha caselle il cui contenuto non è attestato: Avvia chiede conferma e le "
      "lascia vuote.");
  EXPECT_TRUE(fatti.back().attention);
  frontEnd.answers = {Answer::Ok};
  avviaRun();
  EXPECT_THAT(avvisi(), ElementsAre(atteso));
  EXPECT_EQ(files.files.size(), 1U);
  EXPECT_TRUE(riuscito());
}

}  // namespace
}  // namespace cu::test
