#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "support/cur_reader.h"
#include "wizard/creazione_prova.h"

namespace cu::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

TEST_F(FileRun, StoresThenChecksThenWritesThenLoadsAnew) {
  certificati(1);
  vaiAllaFine();
  intermediario("NTRMDR70A01H501U", "01/02/2017");
  avviaRun();
  ASSERT_TRUE(riuscito());
  const std::vector<std::size_t> posti = {posto("UPDATE ContoIndividuale SET"),
                                          posto("EXEC('MERGE INTO"),
                                          posto("SELECT * FROM ConfigurazioneElencoCliFor"),
                                          posto("INSERT INTO ConfigurazioneElencoCliFor"),
                                          posto("AS CodFisc"),
                                          posto("SELECT DISTINCT Anag.Sesso"),
                                          posto("ORDER BY Anag.Anagrafica"),
                                          posto("drop table"),
                                          posto("CREATE TABLE"),
                                          posto("INSERT INTO tmpprequadrivio12")};
  EXPECT_TRUE(std::is_sorted(posti.begin(), posti.end()));
}

TEST_F(FileRun, TellsWhatItIsDoing) {
  certificati(1);
  vaiAllaFine();
  frontEnd.works.clear();
  avviaRun();
  EXPECT_THAT(frontEnd.works,
              ElementsAre("Memorizzazione delle modifiche nei conti", "Controllo dei dati",
                          "Creazione del file telematico", "Stampa dei moduli", "Caricamento dei compensi"));
}

TEST_F(FileRun, WithoutAnIntermediaryItsTableIsNotTouched) {
  vaiAllaFine();
  form().txtCodiceFiscale.setText("NTRMDR70A01H501U");
  avviaRun();
  for (const std::string& testo : database.internal.texts()) {
    EXPECT_EQ(testo.find("ConfigurazioneElencoCliFor"), std::string::npos);
  }
}

TEST_F(FileRun, TheLogIsTheUsersAndHasItsColumns) {
  vaiAllaFine();
  avviaRun();
  ASSERT_THAT(factory.logs, SizeIs(1));
  const NotedLog& registro = factory.logs[0];
  EXPECT_EQ(registro.user, 12);
  EXPECT_THAT(registro.name, testing::MatchesRegex("LogGrid_[0-9]+"));
  EXPECT_THAT(
      registro.columns,
      ElementsAre(NotedLog::Column{"Campo", 1, 35}, NotedLog::Column{"Sezione", 1, 20},
                  NotedLog::Column{"Denominazione", 1, 35}, NotedLog::Column{"Codice fiscale", 1, 30}));
  EXPECT_THAT(registro.rows, IsEmpty());
  EXPECT_THAT(registro.shown, IsEmpty());
  EXPECT_TRUE(registro.released);
}

TEST_F(FileRun, MissingDataShowTheLogAndEndTheRun) {
  certificati(1);
  vaiAllaFine();
  form().dtDataFirma.enter("");
  avviaRun();
  EXPECT_EQ(passo(), 2);
  ASSERT_THAT(factory.logs, SizeIs(1));
  EXPECT_THAT(factory.logs[0].shown, ElementsAre(0));
  EXPECT_THAT(factory.logs[0].column("Message"), ElementsAre("Data della firma non presente"));
  EXPECT_TRUE(factory.logs[0].released);
  EXPECT_THAT(frontEnd.boxes, IsEmpty());
  EXPECT_THAT(files.files, IsEmpty());
  EXPECT_EQ(globali().gAnno, 0);
}

TEST_F(FileRun, MissingDataLeaveCorrectionsAndIntermediaryStored) {
  vaiAllaFine();
  intermediario("", "");
  form().dtDataFirma.enter("");
  avviaRun();
  EXPECT_THAT(istruzioni(), ElementsAre(StartsWith("UPDATE ContoIndividuale SET"), StartsWith("EXEC('MERGE"),
                                        StartsWith("INSERT INTO ConfigurazioneElencoCliFor")));
  EXPECT_THAT(factory.logs[0].column("Message"),
              ElementsAre("Data della firma non presente", "Codice fiscale intermediario non presente",
                          "Data dell'impegno non presente"));
}

TEST_F(FileRun, WhatIsNoDateIsMissing) {
  certificati(1);
  for (const char* testo : {"31/02/2026", "28.02.17", "  "}) {
    vaiAllaFine();
    form().dtDataFirma.enter(testo);
    avviaRun();
    EXPECT_THAT(factory.logs.back().column("Message"), ElementsAre("Data della firma non presente")) << testo;
    EXPECT_EQ(form().dtDataFirma.text(), testo);
    EXPECT_THAT(frontEnd.missed, ElementsAre("dtDataFirma")) << testo;
    EXPECT_THAT(files.files, IsEmpty());
    frontEnd.missed.clear();
  }
  vaiAllaFine();
  intermediario("NTRMDR70A01H501U", "31/02/2017");
  form().dtDataFirma.enter("05/03/2017");
  avviaRun();
  EXPECT_THAT(factory.logs.back().column("Message"), ElementsAre("Data dell'impegno non presente"));
  EXPECT_THAT(frontEnd.missed, ElementsAre("dtDataImpegno"));
  EXPECT_THAT(frontEnd.boxes, IsEmpty());
}

TEST_F(FileRun, BlanksBesideADateDoNotCount) {
  certificati(2);
  vaiAllaFine();
  intermediario("NTRMDR70A01H501U", " 01/02/2017");
  form().dtDataFirma.enter("28/02/2017 ");
  avviaRun();
  ASSERT_TRUE(riuscito());
  const CurFile file(files.files.at(kFile));
  EXPECT_THAT(file.line('B').text(), HasSubstr("01022017"));
  EXPECT_THAT(file.line('D', 2).text(), HasSubstr("28022017"));
  EXPECT_THAT(istruzioni(),
              testing::Contains(testing::AllOf(StartsWith("INSERT INTO ConfigurazioneElencoCliFor"),
                                               HasSubstr("'20170201'"))));
  EXPECT_THAT(database.internal.texts(),
              testing::Contains(
                  testing::AllOf(StartsWith("INSERT INTO TabellaRicorsione2"), HasSubstr("'28/02/2017'"))));
}

TEST_F(FileRun, ASecondPressStartsAgainWithAnEmptyLog) {
  vaiAllaFine();
  form().dtDataFirma.enter("");
  avviaRun();
  form().dtDataFirma.enter("05/03/2017");
  avviaRun();
  ASSERT_THAT(factory.logs, SizeIs(2));
  EXPECT_THAT(factory.logs[1].rows, IsEmpty());
  EXPECT_TRUE(riuscito());
}

TEST_F(FileRun, ChecksLookAtTheScreenTheCompanyAndTheWorkTable) {
  vaiAllaFine();
  avviaRun();
  EXPECT_THAT(database.internal.texts().at(posto("AS CodFisc")),
              testing::EndsWith(" WHERE Azienda.IDAzienda = 1"));
  EXPECT_THAT(database.internal.texts().at(posto("SELECT DISTINCT Anag.Sesso")),
              HasSubstr(" FROM tmpprequadrivio12 INNER JOIN "));
}

TEST_F(FileRun, TheFileIsNamedAfterTheCompanyAndTheYearInTheChosenFolder) {
  certificati(1);
  vaiAllaFine();
  avviaRun();
  ASSERT_TRUE(riuscito());
  EXPECT_THAT(files.opened, testing::Contains(kFile));
  EXPECT_EQ(globali().gAnno, 2016);
}

TEST_F(FileRun, TheFolderIsTheOneLastChosen) {
  certificati(1);
  files.folders.insert("/scelta");
  vaiAllaFine();
  frontEnd.folders = {"/scelta"};
  premi(form().cmdSfoglia);
  avviaRun();
  EXPECT_TRUE(files.files.contains("/scelta/CUR_01234567890_2016.cur"));
}

TEST_F(FileRun, TheFolderOfTheDocumentsIsMadeWhereItIsMissing) {
  files.folders.erase("/documenti/Comunicazioni");
  vaiAllaFine();
  avviaRun();
  EXPECT_TRUE(files.folders.contains("/documenti/Comunicazioni"));
  EXPECT_TRUE(riuscito());
}

TEST_F(FileRun, AFileThatCannotBeOpenedEndsTheRun) {
  certificati(1);
  vaiAllaFine();
  files.folders.erase("/cu");
  avviaRun();
  EXPECT_EQ(passo(), 2);
  EXPECT_THAT(frontEnd.boxTexts(),
              ElementsAre("Attenzione! Il percorso per il salvataggio dei files è inesistente!"));
  EXPECT_THAT(istruzioni(),
              ElementsAre(StartsWith("UPDATE ContoIndividuale SET"), StartsWith("EXEC('MERGE")));
  EXPECT_TRUE(factory.logs[0].released);
}

TEST_F(FileRun, ACompanyThatIsNotFoundWritesNoRowAndLeavesItsCodeOutOfTheName) {
  certificati(1);
  Table nessuna = azienda();
  nessuna.rows.clear();
  database.internal.answerContaining("AS CodFisc", nessuna);
  vaiAllaFine();
  avviaRun();
  EXPECT_TRUE(riuscito());
  EXPECT_THAT(factory.logs[0].rows, IsEmpty());
  EXPECT_TRUE(files.files.contains("/cu/CUR__2016.cur"));
}

// Positions from the layout of the supply.
TEST_F(FileRun, TheSettingsReachTheFile) {
  certificati(2);
  vaiAllaFine();
  intermediario("ntrmdr70a01h501u", "01/02/2017", 0);
  form().dtDataFirma.enter("28/02/2017");
  avviaRun();
  const CurFile file(files.files.at(kFile));
  EXPECT_EQ(file.line('A').at(16, 5), "CUR17");
  EXPECT_EQ(file.line('A').at(21, 2), "10");
  EXPECT_EQ(file.line('A').at(23, 16), "NTRMDR70A01H501U");
  EXPECT_EQ(file.line('B').at(2, 16), "01234567890     ");
  EXPECT_THAT(file.line('B').text(), HasSubstr("NTRMDR70A01H501U101022017"));
  EXPECT_THAT(file.line('D', 2).text(), HasSubstr("28022017"));
}

TEST_F(FileRun, WithNoCommitmentChosenItsCodeIsZeroAndNoCheckObjects) {
  certificati(1);
  vaiAllaFine();
  intermediario("NTRMDR70A01H501U", "01/02/2017", -1);
  avviaRun();
  EXPECT_TRUE(riuscito());
  EXPECT_THAT(istruzioni(), testing::Contains("INSERT INTO ConfigurazioneElencoCliFor"
                                              " (CodiceFiscaleIntermediario, TipoComunicazione, DataImpegno,"
                                              " IDAzienda) VALUES ('NTRMDR70A01H501U', 0, '20170201', 1)"));
  EXPECT_THAT(files.files.at(kFile), HasSubstr("NTRMDR70A01H501U001022017"));
}

class KindInTheFile : public FileRun, public testing::WithParamInterface<std::size_t> {};

TEST_P(KindInTheFile, IsTheOneChosen) {
  certificati(2);
  avviaCU();
  form().optTipoComunicazione.at(GetParam()).click();
  premi(form().cmdNav[3]);
  premi(form().cmdNav[3]);
  avviaRun();
  const CurFile file(files.files.at(kFile));
  EXPECT_EQ(file.types(), GetParam() == 1 ? "ABDDZ" : "ABDHDHZ");
  // Annulment, then replacement.
  const char* const segni[] = {"00", "10", "01"};
  EXPECT_EQ(file.line('B').at(91, 2), segni[GetParam()]);
}

INSTANTIATE_TEST_SUITE_P(Kinds, KindInTheFile, testing::Values(0U, 1U, 2U));

TEST_F(FileRun, TheGridIsLoadedAnewForTheNextRun) {
  certificati(1);
  vaiAllaFine();
  righe({workRow(8, 1)});
  avviaRun();
  EXPECT_EQ(form().grdCompensi.rowCount(), 1U);
  EXPECT_EQ(form().grdCompensi.column("Selezionato")->caption, "[ 1 ]");
}

TEST_F(FileRun, TheYearOfTheLastRunStays) {
  vaiAllaFine();
  EXPECT_EQ(globali().gAnno, 0);
  avviaRun();
  EXPECT_EQ(globali().gAnno, 2016);
  form().KRNCboEsCont0.setIndex(1);
  EXPECT_EQ(globali().gAnno, 2016);
}

TEST_F(FileRun, IsUnderTheHourglassWhichGoesBeforeEachQuestionAndAtTheEnd) {
  certificati(1);
  vaiAllaFine();
  form().dtDataFirma.enter("06/03/2017");
  frontEnd.answers = {Answer::Ok};
  frontEnd.seen.clear();
  avviaRun();
  ASSERT_TRUE(riuscito());
  EXPECT_THAT(frontEnd.seen,
              ElementsAre("Memorizzazione delle modifiche nei conti 11", "Controllo dei dati 11", "box 0",
                          "Creazione del file telematico 11", "Stampa dei moduli 11", "frmMsgLink 0",
                          "Caricamento dei compensi 11"));
  EXPECT_EQ(frontEnd.pointer(), kPointerDefault);
}

TEST_F(FileRun, ThatIsStoppedLeavesTheArrowAndSaysThatNoFileWasMade) {
  certificati(1);
  vaiAllaFine();
  form().dtDataFirma.enter("06/03/2017");
  frontEnd.answers = {Answer::Cancel};
  avviaRun();
  EXPECT_EQ(frontEnd.pointer(), kPointerDefault);
  form().dtDataFirma.enter("");
  avviaRun();
  EXPECT_THAT(frontEnd.pointers, ElementsAre(11, 0, 11, 0));
  EXPECT_THAT(frontEnd.facts, ElementsAre("Il file telematico non è stato creato.",
                                          "Il file telematico non è stato creato: mancano dei dati."));
}

TEST_F(FileRun, PointsAtTheFirstOfItsOwnFieldsThatHoldsNothing) {
  vaiAllaFine();
  intermediario("", "");
  form().dtDataFirma.enter("");
  avviaRun();
  form().dtDataFirma.enter("05/03/2017");
  avviaRun();
  form().txtCodiceFiscale.enter("NTRMDR70A01H501U");
  avviaRun();
  EXPECT_THAT(frontEnd.missed, ElementsAre("dtDataFirma", "txtCodiceFiscale", "dtDataImpegno"));
  Table senzaNome = azienda();
  senzaNome.rows[0][1] = null();
  senzaNome.rows[0][4] = null();
  database.internal.answerContaining("AS CodFisc", senzaNome);
  form().dtDataImpegno.enter("01/02/2017");
  avviaRun();
  EXPECT_EQ(passo(), 2);
  EXPECT_THAT(frontEnd.missed, SizeIs(3)) << "the company's data are not completed here";
}

TEST_F(FileRun, TellsWhatBecameOfTheFile) {
  vaiAllaFine();
  avviaRun();
  EXPECT_THAT(frontEnd.facts, ElementsAre("Nessun file telematico è stato creato: nessuna riga scelta ha un "
                                          "periodo IVA nell'anno."));
  frontEnd.facts.clear();
  certificati(1);
  premi(form().cmdNav[3]);
  premi(form().cmdNav[3]);
  avviaRun();
  EXPECT_THAT(frontEnd.facts, ElementsAre("Creato CUR_01234567890_2016.cur."));
}

TEST_F(FileRun, TellsThatAFileCouldNotBeWrittenOrIsWithoutItsEnd) {
  certificati(1);
  vaiAllaFine();
  files.closed.insert("/cu");
  avviaRun();
  EXPECT_EQ(passo(), 2);
  EXPECT_THAT(frontEnd.boxes, IsEmpty());
  EXPECT_EQ(frontEnd.pointer(), kPointerDefault);
  files.closed.clear();
  files.failNth(MemoryFileSystem::Operation::Write, 2, kErrorDiskFull);
  avviaRun();
  EXPECT_THAT(frontEnd.facts,
              ElementsAre("Il file telematico non è stato creato: non è stato possibile scrivere "
                          "CUR_01234567890_2016.cur nella cartella scelta.",
                          "La creazione del file telematico si è interrotta: un file senza record Z non va "
                          "trasmesso."));
}

TEST_F(FileRun, ThatFailsLeavesTheFoldersNoteAsTheFolderIsThen) {
  certificati(1);
  database.own.answerContaining("AS CodFisc", azienda());
  vaiAllaFine();
  const auto nota = [this] {
    avviaRun();
    EXPECT_EQ(passo(), 2);
    return form().txtPercorsoCU.note();
  };
  EXPECT_EQ(form().txtPercorsoCU.note(), "");
  files.failNth(MemoryFileSystem::Operation::Write, 2, kErrorDiskFull);
  EXPECT_EQ(nota(), "CUR_01234567890_2016.cur esiste già: Avvia lo sostituisce.");
  files.closed.insert(kFile);
  EXPECT_EQ(nota(), "CUR_01234567890_2016.cur esiste già e non si può sostituire.");
  form().dtDataFirma.enter("");
  files.files.clear();
  EXPECT_EQ(nota(), "");
  files.folders.erase("/cu");
  EXPECT_EQ(nota(), "La cartella non esiste.");
}

TEST_F(FileRun, TheArrowIsBackWhenAMissingFolderIsTold) {
  certificati(1);
  vaiAllaFine();
  files.folders.erase("/cu");
  frontEnd.seen.clear();
  avviaRun();
  EXPECT_THAT(frontEnd.seen, testing::Contains("box 0"));
}

}  // namespace
}  // namespace cu::test
